#pragma once
#include "platform/Clipboard.h"
#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"
#include "platform/Screen.h"
#include "platform/Shell.h"
#include "platform/TrayIcon.h"
#include "platform/headless/Journal.h"
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace platform::headless {

class CClipboard final : public IClipboard {
public:
    explicit CClipboard(CJournal& journal) : m_journal(journal) {}
    bool HasText() const override;
    std::string Text() const override;
    bool IsSecret() const override;
    bool CanWatch() const override;
    void Watch(std::function<void()> changed) override;
    void StopWatching() override;

    // A copy made by somebody; tells the watcher. No value stands for a picture.
    void Put(std::optional<std::string> text);
    void PutSecret(std::string text);  // The same, marked as a secret.
    bool canWatch = true;              // False: nobody is told about copies.
    bool Watched() const { return static_cast<bool>(m_changed); }

private:
    CJournal& m_journal;
    void Tell() const;
    std::optional<std::string> m_text;
    bool m_secret = false;
    std::function<void()> m_changed;
};

struct ShownBox : MessageBox {
    // A line of the text, counted from 1; "" beyond the last.
    std::string Line(std::size_t number) const;
};

// Answers with the scripted answers in turn, then with the first button.
class CMessageBoxes final : public IMessageBoxes {
public:
    explicit CMessageBoxes(CJournal& journal) : m_journal(journal) {}
    BoxAnswer Show(const MessageBox& box) override;

    std::deque<BoxAnswer> answers;
    std::vector<ShownBox> shown;
    const ShownBox& Last() const { return shown.at(shown.size() - 1); }
    std::function<void()> whileShown;  // Called while a box stands on the screen.

private:
    CJournal& m_journal;
};

// Answers with the scripted paths in turn, then with "" (cancelled).
class CFileDialogs final : public IFileDialogs {
public:
    explicit CFileDialogs(CJournal& journal) : m_journal(journal) {}
    std::string Ask(const FileDialog& dialog) override;

    std::deque<std::string> answers;
    std::vector<FileDialog> asked;
    std::function<void()> whileAsked;  // Called while a dialog stands on the screen.

private:
    CJournal& m_journal;
};

// Knows which programs start; opens everything else with the scripted code.
class CShell final : public IShell {
public:
    explicit CShell(CJournal& journal) : m_journal(journal) {}
    void StartProgram(const std::string& commandLine) override;
    std::int32_t Open(const std::string& file, const std::string& parameters) override;

    struct Opened {
        std::string file;
        std::string parameters;
    };
    std::set<std::string> programs;
    std::int32_t openCode = 42;
    std::vector<std::string> started;
    std::vector<Opened> opened;

private:
    CJournal& m_journal;
};

class CScreen final : public IScreen {
public:
    explicit CScreen(CJournal& journal) : m_journal(journal) {}
    std::int32_t WidthInUnits() const override;
    std::int32_t HeightInUnits() const override;
    std::int32_t UnitsPerPixelX() const override;
    std::int32_t UnitsPerPixelY() const override;
    void SetPointer(Pointer pointer) override;

    std::int32_t width = 1024;  // Pixels.
    std::int32_t height = 768;
    std::int32_t unitsPerPixel = 15;
    std::vector<Pointer> pointers;

private:
    CJournal& m_journal;
};

class CTrayIcon final : public ITrayIcon {
public:
    explicit CTrayIcon(CJournal& journal) : m_journal(journal) {}
    void Add(const std::string& tip, std::function<void(std::int32_t message)> mouse) override;
    void Delete() override;

    void Mouse(std::int32_t message);  // What the user does to the icon; without effect while there is none.
    std::optional<std::string> tip;    // Of the icon that is there.

private:
    CJournal& m_journal;
    std::function<void(std::int32_t message)> m_mouse;
};

}
