// A port on an image of its own: a tile, a picture to be shown later, a page to be written to a file.
#pragma once

#include <QImage>
#include <QPainter>

#include "platform/qt/QtPort.h"

namespace corvane {

// Made before the port that paints on it.
struct ImageSurface {
    explicit ImageSurface(const QSize& size);
    QImage image;
    QPainter painter;
};

// Shows a rectangle of the page, which is not empty even in pixels, and clips to it. Starts white. The page's
// point p is at Scale(p) less the corner of ScaledRect(), wherever the rectangle starts, so neighbours join
// without a seam.
class ImagePort : private ImageSurface, public QtPort {
public:
    ImagePort(const Rect& rect, int16_t zoomRatio, int32_t dpi, int32_t unitsPerInch = kUnitsPerInch);

    const Rect& ScaledRect() const { return _scaledRect; }
    // What has been painted so far; true pixels, a device pixel ratio of 1.
    const QImage& Image() const { return image; }

private:
    ImagePort(const Rect& scaledRect, int16_t zoomRatio, int32_t dpi, int32_t unitsPerInch, int);
    Rect _scaledRect;
};

}  // namespace corvane
