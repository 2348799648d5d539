#include "platform/windows/WindowsClipboard.h"
#include "platform/Failure.h"
#include "platform/text/Encoding.h"
#include "platform/windows/ClipboardChain.h"
#include "platform/windows/Text.h"
#include <utility>

namespace platform::windowsdesktop {
namespace {
// Whoever copies holds the clipboard for a moment only.
constexpr int OpeningsTried = 5;
constexpr DWORD BetweenTriesMilliseconds = 8;

CFailure CannotOpenClipboard() { return {521, "Can't open Clipboard"}; }

// The clipboard, held until the end.
class COpenClipboard {
public:
    explicit COpenClipboard(HWND owner)
    {
        for (int tried = 1; OpenClipboard(owner) == 0; ++tried) {
            if (tried == OpeningsTried)
                throw CannotOpenClipboard();
            Sleep(BetweenTriesMilliseconds);
        }
    }
    ~COpenClipboard() { CloseClipboard(); }
    COpenClipboard(const COpenClipboard&) = delete;
    COpenClipboard& operator=(const COpenClipboard&) = delete;
};

// A block of another program's, as UTF-16. It need not end with a NUL, nor be whole.
std::wstring TextOfBlock(HANDLE block)
{
    const auto* text = block != nullptr ? static_cast<const wchar_t*>(GlobalLock(block)) : nullptr;
    if (text == nullptr)
        return {};
    const std::wstring_view whole(text, GlobalSize(block) / sizeof(wchar_t));
    std::wstring copy(whole.substr(0, whole.find(L'\0')));
    GlobalUnlock(block);
    return copy;
}

bool HasFormat(const wchar_t* name) { return IsClipboardFormatAvailable(RegisterClipboardFormatW(name)) != 0; }
}

CWindowsClipboard::~CWindowsClipboard() { StopWatching(); }

// The system makes the one of any other text format.
bool CWindowsClipboard::HasText() const { return IsClipboardFormatAvailable(CF_UNICODETEXT) != 0; }

std::string CWindowsClipboard::Text() const
{
    const COpenClipboard open(m_window);
    return text::WithCrLf(FromWide(TextOfBlock(GetClipboardData(CF_UNICODETEXT))));
}

bool CWindowsClipboard::IsSecret() const
{
    return HasFormat(L"ExcludeClipboardContentFromMonitorProcessing") || HasFormat(L"Clipboard Viewer Ignore");
}

void CWindowsClipboard::Watch(std::function<void()> changed)
{
    if (m_window == nullptr)
        return;
    m_watching = true;
    clipboardChain::Join(m_window, std::move(changed));
}

void CWindowsClipboard::StopWatching()
{
    if (std::exchange(m_watching, false))
        clipboardChain::Leave();
}

}
