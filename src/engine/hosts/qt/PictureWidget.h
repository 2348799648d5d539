#pragma once
#include "engine/Geometry.h"
#include "engine/hosts/qt/ScreenPixels.h"
#include "engine/hosts/qt/ScreenWatch.h"
#include <QImage>
#include <QWidget>

namespace engine {

// A window that is nothing but a picture: no frame, above all others, no entry in the task bar, never the focus, and only
// where the picture has pixels. The window manager leaves it alone, so that it stays where it is put.
class CPictureWidget : public QWidget {
public:
    // Stays at its place of pixels when the screens change.
    CPictureWidget(Qt::WindowFlags moreFlags, const CScreenWatch& screens);

    // The place of the picture in device pixels, and the picture in that size, premultiplied.
    void PutPicture(const Rect& place, const QImage& image);
    void ShowOnTop();
    bool SoftEdges() const { return m_softEdges; }  // Whether half-transparent pixels are worth painting.
    // Finds out whether SoftEdges has changed; then the picture has to be made again.
    bool SoftEdgesChanged(bool askNow);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void ApplyMask();
    QRegion MaskRegion() const;

    QImage m_image;
    Rect m_pixels{0, 0, 1, 1};
    QtPlace m_place;
    QImage m_mask;  // The one in force.
    bool m_softEdges = true;
};

}
