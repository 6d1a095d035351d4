// How page units become pixels of the screen, with the roundings of the ports that paint there.
#pragma once

#include <optional>

#include "base/Rounding.h"
#include "graphics/MemoryPort.h"

namespace corvane {

// A pixel is a true pixel of the screen. Qt's own, of which a fine screen packs several true ones into each,
// are points here.
class ViewScale {
public:
    // At true size on a screen of 96 dots to the inch.
    ViewScale() { _port.emplace(); }

    // Percent, pixels to the inch, pixels to the point. False if nothing has changed.
    bool Set(int16_t zoom, int32_t dpi, double ratio) {
        if (_port && zoom == Zoom() && dpi == Dpi() && ratio == _ratio) return false;
        _port.emplace(GraphicPort::kUnitsPerInch, dpi);
        _port->SetZoomRatio(zoom);
        _ratio = ratio;
        return true;
    }
    int16_t Zoom() const { return _port->ZoomRatio(); }
    int32_t Dpi() const { return _port->Dpi(); }
    double Ratio() const { return _ratio; }

    int32_t Pixels(int32_t units) const { return _port->Scale(units); }
    Rect Pixels(const Rect& units) const { return _port->ScaleRect(units); }
    double PixelsPerUnit() const { return _port->ScaleExactly(1); }
    int32_t Units(int32_t pixels) const { return _port->Unscale(pixels); }
    int32_t PixelsOf(double points) const { return Round(points * _ratio); }

private:
    std::optional<MemoryPort> _port;
    double _ratio = 1;
};

}  // namespace corvane
