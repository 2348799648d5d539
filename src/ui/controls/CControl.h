#pragma once
#include <functional>
#include <string>
#include <utility>
#include <vector>

// The program's controls, free of any toolkit. They are the truth: value, text, list, enabled, visible, focus, and their
// events. A native control is a peer: it mirrors the object and reports the user's actions by the same calls that the
// program makes.
namespace ui {

class CForm;
class CMenuItem;

class CControl {
public:
    CControl(CForm& form, std::string name, std::string caption = "");
    virtual ~CControl() = default;
    CControl(const CControl&) = delete;
    CControl& operator=(const CControl&) = delete;

    const std::string& Name() const { return m_name; }
    const std::string& Caption() const { return m_caption; }
    void SetCaption(std::string caption) { Change(m_caption, std::move(caption)); }
    const std::string& ToolTip() const { return m_toolTip; }
    void SetToolTip(std::string toolTip) { Change(m_toolTip, std::move(toolTip)); }
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool enabled) { Change(m_enabled, enabled); }
    bool Visible() const { return m_visible; }
    void SetVisible(bool visible) { Change(m_visible, visible); }
    // Moves the keyboard focus here. Throws CFailure 5 while the control is disabled or invisible.
    void SetFocus();
    bool HasFocus() const;

    // The peer is called after every change of this object. One peer; a later one replaces it.
    void SetPeer(std::function<void()> changed) { m_peer = std::move(changed); }

protected:
    void Changed() const;   // For the peer and the form.
    void TellForm() const;  // The peer knows already.
    template <class T> void Change(T& field, T value)
    {
        if (field == value)
            return;
        field = std::move(value);
        Changed();
    }
    static void Raise(const std::function<void()>& event);  // As an event handler of its own.

private:
    friend class CForm;
    CForm& m_form;
    std::string m_name;
    std::string m_caption;
    std::string m_toolTip;
    bool m_enabled = true;
    bool m_visible = true;
    std::function<void()> m_peer;
};

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

// Why a window is asked to close: by its own close command, by the program's code, by the end of the session, or by a
// message of another program.
enum class UnloadMode { ControlMenu = 0, Code = 1, Session = 2, OtherProgram = 3 };

// A window. It is not there before Load, which runs its load procedure once; Unload asks QueryUnload, runs Unload and
// leaves it unloaded. A window that is unloaded while its load procedure runs stays unloaded until that has ended.
class CForm {
public:
    explicit CForm(std::string name, std::string caption);
    virtual ~CForm() = default;
    CForm(const CForm&) = delete;
    CForm& operator=(const CForm&) = delete;

    const std::string& Name() const { return m_name; }
    const std::string& Caption() const { return m_caption; }
    void SetCaption(std::string caption);

    bool Loaded() const { return m_loaded; }
    bool Loading() const { return m_loading; }  // While the load procedure runs; Loaded is true then, too, until Unload.
    void Load();                                // Does nothing when it is already loaded, or just loading.
    // Whether the end of the session has asked the window to close since Load began, even if it had gone by then.
    bool SessionEnded() const { return m_sessionEnded; }
    // Returns false when the form refused to close.
    bool Unload(UnloadMode mode = UnloadMode::Code);

    bool Visible() const { return m_visible; }
    void SetVisible(bool visible);  // Loads the form first.
    WindowState State() const { return m_state; }
    void SetState(WindowState state);  // Runs Resize when it changes.
    void BringToFront();               // Asks the peer to put the window before all others.
    void Activate();                   // The same, and gives it the focus.
    void PopUpMenu(CMenuItem& menu);   // Asks the peer to show a menu at the mouse position; returns when it has closed.
    void PostEmptyMessage();           // Has the system deliver an empty message to the window.
    // The picture in the window's corner: its name among the program's pictures.
    const std::string& Icon() const { return m_icon; }
    void SetIcon(std::string icon);
    // The mouse moves over the window's bare surface. Button and shift: sums of 1 left, 2 right, 4 middle, and of 1 Shift,
    // 2 Ctrl, 4 Alt. The place is in screen units from the window's top left corner.
    void MouseMove(int button, int shift, float x, float y);

    CControl* Focused() const { return m_focused; }
    const std::vector<CControl*>& Controls() const { return m_controls; }

    // The window's procedures, wired by the program. What onCreate throws leaves the form unloaded.
    std::function<void()> onCreate;
    std::function<void()> onLoad;
    std::function<void()> onResize;
    std::function<void(int button, int shift, float x, float y)> onMouseMove;
    std::function<bool(UnloadMode)> onQueryUnload;  // False: stay open.
    std::function<void()> onUnload;
    std::function<void()> onControlChange;  // Something about a control has changed. Happens often.

    // What a native window mirrors.
    struct Peer {
        std::function<void()> changed;  // Caption, icon, visibility or state.
        std::function<void()> bringToFront;
        std::function<void()> activate;
        std::function<void(CMenuItem& menu)> popUpMenu;
        std::function<void()> postEmptyMessage;
        std::function<void()> unloaded;
        std::function<void()> focusMoved;
    };
    void SetPeer(Peer peer) { m_peer = std::move(peer); }

protected:
    static void Raise(const std::function<void()>& event);  // As an event handler of its own.

private:
    friend class CControl;
    bool MayClose(UnloadMode mode) const;
    std::string m_name;
    std::string m_caption;
    std::string m_icon;
    bool m_loaded = false;
    bool m_loading = false;
    bool m_closing = false;
    bool m_sessionEnded = false;
    bool m_visible = false;
    WindowState m_state = WindowState::Normal;
    CControl* m_focused = nullptr;
    std::vector<CControl*> m_controls;
    Peer m_peer;
};

}
