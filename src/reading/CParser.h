#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Cuts a text into fields at every occurrence of a delimiter. Fields carry no blanks at their ends; two delimiters in a
// row give an empty field, one at the very end gives none. Time and memory are linear in the text.
class CParser {
public:
    // Cuts `text`, blanks at its ends not counted. An empty delimiter is never found. A failure (out of memory) is told
    // in a message box; the fields found so far stay.
    void ParseIt(std::string_view text, std::string_view delimiter);
    std::int32_t FieldCount() const { return static_cast<std::int32_t>(m_fields.size()); }
    // The field, counted from 1; "" outside the fields. Borrowed until the next ParseIt.
    const std::string& Field(std::int32_t index) const;
    // A copy of all fields; one empty text when there is none.
    std::vector<std::string> GetFieldArray() const;

private:
    std::vector<std::string> m_fields;
};
