#include "engine/hosts/qt/CharacterWindow.h"
#include "engine/hosts/qt/PictureScaler.h"
#include <QGuiApplication>
#include <QMouseEvent>
#include <QWindow>

namespace engine {
namespace {

int ButtonBits(Qt::MouseButtons buttons)
{
    return (buttons.testFlag(Qt::LeftButton) ? 1 : 0) | (buttons.testFlag(Qt::RightButton) ? 2 : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? 4 : 0);
}

int ShiftBits(Qt::KeyboardModifiers keys)
{
    return (keys.testFlag(Qt::ShiftModifier) ? 1 : 0) | (keys.testFlag(Qt::ControlModifier) ? 2 : 0) |
           (keys.testFlag(Qt::AltModifier) ? 4 : 0);
}

}

CCharacterWidget::CCharacterWidget(IMouseEvents& mouse, const CScreenWatch& screens)
    : CPictureWidget({}, screens), m_mouse(&mouse)
{
    setWindowTitle(QStringLiteral("Parlune character"));
    windowHandle()->installEventFilter(this);
}

// A box that waits for an answer takes the mouse from the program's own windows, but not from the character, which is none
// of them: a window that belongs to the box keeps it. Qt asks when the mouse comes.
bool CCharacterWidget::eventFilter(QObject*, QEvent* event)
{
    QWindow* box = QGuiApplication::modalWindow();
    const bool pressed = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (pressed && box && windowHandle()->transientParent() != box)
        windowHandle()->setTransientParent(box);
    return false;
}

void CCharacterWidget::mousePressEvent(QMouseEvent* event)
{
    Tell(&IMouseEvents::Press, ButtonBits(event->button()), *event);
}

void CCharacterWidget::mouseMoveEvent(QMouseEvent* event)
{
    Tell(&IMouseEvents::Move, ButtonBits(event->buttons()), *event);
}

void CCharacterWidget::mouseReleaseEvent(QMouseEvent* event)
{
    Tell(&IMouseEvents::Release, ButtonBits(event->button()), *event);
}

void CCharacterWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    Tell(&IMouseEvents::DoublePress, ButtonBits(event->button()), *event);
}

// Buttons that the engine does not know, as the wheel's sides, tell nothing.
void CCharacterWidget::Tell(Handler handler, int buttons, const QMouseEvent& event)
{
    if (!m_mouse || buttons == 0)
        return;
    struct CDepth {
        explicit CDepth(int& depth) : m_depth(depth) { ++m_depth; }
        ~CDepth() { --m_depth; }
        CDepth(const CDepth&) = delete;
        CDepth& operator=(const CDepth&) = delete;
        int& m_depth;
    };
    const CDepth inside(m_depth);
    (m_mouse->*handler)(buttons, ShiftBits(event.modifiers()), PixelsOf(event.globalPosition()));
}

// A click may unload the character whose window tells of it: then Qt still needs the widget until the event is over.
CCharacterWindow::~CCharacterWindow()
{
    m_widget->Forget();
    m_widget->hide();
    if (m_widget->InsideEvent())
        m_widget->deleteLater();
    else
        delete m_widget;
}

void CCharacterWindow::SetPicture(const Bitmap& picture)
{
    m_picture = picture;
    m_widget->SoftEdgesChanged(/*askNow*/ false);
    Render();
}

void CCharacterWindow::SetPlace(const Rect& place)
{
    const bool resized = place.width != m_place.width || place.height != m_place.height;
    m_place = place;
    if (resized)
        Render();
    else
        m_widget->PutPicture(m_place, m_image);
}

void CCharacterWindow::Show()
{
    if (m_widget->SoftEdgesChanged(/*askNow*/ true))
        Render();
    m_widget->ShowOnTop();
}

void CCharacterWindow::Hide() { m_widget->hide(); }

void CCharacterWindow::Raise() { m_widget->raise(); }

void CCharacterWindow::Render()
{
    m_image = ScalePicture(m_picture, QSize(m_place.width, m_place.height), m_widget->SoftEdges());
    m_widget->PutPicture(m_place, m_image);
}

}
