#include "app/linux/window/BareSurface.h"
#include "platform/Platform.h"
#include "platform/Screen.h"
#include <QMouseEvent>

namespace {
int ButtonsOf(Qt::MouseButtons buttons)
{
    return (buttons.testFlag(Qt::LeftButton) ? 1 : 0) + (buttons.testFlag(Qt::RightButton) ? 2 : 0) +
           (buttons.testFlag(Qt::MiddleButton) ? 4 : 0);
}

int ShiftOf(Qt::KeyboardModifiers keys)
{
    return (keys.testFlag(Qt::ShiftModifier) ? 1 : 0) + (keys.testFlag(Qt::ControlModifier) ? 2 : 0) +
           (keys.testFlag(Qt::AltModifier) ? 4 : 0);
}
}

CBareSurface::CBareSurface(ui::CForm& form) : m_form(form) { setMouseTracking(true); }

// A control that does not want a move hands it on to here.
void CBareSurface::mouseMoveEvent(QMouseEvent* event)
{
    if (childAt(event->position().toPoint()))
        return;
    const platform::IScreen& screen = platform::Current().screen;
    const QPointF pixel = event->position() * devicePixelRatioF();
    m_form.MouseMove(ButtonsOf(event->buttons()), ShiftOf(event->modifiers()),
                     static_cast<float>(pixel.x() * screen.UnitsPerPixelX()),
                     static_cast<float>(pixel.y() * screen.UnitsPerPixelY()));
}
