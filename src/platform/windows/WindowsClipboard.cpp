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
constexpr UINT BetweenTriesOfAChangeMilliseconds = 15;

CFailure CannotOpenClipboard() { return {521, "Can't open Clipboard"}; }

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

// The clipboard, held until the end.
class CWindowsClipboard::COpen {
public:
    // Null when another program holds it.
    static std::unique_ptr<COpen> Try(HWND owner)
    {
        return OpenClipboard(owner) != 0 ? std::unique_ptr<COpen>(new COpen) : nullptr;
    }
    static std::unique_ptr<COpen> WithinAMoment(HWND owner)
    {
        for (int tried = 1; tried <= OpeningsTried; ++tried) {
            if (auto open = Try(owner))
                return open;
            if (tried < OpeningsTried)
                Sleep(BetweenTriesMilliseconds);
        }
        throw CannotOpenClipboard();
    }
    ~COpen() { CloseClipboard(); }
    COpen(const COpen&) = delete;
    COpen& operator=(const COpen&) = delete;

private:
    COpen() = default;
};

CWindowsClipboard::CWindowsClipboard(DWORD patienceMilliseconds) : m_patienceMilliseconds(patienceMilliseconds) {}

CWindowsClipboard::~CWindowsClipboard() { StopWatching(); }

// The system makes the one of any other text format.
bool CWindowsClipboard::HasText() const { return IsClipboardFormatAvailable(CF_UNICODETEXT) != 0; }

std::string CWindowsClipboard::Text() const
{
    std::unique_ptr<COpen> open = std::move(m_open);
    if (!open)
        open = COpen::WithinAMoment(m_window);
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
    m_changed = std::move(changed);
    clipboardChain::Join(m_window, [this] { NoteChange(); });
}

void CWindowsClipboard::StopWatching()
{
    StopTrying();
    m_changed = nullptr;
    if (std::exchange(m_watching, false))
        clipboardChain::Leave();
}

void CWindowsClipboard::NoteChange()
{
    m_patienceEnds = GetTickCount64() + m_patienceMilliseconds;
    TellWhenFree();
}

void CWindowsClipboard::TellWhenFree()
{
    auto open = COpen::Try(m_window);
    if (open == nullptr && GetTickCount64() < m_patienceEnds && KeepTrying())
        return;
    StopTrying();
    Tell(std::move(open));
}

// False without a timer of the system.
bool CWindowsClipboard::KeepTrying()
{
    if (!m_trying)
        m_trying = SetTimer(m_window, Timer(), BetweenTriesOfAChangeMilliseconds, TryAgain) != 0;
    return m_trying;
}

// What is thrown may not pass through the system.
void CALLBACK CWindowsClipboard::TryAgain(HWND, UINT, UINT_PTR self, DWORD)
try {
    reinterpret_cast<CWindowsClipboard*>(self)->TellWhenFree();
} catch (...) {
    return;
}

// A copy is called: the procedure may stop the watching. It finds the clipboard held for it; what it does not read is let
// go.
void CWindowsClipboard::Tell(std::unique_ptr<COpen> open)
{
    struct Lent {
        std::unique_ptr<COpen>& open;
        ~Lent() { open = nullptr; }
    } const lent{m_open};
    m_open = std::move(open);
    const std::function<void()> call = m_changed;
    if (call)
        call();
}

void CWindowsClipboard::StopTrying()
{
    if (std::exchange(m_trying, false))
        KillTimer(m_window, Timer());
}

}
