#include "platform/windows/WindowsFonts.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"
#include <algorithm>
#include <string>
#include <vector>

namespace platform::windowsdesktop {
namespace {
using Names = std::vector<std::string>;

// The device context of the screen, given back at the end.
class CScreenContext {
public:
    CScreenContext() : m_context(GetDC(nullptr)) {}
    ~CScreenContext() { ReleaseDC(nullptr, m_context); }
    CScreenContext(const CScreenContext&) = delete;
    CScreenContext& operator=(const CScreenContext&) = delete;
    HDC Get() const { return m_context; }

private:
    HDC m_context;
};

// Some systems call once for each script of a family: the name is taken once. Only gathers: what the names are wanted for
// may throw, and nothing may be thrown through the system's own procedures.
int CALLBACK TakeName(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM names)
{
    Names& taken = *reinterpret_cast<Names*>(names);
    try {
        std::string name = FaceNameOf(std::string_view(font->lfFaceName, LF_FACESIZE));
        if (std::find(taken.begin(), taken.end(), name) == taken.end())
            taken.push_back(std::move(name));
    } catch (...) {
        return 0;
    }
    return 1;
}
}

std::string FaceNameOf(std::string_view field)
{
    const std::size_t end = field.find('\0');
    return end == std::string_view::npos ? FromAnsi(field) : FromAnsi(field.substr(0, end)) + '\0';
}

void CWindowsFonts::EnumerateFamilies(const std::function<std::int32_t(std::string_view faceName)>& family) const
{
    Names names;
    EnumFontFamiliesA(CScreenContext().Get(), nullptr, TakeName, reinterpret_cast<LPARAM>(&names));
    for (const std::string& name : names)
        if (family(name) == 0)
            return;
}

}
