#include "engine/session/Mouse.h"
#include "engine/base/Constants.h"
#include <cstdlib>

namespace engine {

namespace {

constexpr int LeftButton = 1;

}

void CMouse::Press(int button, int shift, Point at)
{
    m_pressed = button;
    m_clicks = true;
    m_from = at;
    m_last = {button, shift, at};
}

void CMouse::DoublePress(int button, int shift, Point at)
{
    Press(button, shift, at);
    m_clicks = false;
    m_listener.DoubleClicked({button, shift, at});
}

void CMouse::Move(int buttons, int shift, Point at)
{
    if (m_pressed != LeftButton || (buttons & LeftButton) == 0)
        return;
    const Point distance{at.x - m_from.x, at.y - m_from.y};
    const bool far = std::abs(distance.x) > constants::DragThreshold || std::abs(distance.y) > constants::DragThreshold;
    if (!m_dragging && far) {
        m_dragging = true;
        m_listener.DragBegan({LeftButton, shift, m_from});
    }
    m_last = {LeftButton, shift, at};
    if (m_dragging)
        m_listener.DraggedBy(distance);
}

void CMouse::Release(int button, int shift, Point at)
{
    if (button != m_pressed)
        return;
    m_pressed = 0;
    m_last = {button, shift, at};
    if (m_dragging)
        Forget();
    else if (m_clicks)
        m_listener.Clicked(m_last);
}

void CMouse::Forget()
{
    m_pressed = 0;
    if (!m_dragging)
        return;
    m_dragging = false;
    m_listener.DragEnded(m_last);
}

}
