#include "app/linux/window/Clickable.h"
#include "app/linux/window/Pictures.h"
#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>

namespace {
constexpr double LeastContrast = 3;

// Brightness as the eye sees it, 0 to 1.
double Brightness(const QColor& color)
{
    return 0.2126 * std::pow(color.redF(), 2.2) + 0.7152 * std::pow(color.greenF(), 2.2) +
           0.0722 * std::pow(color.blueF(), 2.2);
}

double Contrast(const QColor& one, const QColor& other)
{
    const auto [low, high] = std::minmax(Brightness(one), Brightness(other));
    return (high + 0.05) / (low + 0.05);
}

class CAccessibleClickable final : public QAccessibleWidget {
public:
    explicit CAccessibleClickable(CClickable* widget)
        : QAccessibleWidget(widget, widget->onClick ? QAccessible::Link : QAccessible::Graphic)
    {
    }
    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (Widget().onClick)
            names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& name) override
    {
        if (name == pressAction())
            Widget().Click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    CClickable& Widget() const { return *static_cast<CClickable*>(widget()); }
};

QAccessibleInterface* Describe(const QString&, QObject* object)
{
    auto* widget = qobject_cast<CClickable*>(object);
    return widget ? new CAccessibleClickable(widget) : nullptr;
}
}

void DescribeClickables() { QAccessible::installFactory(Describe); }

void CClickable::Click()
{
    if (isEnabled() && onClick)
        onClick();
}

void CClickable::ShowThatItIsClickable()
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void CClickable::DrawFocus(QPainter& painter, const QRect& place) const
{
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = place;
    option.backgroundColor = palette().color(QPalette::Window);
    option.state |= QStyle::State_KeyboardFocusChange;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void CClickable::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Click();
}

void CClickable::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)
        Click();
    else
        QWidget::keyPressEvent(event);
}

void CClickable::focusInEvent(QFocusEvent*) { update(); }

void CClickable::focusOutEvent(QFocusEvent*) { update(); }

CLink::CLink(QWidget& parent) : CClickable(parent) { ShowThatItIsClickable(); }

void CLink::SetText(const QString& text)
{
    m_text = text;
    updateGeometry();
    update();
}

void CLink::SetColor(const QColor& color)
{
    m_color = color;
    update();
}

QSize CLink::sizeHint() const { return fontMetrics().size(Qt::TextSingleLine, m_text); }

// A colour that was chosen for a light desktop gives way where it could not be read.
QColor CLink::ReadableColor() const
{
    if (!m_color.isValid())
        return palette().color(QPalette::Link);
    const QColor ground = palette().color(QPalette::Window);
    if (Contrast(m_color, ground) >= LeastContrast)
        return m_color;
    const QColor visited = palette().color(QPalette::LinkVisited);
    return Contrast(visited, ground) >= LeastContrast ? visited : palette().color(QPalette::WindowText);
}

void CLink::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QFont underlined = font();
    underlined.setUnderline(true);
    painter.setFont(underlined);
    painter.setPen(ReadableColor());
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, m_text);
    DrawFocus(painter, QRect(QPoint(0, 0), QSize(sizeHint().width() + 2, height())));
}

void CPictureView::Show(std::string_view picture)
{
    m_picture = picture;
    update();
}

void CPictureView::MakeClickable(std::function<void()> click)
{
    onClick = std::move(click);
    ShowThatItIsClickable();
}

void CPictureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    pictures::Draw(painter, m_picture, rect(), palette().color(QPalette::WindowText));
    DrawFocus(painter, rect());
}
