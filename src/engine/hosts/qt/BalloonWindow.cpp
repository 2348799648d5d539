#include "engine/hosts/qt/BalloonWindow.h"
#include "engine/hosts/qt/TextMeasure.h"
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>

namespace engine {
namespace {

constexpr double TailWidth = 1.2;     // At the body, in heights of the font.
constexpr double CornerRadius = 0.9;  // In heights of the font.

QColor ToQt(const Color& color) { return {color.red, color.green, color.blue}; }
QRect ToQt(const Rect& rect) { return {rect.left, rect.top, rect.width, rect.height}; }

// The outline runs through the middle of its pixels.
QRectF Outline(const Rect& body) { return QRectF(ToQt(body)).adjusted(0.5, 0.5, -0.5, -0.5); }

// Where the tail leaves the body: the point of the body's edge opposite to the tip, away from the round corners; and the
// direction of that edge.
struct TailRoot {
    QPointF at;
    QPointF along;
};

double ClampInside(double value, double first, double last, double margin)
{
    const double middle = (first + last) / 2;
    return std::clamp(value, std::min(first + margin, middle), std::max(last - margin, middle));
}

TailRoot RootOf(const QRectF& body, const QPointF& tip, double margin)
{
    const double x = ClampInside(tip.x(), body.left(), body.right(), margin);
    const double y = ClampInside(tip.y(), body.top(), body.bottom(), margin);
    if (tip.y() > body.bottom() || tip.y() < body.top())
        return {{x, tip.y() > body.bottom() ? body.bottom() : body.top()}, {1, 0}};
    return {{tip.x() > body.right() ? body.right() : body.left(), y}, {0, 1}};
}

QPainterPath Tail(const TailRoot& root, const QPointF& tip, double width)
{
    // A little inside the body, so that the two outlines join without a seam.
    const QPointF inwards = (root.at - tip) / std::max(1.0, QLineF(tip, root.at).length()) * 2;
    QPainterPath tail(root.at - root.along * width / 2 + inwards);
    tail.lineTo(tip);
    tail.lineTo(root.at + root.along * width / 2 + inwards);
    tail.closeSubpath();
    return tail;
}

// Three bubbles, smaller and smaller towards the tip.
QPainterPath Bubbles(const TailRoot& root, const QPointF& tip, double width)
{
    struct Bubble {
        double way;
        double size;
    };
    const double room = QLineF(root.at, tip).length();
    QPainterPath path;
    for (const Bubble bubble : std::array<Bubble, 3>{{{0.25, 0.32}, {0.62, 0.22}, {0.9, 0.14}}}) {
        const double radius = std::max(1.5, std::min(width, room) * bubble.size * 0.75);
        path.addEllipse(root.at + (tip - root.at) * bubble.way, radius, radius);
    }
    return path;
}

QPainterPath BalloonPath(const BalloonPicture& picture, double fontHeight)
{
    const QRectF body = Outline(picture.body);
    const double radius =
        std::min({fontHeight * CornerRadius * (picture.thought ? 1.5 : 1), body.width() / 2, body.height() / 2});
    QPainterPath path;
    path.addRoundedRect(body, radius, radius);
    if (!picture.tail)
        return path;
    const QPointF tip(picture.tail->x + 0.5, picture.tail->y + 0.5);
    if (body.contains(tip))
        return path;
    const double width = std::min(fontHeight * TailWidth, std::min(body.width(), body.height()));
    const TailRoot root = RootOf(body, tip, radius + width / 2);
    if (!picture.thought)
        return path.united(Tail(root, tip, width));
    path.addPath(Bubbles(root, tip, width * 1.3));
    return path;
}

void DrawLines(QPainter& painter, const BalloonPicture& picture, const QFont& font)
{
    painter.setFont(font);
    painter.setPen(ToQt(picture.text));
    painter.setClipRect(ToQt(picture.textArea));
    for (const BalloonPicture::Line& line : picture.lines)
        painter.drawText(QPointF(line.at.x, line.at.y), QString::fromStdString(line.text));
}

}

QImage DrawBalloon(const BalloonPicture& picture, bool softEdges)
{
    QImage image(std::clamp(picture.place.width, 1, 16000), std::clamp(picture.place.height, 1, 16000),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QFont font = PixelFont(picture.font);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, softEdges);
    painter.setPen(QPen(ToQt(picture.border), std::max(1.0, std::floor(font.pixelSize() / 16.0))));
    painter.setBrush(ToQt(picture.background));
    painter.drawPath(BalloonPath(picture, font.pixelSize()));
    DrawLines(painter, picture, font);
    return image;
}

CBalloonWindow::CBalloonWindow(const CScreenWatch& screens) : m_widget(Qt::WindowTransparentForInput, screens)
{
    m_widget.setWindowTitle(QStringLiteral("Parlune balloon"));
}

void CBalloonWindow::Show(const BalloonPicture& picture)
{
    m_widget.SoftEdgesChanged(/*askNow*/ !m_widget.isVisible());
    m_widget.PutPicture(picture.place, DrawBalloon(picture, m_widget.SoftEdges()));
    if (!m_widget.isVisible())
        m_widget.ShowOnTop();
}

void CBalloonWindow::Hide() { m_widget.hide(); }

}
