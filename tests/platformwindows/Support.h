#pragma once
#include "platform/Failure.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace platform::windowsdesktop {

// The number of the failure that an action throws; 0 when it throws none.
template <class Action> std::int32_t FailureOf(Action action)
{
    try {
        action();
    } catch (const CFailure& failure) {
        return failure.Number();
    }
    return 0;
}

// A folder of its own for a test, removed afterwards with all that is in it.
class CTemporaryFolder {
public:
    CTemporaryFolder();
    ~CTemporaryFolder();
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

    std::string Path(const std::string& name = "") const { return name.empty() ? m_path : m_path + "\\" + name; }
    void MakeFolder(const std::string& name) const;
    void Write(const std::string& name, const std::string& bytes) const;
    std::string Read(const std::string& name) const;  // "(no file)" when there is none.
    std::vector<std::string> Names() const;           // Of everything in it, in the system's order.

private:
    std::string m_path;
};

// Another current folder until the end of the test.
class CCurrentFolder {
public:
    explicit CCurrentFolder(const std::string& folder);
    ~CCurrentFolder() { SetCurrentDirectoryW(m_former.c_str()); }
    CCurrentFolder(const CCurrentFolder&) = delete;
    CCurrentFolder& operator=(const CCurrentFolder&) = delete;

private:
    std::wstring m_former;
};

// A window that hands its messages to a procedure of the test's, which may return nothing to leave them to the system.
class CTestWindow {
public:
    using Procedure = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;
    explicit CTestWindow(Procedure procedure = {}, DWORD style = 0, bool unicode = true);
    ~CTestWindow() { Destroy(); }
    CTestWindow(const CTestWindow&) = delete;
    CTestWindow& operator=(const CTestWindow&) = delete;
    HWND Get() const { return m_window; }
    void Destroy();

private:
    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    Procedure m_procedure;
    HWND m_window = nullptr;
};

// Looks every few milliseconds, in modal loops too, whether a dialog of this thread stands, and hands it to the next of
// the answers: each returns true when it is done.
class CDialogAnswers {
public:
    using Answer = std::function<bool(HWND dialog)>;
    explicit CDialogAnswers(std::vector<Answer> answers);
    ~CDialogAnswers();
    CDialogAnswers(const CDialogAnswers&) = delete;
    CDialogAnswers& operator=(const CDialogAnswers&) = delete;
    bool AllGiven() const { return m_given == m_answers.size(); }

private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD);
    void Give(HWND dialog);
    std::vector<Answer> m_answers;
    std::size_t m_given = 0;
    HWND m_answered = nullptr;
    int m_looks = 0;
    CDialogAnswers* m_former;
    UINT_PTR m_timer;
};

// An answer that presses a button.
CDialogAnswers::Answer Press(int button);

// Runs messages until the condition holds; false when it does not within so many looks of ten milliseconds.
bool RunUntil(const std::function<bool()>& condition, int looks = 6000);

// Text of a window or control.
std::string TextOf(HWND window);

// Puts texts on the clipboard; the format of UTF-16 when `wide`.
void CopyBlock(UINT format, const void* bytes, std::size_t size);
void CopyText(const std::string& text);
void CopyNothing();

}
