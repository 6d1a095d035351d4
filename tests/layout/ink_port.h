// A surface without pixels that keeps how far its ink reaches, in page units.
#pragma once

#include <algorithm>
#include <cmath>

#include "graphics/GlyphMeasures.h"
#include "graphics/GraphicPort.h"

namespace corvane::draw {

class InkPort : public GraphicPort {
public:
    InkPort() : GraphicPort(kUnitsPerInch, kUnitsPerInch, kUnitsPerInch, kUnitsPerInch) { SetZoomRatio(100); }
    // Rounded outward; empty where nothing was painted.
    Rect Ink() const { return _ink; }

private:
    void Add(double left, double top, double right, double bottom) {
        const auto down = [](double v) { return static_cast<int32_t>(std::floor(v)); };
        const auto up = [](double v) { return static_cast<int32_t>(std::ceil(v)); };
        _ink = Union(_ink, {down(left), down(top), up(right), up(bottom)});
    }
    void DoGlyph(char32_t c, DevicePoint p, double size) override {
        const auto code = static_cast<uint8_t>(c - kGlyphBase);
        const EmBox box = TheGlyphMeasures().GlyphBox(Font(), FontStyle(), code);
        Add(p.x + box.left * size, p.y + box.top * size, p.x + box.right * size, p.y + box.bottom * size);
    }
    void DoText(std::string_view text, DevicePoint p, double size) override {
        const TextExtent extent = TheGlyphMeasures().MeasureText(Font(), FontStyle(), text);
        Add(p.x, p.y - extent.ascent * size, p.x + extent.width * size, p.y + extent.descent * size);
    }
    void DoLine(DevicePoint from, DevicePoint to, double width) override {
        DoPolygon(SquareEndedLine(from, to, width));
    }
    void DoPolygon(const std::vector<DevicePoint>& points) override {
        for (const DevicePoint p : points) Add(p.x, p.y, p.x + 0.01, p.y + 0.01);
    }
    void DoBezier(const std::vector<DevicePoint>& points, double) override { DoPolygon(points); }
    void DoFrameRect(const DeviceRect& r, DevicePoint, double) override { DoFillRect(r); }
    void DoFillRect(const DeviceRect& r) override { Add(r.left, r.top, r.right, r.bottom); }
    void DoFrameEllipse(const DeviceRect& r, double) override { DoFillRect(r); }
    void DoFillEllipse(const DeviceRect& r) override { DoFillRect(r); }
    void DoPaintRegion(const WRegion&, bool) override {}
    void DoSetClip(const WRegion*) override {}

    Rect _ink;
};

}  // namespace corvane::draw
