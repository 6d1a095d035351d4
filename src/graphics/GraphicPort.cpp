// What every port shares but drawing: units, fonts, measuring, regions and clip.
#include "graphics/GraphicPort.h"

#include "base/Assert.h"
#include "base/Rounding.h"
#include "graphics/GlyphMeasures.h"

namespace corvane {
namespace {

Rect RoundedBox(const EmBox& box, double size) {
    return {Round(box.left * size), Round(box.top * size), Round(box.right * size), Round(box.bottom * size)};
}

}  // namespace

GraphicPort::GraphicPort(int32_t unitsPerInchH, int32_t unitsPerInchV, int32_t dpiH, int32_t dpiV)
    : _unitsPerInchH(unitsPerInchH), _unitsPerInchV(unitsPerInchV), _dpiH(dpiH), _dpiV(dpiV) {}

GraphicPort::~GraphicPort() = default;

double GraphicPort::ScaleExactly(double units) const {
    double scaled = _zoomRatio * units * _dpiH;
    if (_unitsPerInchH != 0) scaled /= _unitsPerInchH;
    return scaled * 0.01;
}

int32_t GraphicPort::Scale(int32_t units) const { return Round(ScaleExactly(units)); }

int32_t GraphicPort::Unscale(int32_t pixels) const {
    double units = double{100} * pixels * _unitsPerInchH;
    if (_dpiH != 0 && _zoomRatio != 0) units /= double{1} * _dpiH * _zoomRatio;
    return Round(units);
}

Rect GraphicPort::ScaleRect(const Rect& r) const {
    return {Scale(r.left), Scale(r.top), Scale(r.right), Scale(r.bottom)};
}

Point GraphicPort::ToDevice(Point p) const {
    return Point{Scale(p.x - _origin.x), Scale(p.y - _origin.y)} + _deviceOffset;
}

Point GraphicPort::ToLogical(Point device) const {
    const Point p = device - _deviceOffset;
    return Point{Unscale(p.x), Unscale(p.y)} + _origin;
}

Rect GraphicPort::ToDevice(const Rect& r) const {
    const Point topLeft = ToDevice(Point{r.left, r.top}), bottomRight = ToDevice(Point{r.right, r.bottom});
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

void GraphicPort::SetFontStyle(uint8_t style) {
    _fontStyle = style <= (kBoldStyle | kItalicStyle) ? style : uint8_t{kPlainStyle};
}

int32_t GraphicPort::DeviceFontSize() const { return std::max(1, Scale(_fontSize)); }

Rect GraphicPort::CharRect(uint8_t code) const {
    return RoundedBox(TheGlyphMeasures().GlyphBox(_font, _fontStyle, code), std::max(1, _fontSize));
}

int32_t GraphicPort::CharAdvance(uint8_t code) const {
    return Round(TheGlyphMeasures().GlyphAdvance(_font, _fontStyle, code) * std::max(1, _fontSize));
}

int32_t GraphicPort::StringWidth(std::string_view text) const { return StringRect(text).right; }

Rect GraphicPort::StringRect(std::string_view text) const {
    const TextExtent extent = TheGlyphMeasures().MeasureText(_font, _fontStyle, text);
    return RoundedBox({0, -extent.ascent, extent.width, extent.descent}, std::max(1, _fontSize));
}

Rect GraphicPort::GlyphRect(uint8_t code) const {
    return RoundedBox(TheGlyphMeasures().GlyphBox(_font, _fontStyle, code), DeviceFontSize());
}

// ---- Regions and clip

void GraphicPort::AddRectToRegion(WRegion& region, const Rect& rect) const {
    region.AddRect(ScaleRect(rect));
}

void GraphicPort::AddEllipseToRegion(WRegion& region, const Rect& bounds) const {
    region.AddEllipse(ScaleRect(bounds));
}

void GraphicPort::SubtractEllipseFromRegion(WRegion& region, const Rect& bounds) const {
    region.SubtractEllipse(ScaleRect(bounds));
}

void GraphicPort::AddPolygonToRegion(WRegion& region, const std::vector<Point>& points) const {
    std::vector<Point> scaled;
    scaled.reserve(points.size());
    for (Point p : points) scaled.push_back({Scale(p.x), Scale(p.y)});
    region.AddPolygon(scaled);
}

void GraphicPort::OffsetRegion(WRegion& region, int32_t dx, int32_t dy) const {
    region.Offset(Scale(dx), Scale(dy));
}

bool GraphicPort::PointInRegion(const WRegion& region, Point p) const {
    return region.PointIn({Scale(p.x), Scale(p.y)});
}

bool GraphicPort::RectMeetsRegion(const WRegion& region, const Rect& rect) const {
    return region.Meets(ScaleRect(rect));
}

Point GraphicPort::RegionShift() const { return _deviceOffset - Point{Scale(_origin.x), Scale(_origin.y)}; }

void GraphicPort::SetClip(const WRegion& region) {
    _clip = region;
    ClipMoved();
}

WRegion GraphicPort::GetClip() const { return _clip ? *_clip : WRegion::Everything(_zoomRatio); }

void GraphicPort::ClearClip() {
    _clip.reset();
    DoSetClip(nullptr);
}

void GraphicPort::ClipMoved() {
    if (!_clip) return;
    WRegion device = *_clip;
    device.Offset(RegionShift().x, RegionShift().y);
    DoSetClip(&device);
}

}  // namespace corvane
