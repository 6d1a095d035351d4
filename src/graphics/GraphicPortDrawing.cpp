// What every port shares of drawing. Each call is kept if a path is open; else traced, converted and handed
// on.
#include "base/Assert.h"
#include "graphics/GlyphMeasures.h"
#include "graphics/GraphicPort.h"

namespace corvane {
namespace {

struct Remap {
    uint8_t from, to;
};
constexpr Remap kRemaps[] = {{0, 38}, {9, 39}, {13, 40}, {158, 40}, {47, 148}};

std::string ColourText(Colour colour) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift : {4, 0, 12, 8, 20, 16}) text += kDigits[colour >> shift & 15];
    return text;
}

std::vector<int64_t> Flat(const std::vector<Point>& points) {
    std::vector<int64_t> numbers;
    for (Point p : points) numbers.insert(numbers.end(), {p.x, p.y});
    return numbers;
}

}  // namespace

uint8_t GraphicPort::RemappedCode(uint8_t code) {
    for (const Remap& remap : kRemaps)
        if (remap.from == code) return remap.to;
    return code;
}

void GraphicPort::Trace(const char* what, const std::vector<int64_t>& numbers, const std::string& tail) {
    std::string line = what;
    for (int64_t n : numbers) line.append(" ").append(std::to_string(n));
    _trace->push_back(line.append(" ").append(tail));
}

std::string GraphicPort::FontTail() const {
    return FontName(_font) + " " + std::to_string(_fontSize) + " " + std::to_string(_fontStyle) + " " +
           ColourText(_colour);
}

std::string GraphicPort::PenTail() const {
    return "pen " + std::to_string(std::max(_penSize.x, _penSize.y)) +
           (_penPattern == PenPattern::Dotted ? " dotted " : " solid ") + ColourText(_colour);
}

std::string GraphicPort::FillTail() const { return "fill " + ColourText(Fill()); }

DevicePoint GraphicPort::Exact(Point p) const {
    return {ScaleExactly(p.x - _origin.x) + _deviceOffset.x, ScaleExactly(p.y - _origin.y) + _deviceOffset.y};
}

DeviceRect GraphicPort::Exact(const Rect& r) const {
    const DevicePoint topLeft = Exact(Point{r.left, r.top}), bottomRight = Exact(Point{r.right, r.bottom});
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

std::vector<DevicePoint> GraphicPort::Exact(const std::vector<Point>& points) const {
    std::vector<DevicePoint> exact;
    exact.reserve(points.size());
    for (Point p : points) exact.push_back(Exact(p));
    return exact;
}

double GraphicPort::PenWidth() const { return std::max(1.0, ScaleExactly(std::max(_penSize.x, _penSize.y))); }

double GraphicPort::ExactFontSize() const { return std::max(1.0, ScaleExactly(_fontSize)); }

// ---- Text

void GraphicPort::DrawChar(uint8_t code, int32_t x, int32_t y, char side) {
    if (_currentPath) return _currentPath->Add([=](GraphicPort& port) { port.DrawChar(code, x, y, side); });
    if (_trace) Trace("char", {code, x, y}, std::string(1, side ? side : '-') + " " + FontTail());
    const uint8_t drawn = RemappedCode(code);
    int32_t pen = x;
    if (side == 'l') pen -= CharRect(drawn).left;
    if (side == 'r') pen -= CharRect(drawn).right - 1;
    const char32_t base = IsMusicFont(FontName(_font)) ? kGlyphBase : 0;
    DoGlyph(base + drawn, Exact(Point{pen, y}), ExactFontSize());
}

void GraphicPort::DrawString(std::string_view text, int32_t x, int32_t y) {
    if (_currentPath)
        return _currentPath->Add(
            [=, kept = std::string(text)](GraphicPort& port) { port.DrawString(kept, x, y); });
    if (_trace) Trace("text", {x, y}, FontTail() + " " + std::string(text));
    DoText(text, Exact(Point{x, y}), ExactFontSize());
}

void GraphicPort::DrawStringRight(std::string_view text, int32_t x, int32_t y) {
    DrawString(text, x - StringWidth(text), y);
}

// ---- Lines and areas

void GraphicPort::DrawLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    if (_currentPath) return _currentPath->Add([=](GraphicPort& port) { port.DrawLine(x1, y1, x2, y2); });
    if (_trace) Trace("line", {x1, y1, x2, y2}, PenTail());
    DoLine(Exact(Point{x1, y1}), Exact(Point{x2, y2}), PenWidth());
}

