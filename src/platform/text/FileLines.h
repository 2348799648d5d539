#pragma once
#include "platform/text/Encoding.h"
#include <string_view>

namespace platform::text {

// The bytes of a line.
struct FileLine {
    std::string_view content;
    std::string_view end;  // CR LF, LF or CR; empty for a last line without.
};

// The bytes of a text, without a mark, as lines that can be taken away from both ends. Borrows the bytes.
class CFileLines {
public:
    CFileLines(std::string_view bytes, Encoding encoding);
    bool Empty() const { return m_bytes.empty(); }
    // The first and the last line; there must be one.
    FileLine Front() const;
    FileLine Back() const;
    void DropFront();
    void DropBack();

    CFileLines None() const;                // No line, behind the last one.
    void TakeBefore(const FileLine& line);  // Adds the line that lies before these in the same bytes.

private:
    std::size_t Units() const { return m_bytes.size() / m_width; }
    bool IsUnit(std::size_t unit, char c) const;
    bool IsEnd(std::size_t unit) const { return IsUnit(unit, '\r') || IsUnit(unit, '\n'); }
    FileLine Line(std::size_t first, std::size_t end, std::size_t behind) const;
    std::string_view m_bytes;
    std::size_t m_width = 1;
    bool m_bigEndian = false;
};

}
