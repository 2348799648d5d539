#include "Support.h"
#include <algorithm>
#include <cstring>

namespace platform::windowsdesktop {
namespace {
void RemoveAll(const std::wstring& folder)
{
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &entry) != 0) {
        const std::wstring name = entry.cFileName;
        const std::wstring path = folder + L"\\" + name;
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            DeleteFileW(path.c_str());
        else if (name != L"." && name != L"..")
            RemoveAll(path);
    }
    FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

CDialogAnswers* answering = nullptr;
constexpr int LooksBeforeAnsweringAgain = 100;

BOOL CALLBACK TakeDialog(HWND window, LPARAM found)
{
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (std::wstring(name) != L"#32770" || !IsWindowVisible(window) || !IsWindowEnabled(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND StandingDialog()
{
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}
}

CTemporaryFolder::CTemporaryFolder()
{
    static int number = 0;
    wchar_t temporary[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, temporary);
    const std::wstring path =
        temporary + (L"plt" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++number));
    CreateDirectoryW(path.c_str(), nullptr);
    m_path = FromWide(path);
}

CTemporaryFolder::~CTemporaryFolder() { RemoveAll(ToWide(m_path)); }

void CTemporaryFolder::MakeFolder(const std::string& name) const { CreateDirectoryW(ToWide(Path(name)).c_str(), nullptr); }

void CTemporaryFolder::Write(const std::string& name, const std::string& bytes) const
{
    const HANDLE file = CreateFileW(ToWide(Path(name)).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

std::string CTemporaryFolder::Read(const std::string& name) const
{
    const HANDLE file = CreateFileW(ToWide(Path(name)).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return "(no file)";
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD got = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
    CloseHandle(file);
    return bytes.substr(0, got);
}

std::vector<std::string> CTemporaryFolder::Names() const
{
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = FindFirstFileW(ToWide(Path("*")).c_str(), &entry);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &entry) != 0)
        if (std::wstring(entry.cFileName) != L"." && std::wstring(entry.cFileName) != L"..")
            names.push_back(FromWide(entry.cFileName));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

CCurrentFolder::CCurrentFolder(const std::string& folder) : m_former(MAX_PATH, L'\0')
{
    GetCurrentDirectoryW(MAX_PATH, m_former.data());
    SetCurrentDirectoryW(ToWide(folder).c_str());
}

CTestWindow::CTestWindow(Procedure procedure, DWORD style, bool unicode) : m_procedure(std::move(procedure))
{
    static bool registered = false;
    if (!std::exchange(registered, true)) {
        WNDCLASSW wide = {};
        wide.lpfnWndProc = Receive;
        wide.hInstance = GetModuleHandleW(nullptr);
        wide.lpszClassName = L"ParluneTestWide";
        RegisterClassW(&wide);
        WNDCLASSA narrow = {};
        narrow.lpfnWndProc = Receive;
        narrow.hInstance = GetModuleHandleW(nullptr);
        narrow.lpszClassName = "ParluneTestNarrow";
        RegisterClassA(&narrow);
    }
    m_window =
        unicode ? CreateWindowExW(0, L"ParluneTestWide", L"Test", style, 10, 10, 200, 100, nullptr, nullptr, nullptr, this)
                : CreateWindowExA(0, "ParluneTestNarrow", "Test", style, 10, 10, 200, 100, nullptr, nullptr, nullptr, this);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void CTestWindow::Destroy()
{
    if (m_window != nullptr)
        DestroyWindow(std::exchange(m_window, nullptr));
}

LRESULT CALLBACK CTestWindow::Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* self = reinterpret_cast<CTestWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && self->m_procedure)
        if (const auto result = self->m_procedure(message, wParam, lParam))
            return *result;
    return IsWindowUnicode(window) ? DefWindowProcW(window, message, wParam, lParam)
                                   : DefWindowProcA(window, message, wParam, lParam);
}

CDialogAnswers::CDialogAnswers(std::vector<Answer> answers)
    : m_answers(std::move(answers)), m_former(answering), m_timer(SetTimer(nullptr, 0, 10, Look))
{
    answering = this;
}

CDialogAnswers::~CDialogAnswers()
{
    KillTimer(nullptr, m_timer);
    answering = m_former;
}

void CALLBACK CDialogAnswers::Look(HWND, UINT, UINT_PTR, DWORD)
{
    if (answering != nullptr)
        answering->Give(StandingDialog());
}

// A dialog that is answered while it is still being built may not notice: it is answered again after a while.
void CDialogAnswers::Give(HWND dialog)
{
    if (dialog == nullptr)
        return;
    if (dialog == m_answered) {
        if (++m_looks % LooksBeforeAnsweringAgain == 0)
            m_answers[m_given - 1](dialog);
        return;
    }
    if (AllGiven() || !m_answers[m_given](dialog))
        return;
    m_answered = dialog;
    m_looks = 0;
    ++m_given;
}

CDialogAnswers::Answer Press(int button)
{
    return [button](HWND dialog) { return PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0) != 0; };
}

// Looks, not time: a machine that has much to do gives fewer of them in a second.
bool RunUntil(const std::function<bool()>& condition, int looks)
{
    for (int look = 0; !condition(); ++look) {
        if (look == looks)
            return false;
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        MSG message = {};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0)
            DispatchMessageW(&message);
    }
    return true;
}

std::string TextOf(HWND window)
{
    wchar_t text[2048] = {};
    SendMessageW(window, WM_GETTEXT, 2048, reinterpret_cast<LPARAM>(text));
    return FromWide(text);
}

void CopyBlock(UINT format, const void* bytes, std::size_t size)
{
    while (OpenClipboard(nullptr) == 0)
        SwitchToThread();
    EmptyClipboard();
    if (const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size); block != nullptr) {
        std::memcpy(GlobalLock(block), bytes, size);
        GlobalUnlock(block);
        SetClipboardData(format, block);
    }
    CloseClipboard();
}

void CopyText(const std::string& text)
{
    const std::wstring wide = ToWide(text);
    CopyBlock(CF_UNICODETEXT, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
}

void CopyNothing()
{
    while (OpenClipboard(nullptr) == 0)
        SwitchToThread();
    EmptyClipboard();
    CloseClipboard();
}

}
