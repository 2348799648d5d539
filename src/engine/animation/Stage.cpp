#include "engine/animation/Stage.h"
#include "engine/animation/FrameComposer.h"

namespace engine {

CStage::CStage(IHost& host, const Character& character, IMouseEvents& mouse)
    : m_host(host), m_character(character),
      m_mouse(mouse), m_place{0, 0, character.frameSize.width, character.frameSize.height}
{
}

void CStage::SetFrame(const Frame* frame)
{
    m_frame = frame;
    Draw();
}

void CStage::SetMouth(std::optional<Mouth> mouth)
{
    m_mouth = mouth;
    Draw();
}

void CStage::SetPlace(const Rect& place)
{
    if (m_place == place)
        return;
    m_place = place;
    if (m_window)
        m_window->SetPlace(place);
}

void CStage::Show()
{
    if (!m_window) {
        m_window = m_host.CreateCharacterWindow(m_mouse);
        m_window->SetPlace(m_place);
    }
    m_visible = true;
    Draw();
    m_window->Show();
}

void CStage::Hide()
{
    m_visible = false;
    m_frame = nullptr;
    m_mouth.reset();
    m_drawn = false;
    if (m_window)
        m_window->Hide();
}

void CStage::Raise()
{
    if (m_window && m_visible)
        m_window->Raise();
}

void CStage::Draw()
{
    if (!m_visible)
        return;
    static const Frame Empty;
    const Frame& frame = m_frame != nullptr ? *m_frame : Empty;
    const MouthOverlay* overlay = m_mouth ? MouthOverlayOf(frame, *m_mouth) : nullptr;
    const bool sameOverlay = overlay != nullptr ? m_drawnOverlay == *overlay : !m_drawnOverlay;
    if (m_drawn && sameOverlay && m_drawnPictures == frame.pictures)
        return;
    m_drawn = true;
    m_drawnPictures = frame.pictures;
    m_drawnOverlay = overlay != nullptr ? std::optional(*overlay) : std::nullopt;
    m_window->SetPicture(ComposeFrame(m_character, frame, overlay));
}

}
