#include "platform/qt/ImagePort.h"

#include "base/Assert.h"
#include "graphics/MemoryPort.h"

namespace corvane {
namespace {

Rect Scaled(const Rect& rect, int16_t zoomRatio, int32_t dpi, int32_t unitsPerInch) {
    MemoryPort port(unitsPerInch, dpi);
    port.SetZoomRatio(zoomRatio);
    const Rect scaledRect = port.ScaleRect(rect);
    CORVANE_ASSERT(scaledRect.left < scaledRect.right);
    CORVANE_ASSERT(scaledRect.top < scaledRect.bottom);
    return scaledRect;
}

}  // namespace

ImageSurface::ImageSurface(const QSize& size) : image(size, QImage::Format_RGB32) {
    image.fill(Qt::white);
    painter.begin(&image);
}

ImagePort::ImagePort(const Rect& rect, int16_t zoomRatio, int32_t dpi, int32_t unitsPerInch)
    : ImagePort(Scaled(rect, zoomRatio, dpi, unitsPerInch), zoomRatio, dpi, unitsPerInch, 0) {}

ImagePort::ImagePort(const Rect& scaledRect, int16_t zoomRatio, int32_t dpi, int32_t unitsPerInch, int)
    : ImageSurface(QSize(scaledRect.Width(), scaledRect.Height())),
      QtPort(painter, dpi, unitsPerInch),
      _scaledRect(scaledRect) {
    SetZoomRatio(zoomRatio);
    SetDeviceOffset(-scaledRect.left, -scaledRect.top);
    SetClip(WRegion::OfRect(zoomRatio, scaledRect));
}

}  // namespace corvane
