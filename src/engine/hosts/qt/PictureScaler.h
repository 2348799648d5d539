#pragma once
#include "engine/Host.h"
#include <QImage>
#include <QSize>

namespace engine {

// A character's picture in another size, premultiplied. In its own size it stays as it is, pixel for pixel. Enlarged, its
// edges are followed by corner-aware doubling and then smoothed, so that they are neither stairs nor blur. With
// `softEdges` the outline is smoothed too; without, every pixel is opaque or transparent. A null image for a picture
// whose pixels do not fit its size.
QImage ScalePicture(const Bitmap& picture, const QSize& size, bool softEdges);

}
