#pragma once
#include "engine/Host.h"
#include "engine/hosts/qt/PictureWidget.h"

namespace engine {

// A balloon as an image of its window's size, premultiplied. Without `softEdges` the outline has no half-transparent
// pixels.
QImage DrawBalloon(const BalloonPicture& picture, bool softEdges);

class CBalloonWindow final : public IBalloonWindow {
public:
    explicit CBalloonWindow(const CScreenWatch& screens);
    void Show(const BalloonPicture& picture) override;
    void Hide() override;

private:
    CPictureWidget m_widget;
};

}
