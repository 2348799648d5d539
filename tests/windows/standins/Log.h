#pragma once
#include <functional>
#include <string>
#include <vector>

namespace standins {

// What happened to the stand-ins, in order, one line each; the README tells the forms.
class CLog {
public:
    void Write(const std::string& line);  // Appended to the file as well, which is closed again at once.
    const std::vector<std::string>& Lines() const { return m_lines; }
    std::vector<std::string> LinesWith(const std::string& beginning) const;
    void Forget() { m_lines.clear(); }
    void AppendTo(const std::wstring& file) { m_file = file; }  // "" for memory alone.

private:
    std::vector<std::string> m_lines;
    std::wstring m_file;
};

}
