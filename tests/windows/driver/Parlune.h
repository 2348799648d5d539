#pragma once
#include "driver/Process.h"
#include "ui/frmParlune.h"
#include <string>

namespace driver {

// The pages of the options window.
enum class Page { General, Character, Voice, Balloon, Read, Greetings, About };

// The running program, seen and used from outside.
class CParlune {
public:
    // Where its files are, each with a backslash at its end. Prepared anew for each test.
    static const std::string& Folder();      // Of Parlune.exe.
    static const std::string& DataFolder();  // What APPDATA says.
    static std::string SettingsFile() { return DataFolder() + "Tarrowind\\Parlune\\Parlune.ini"; }

    // `arguments` stand behind the program's name as they are: begin with a blank.
    void Start(const std::string& arguments = {}, Environment changed = {}, const std::string& folder = Folder());
    void End();  // By the menu's Exit; waits until the program has gone.

    CProcess& Process() { return m_process; }
    DWORD Id() const { return m_process.Id(); }
    bool IsRunning() const { return m_process.IsRunning(); }
    bool HasEnded() const { return m_process.WaitForEnd(); }

    HWND Main() const;  // Null until the main window has been loaded.
    HWND Tray() const;
    HWND Splash() const;
    bool IsShown() const;  // Whether the main window is seen.
    std::string Title() const;

    // Controls under their names on the form. One that is not there yet is brought as the user does it: by showing its page.
    HWND Control(const std::string& name) const;
    HWND SplashControl(const std::string& name) const;
    std::string Text(const std::string& name) const;
    void SetText(const std::string& name, const std::string& text) const;
    bool IsTicked(const std::string& name) const;
    void Click(const std::string& name) const;  // A button or a box, as the keyboard does it.
    void Choose(const std::string& menuEntry) const;

    void Show() const;  // The options window by the popup menu's "Options...".
    void GoTo(Page page) const;
    int TabOf(const std::string& tabStrip) const;
    void SetTab(const std::string& tabStrip, int page) const;
    // The entries of a list or combo, and the one that is selected (-1: none).
    std::vector<std::string> Entries(const std::string& name) const;
    int Selected(const std::string& name) const;
    void Select(const std::string& name, int entry) const;

private:
    HWND Find(const std::string& name) const;
    void Reveal(const std::string& name) const;

    CProcess m_process;
    mutable std::map<std::string, HWND> m_found;  // Looking for a control takes time.
};

const frmParlune& Form();  // The form's names and captions.

}
