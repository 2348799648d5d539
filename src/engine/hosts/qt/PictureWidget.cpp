#include "engine/hosts/qt/PictureWidget.h"
#include "engine/hosts/qt/Compositor.h"
#include <QBitmap>
#include <QPaintEvent>
#include <QPainter>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

namespace engine {
namespace {

constexpr Qt::WindowFlags PictureFlags = Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                                         Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;

// One bit per unit of Qt: set where a pixel of the picture is to be seen. Rows of QImage::Format_MonoLSB.
QImage MaskOf(const QImage& image, const QtPlace& place, bool softEdges)
{
    QImage mask(place.geometry.size(), QImage::Format_MonoLSB);
    mask.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    mask.fill(0);
    const int least = softEdges ? 1 : 128;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        const int unitY = std::min(static_cast<int>((place.offset.y() + y) / place.ratio), mask.height() - 1);
        uchar* bits = mask.scanLine(unitY);
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(row[x]) < least)
                continue;
            const int unitX = std::min(static_cast<int>((place.offset.x() + x) / place.ratio), mask.width() - 1);
            bits[unitX >> 3] = static_cast<uchar>(bits[unitX >> 3] | (1U << (unitX & 7)));
        }
    }
    return mask;
}

}

CPictureWidget::CPictureWidget(Qt::WindowFlags moreFlags, const CScreenWatch& screens)
    : QWidget(nullptr, PictureFlags | moreFlags)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_AlwaysStackOnTop, false);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::NoFocus);
    winId();  // The window exists from now on: its mask is set past the widget, see ApplyMask.
    connect(&screens, &CScreenWatch::Changed, this, [this] { PutPicture(m_pixels, m_image); });
}

void CPictureWidget::PutPicture(const Rect& place, const QImage& image)
{
    m_image = image;
    m_pixels = place;
    m_place = PlaceForQt(place);
    if (geometry() != m_place.geometry)
        setGeometry(m_place.geometry);
    if (isVisible())
        repaint();
    ApplyMask();
}

void CPictureWidget::ShowOnTop()
{
    if (const QWindow* owner = windowHandle()->transientParent(); owner && !owner->isVisible())
        windowHandle()->setTransientParent(nullptr);
    show();
    raise();
}

bool CPictureWidget::SoftEdgesChanged(bool askNow)
{
    const bool before = std::exchange(m_softEdges, CompositorRuns(askNow));
    return before != m_softEdges;
}

// Painted in device pixels, whatever the ratio is. The old picture must not shine through.
void CPictureWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(event->rect(), Qt::transparent);
    painter.scale(1 / m_place.ratio, 1 / m_place.ratio);
    painter.drawImage(m_place.offset, m_image);
}

// The window's mask, not the widget's: Qt would clip the painting of the next picture to the widget's old mask.
void CPictureWidget::ApplyMask()
{
    QImage mask = MaskOf(m_image, m_place, m_softEdges);
    if (mask == m_mask)
        return;
    m_mask = std::move(mask);
    windowHandle()->setMask(MaskRegion());
}

// An empty region would mean "no mask"; a region beside the window leaves nothing of it.
QRegion CPictureWidget::MaskRegion() const
{
    const QRegion region(QBitmap::fromImage(m_mask));
    return region.isEmpty() ? QRegion(-2, -2, 1, 1) : region;
}

}