void GraphicPort::DrawThickLine(Point p1, Point p2, Point p3, Point p4) {
    CORVANE_ASSERT_AS(p1.y <= p2.y && p3.y <= p4.y, "p1.v<=p2.v");
    FillPolygon({p1, p3, p4, p2});
}

void GraphicPort::DrawCurve(Point p1, Point p2, Point p3, Point p4) { DrawBezier({p1, p2, p3, p4}); }

void GraphicPort::DrawBezier(const std::vector<Point>& points) {
    CORVANE_ASSERT(points.size() >= 4 && points.size() % 3 == 1);
    if (_currentPath) return _currentPath->Add([=](GraphicPort& port) { port.DrawBezier(points); });
    if (_trace) Trace("bezier", Flat(points), PenTail());
    DoBezier(Exact(points), PenWidth());
}

void GraphicPort::FrameRoundRect(const Rect& r, int32_t cornerWidth, int32_t cornerHeight) {
    if (_currentPath)
        return _currentPath->Add(
            [=](GraphicPort& port) { port.FrameRoundRect(r, cornerWidth, cornerHeight); });
    if (_trace) Trace("rect", {r.left, r.top, r.right, r.bottom, cornerWidth, cornerHeight}, PenTail());
    const DevicePoint radii{ScaleExactly(cornerWidth * 0.5), ScaleExactly(cornerHeight * 0.5)};
    DoFrameRect(Exact(r), radii, PenWidth());
}

void GraphicPort::FrameRect(const Rect& rect) { FrameRoundRect(rect, 0, 0); }

void GraphicPort::FillRect(const Rect& r) {
    if (_currentPath) return _currentPath->Add([=](GraphicPort& port) { port.FillRect(r); });
    if (_trace) Trace("fillrect", {r.left, r.top, r.right, r.bottom}, FillTail());
    DoFillRect(Exact(r));
}

void GraphicPort::FrameEllipse(const Rect& r) {
    if (_currentPath) return _currentPath->Add([=](GraphicPort& port) { port.FrameEllipse(r); });
    if (_trace) Trace("ellipse", {r.left, r.top, r.right, r.bottom}, PenTail());
    DoFrameEllipse(Exact(r), PenWidth());
}

void GraphicPort::FillEllipse(const Rect& r) {
    if (_currentPath) return _currentPath->Add([=](GraphicPort& port) { port.FillEllipse(r); });
    if (_trace) Trace("fillellipse", {r.left, r.top, r.right, r.bottom}, FillTail());
    DoFillEllipse(Exact(r));
}

void GraphicPort::FillPolygon(const std::vector<Point>& points) {
    CORVANE_ASSERT_AS(!points.empty(), "pvec && n");
    if (_currentPath) return _currentPath->Add([=](GraphicPort& port) { port.FillPolygon(points); });
    if (_trace) Trace("polygon", Flat(points), FillTail());
    DoPolygon(Exact(points));
}

// ---- Paths, regions and pixels

std::unique_ptr<Path> GraphicPort::BeginPath() {
    auto path = std::make_unique<Path>();
    _currentPath = path.get();
    return path;
}

void GraphicPort::DeletePath(std::unique_ptr<Path> path) {
    CORVANE_ASSERT_AS(!path || _currentPath != path.get(), "_currentPath != p");
}

void GraphicPort::PaintRegionAs(const WRegion& region, bool invert) {
    if (_trace) {
        const Rect r = region.BoundingBox();
        Trace(invert ? "invert" : "region",
              {Unscale(r.left), Unscale(r.top), Unscale(r.right), Unscale(r.bottom)}, FillTail());
    }
    WRegion device = region;
    device.Offset(RegionShift().x, RegionShift().y);
    DoPaintRegion(device, invert);
}

void GraphicPort::PaintRegion(const WRegion& region) { PaintRegionAs(region, false); }

void GraphicPort::InvertRegion(const WRegion& region) { PaintRegionAs(region, true); }

std::unique_ptr<Pixmap> GraphicPort::SavePixmap(const Rect& myRect) {
    CORVANE_ASSERT(myRect.top < myRect.bottom);
    CORVANE_ASSERT(myRect.left < myRect.right);
    return DoSavePixmap(ToDevice(myRect));
}

void GraphicPort::RestorePixmap(const Pixmap* pixmap) {
    if (pixmap) DoRestorePixmap(*pixmap);
}

}  // namespace corvane
