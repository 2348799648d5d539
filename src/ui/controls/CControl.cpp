#include "ui/controls/CControl.h"
#include "common/zbErrorTrap.h"
#include "platform/Failure.h"

namespace ui {
namespace {
void Tell(const std::function<void()>& peer)
{
    if (peer)
        peer();
}

// Holds a flag as long as it lives, also when a procedure of the window throws.
class CWhile {
public:
    explicit CWhile(bool& flag) : m_flag(flag) { m_flag = true; }
    ~CWhile() { m_flag = false; }
    CWhile(const CWhile&) = delete;
    CWhile& operator=(const CWhile&) = delete;

private:
    bool& m_flag;
};
}

CControl::CControl(CForm& form, std::string name, std::string caption)
    : m_form(form), m_name(std::move(name)), m_caption(std::move(caption))
{
    m_form.m_controls.push_back(this);
}

void CControl::Raise(const std::function<void()>& event)
{
    if (!event)
        return;
    const zbErrorTrap::CEventHandler handler;
    event();
}

void CControl::Changed() const
{
    Tell(m_peer);
    TellForm();
}

void CControl::TellForm() const { Tell(m_form.onControlChange); }

void CControl::SetFocus()
{
    if (!m_enabled || !m_visible)
        throw platform::failure::InvalidCall();
    m_form.m_focused = this;
    Tell(m_form.m_peer.focusMoved);
}

bool CControl::HasFocus() const { return m_form.m_focused == this; }

CForm::CForm(std::string name, std::string caption) : m_name(std::move(name)), m_caption(std::move(caption)) {}

void CForm::SetCaption(std::string caption)
{
    if (m_caption == caption)
        return;
    m_caption = std::move(caption);
    Tell(m_peer.changed);
}

void CForm::Raise(const std::function<void()>& event) { CControl::Raise(event); }

void CForm::Load()
{
    if (m_loaded || m_loading)
        return;
    m_sessionEnded = false;
    if (onCreate)
        onCreate();
    m_loaded = true;
    const CWhile loading(m_loading);
    Raise(onLoad);
}

bool CForm::MayClose(UnloadMode mode) const
{
    if (!onQueryUnload)
        return true;
    const zbErrorTrap::CEventHandler handler;
    return onQueryUnload(mode);
}

bool CForm::Unload(UnloadMode mode)
{
    m_sessionEnded = m_sessionEnded || mode == UnloadMode::Session;
    if (!m_loaded || m_closing)
        return true;
    const CWhile closing(m_closing);
    if (!MayClose(mode))
        return false;
    Raise(onUnload);
    m_visible = false;
    m_loaded = false;
    Tell(m_peer.changed);
    Tell(m_peer.unloaded);
    return true;
}

void CForm::SetVisible(bool visible)
{
    if (visible)
        Load();
    if (m_visible == visible || (visible && !m_loaded))
        return;
    m_visible = visible;
    Tell(m_peer.changed);
}

void CForm::SetState(WindowState state)
{
    if (m_state == state)
        return;
    m_state = state;
    Tell(m_peer.changed);
    Raise(onResize);
}

void CForm::BringToFront() { Tell(m_peer.bringToFront); }

void CForm::Activate() { Tell(m_peer.activate); }

void CForm::SetIcon(std::string icon)
{
    if (m_icon == icon)
        return;
    m_icon = std::move(icon);
    Tell(m_peer.changed);
}

void CForm::PostEmptyMessage() { Tell(m_peer.postEmptyMessage); }

void CForm::MouseMove(int button, int shift, float x, float y)
{
    if (!onMouseMove)
        return;
    const zbErrorTrap::CEventHandler handler;
    onMouseMove(button, shift, x, y);
}

void CForm::PopUpMenu(CMenuItem& menu)
{
    if (m_peer.popUpMenu)
        m_peer.popUpMenu(menu);
}

}
