// The surface that engraving draws on. Its callers work in page units only; the port turns them into device
// pixels with its own resolution and zoom. Screen, image, paper, file and the memory port (MemoryPort.h) are
// ports alike.
//
// What all surfaces share (conversions, fonts, remapped codes, side letters, square line ends, paths, clip,
// trace) is done here, once; a surface implements only the protected Do... operations. Input is no concern of
// a port: presses, keys and moves arrive as events at the view. Text is UTF-8, so there is no character set
// to choose. One thread at a time; a port belongs to the drawing pass that made it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Geometry.h"
#include "graphics/Device.h"
#include "graphics/FontName.h"
#include "graphics/Path.h"
#include "graphics/Region.h"

namespace corvane {

// A colour word: red in the low byte, then green, then blue.
using Colour = uint32_t;
constexpr Colour MakeColour(uint8_t red, uint8_t green, uint8_t blue) {
    return Colour{red} | Colour{green} << 8 | Colour{blue} << 16;
}
inline constexpr Colour kBlack = 0, kWhite = 0xffffff;

// What fills are done with while it is set.
struct Brush {
    Colour colour = kBlack;
};

enum class PenPattern : uint8_t { Solid = 1, Dotted = 2 };

// Pixels put by, to be put back where they were taken.
class Pixmap {
public:
    explicit Pixmap(const Rect& scaled) : _scaled(scaled) {}
    virtual ~Pixmap() = default;
    const Rect& ScaledRect() const { return _scaled; }  // device pixels

private:
    Rect _scaled;
};

class GraphicPort {
public:
    static constexpr int32_t kUnitsPerInch = 1512;
    static constexpr int16_t kTrueSizeZoom = 105;

    GraphicPort(int32_t unitsPerInchH, int32_t unitsPerInchV, int32_t dpiH, int32_t dpiV);
    virtual ~GraphicPort();
    GraphicPort(const GraphicPort&) = delete;
    GraphicPort& operator=(const GraphicPort&) = delete;

    // ---- Units. The horizontal pair of resolutions serves both axes: the scale is the same on purpose.
    int16_t ZoomRatio() const { return _zoomRatio; }  // percent
    void SetZoomRatio(int16_t percent) { _zoomRatio = percent; }
    int32_t UnitsPerInch() const { return _unitsPerInchH; }
    int32_t Dpi() const { return _dpiH; }
    int32_t Scale(int32_t units) const;     // to device pixels
    int32_t Unscale(int32_t pixels) const;  // to page units; undivided where zoom or resolution is 0
    double ScaleExactly(double units) const;
    Rect ScaleRect(const Rect& rect) const;
    // With origin and device offset.
    Point ToDevice(Point p) const;
    Point ToLogical(Point device) const;
    Rect ToDevice(const Rect& rect) const;
    // The page point shown at the device's origin, and device pixels added after scaling.
    void SetOrigin(int32_t x, int32_t y) { _origin = {x, y}, ClipMoved(); }
    Point Origin() const { return _origin; }
    void SetDeviceOffset(int32_t x, int32_t y) { _deviceOffset = {x, y}, ClipMoved(); }
    void ClearDeviceOffset() { SetDeviceOffset(0, 0); }
    Point DeviceOffset() const { return _deviceOffset; }

    // ---- Fonts. Cheap to set: nothing is looked up before something is drawn or measured.
    FontId NewFont(std::string_view name) { return FontNumber(name); }
    void SetFont(FontId font) { _font = font; }
    void SetFontName(std::string_view name) { _font = FontNumber(name); }
    void SetFontSize(int32_t units) { _fontSize = units; }  // the em; less than 1 counts as 1
    void SetFontStyle(uint8_t style);                       // 1 bold, 2 italic, 3 both, else plain
    FontId Font() const { return _font; }
    int32_t FontSize() const { return _fontSize; }
    uint8_t FontStyle() const { return _fontStyle; }
    int32_t DeviceFontSize() const;  // scaled, at least 1

    // ---- Measuring, in page units around a baseline that starts at 0, 0. Independent of zoom, resolution
    // and surface.
    Rect CharRect(uint8_t code) const;  // the glyph's ink; the code is not remapped
    int32_t CharAdvance(uint8_t code) const;
    int32_t StringWidth(std::string_view text) const;
    Rect StringRect(std::string_view text) const;  // from the font's ascent to its descent
    Rect GlyphRect(uint8_t code) const;            // as CharRect, in device pixels at the scaled font size

    // ---- Text.
    // One glyph on the baseline y. `side`: 'l' puts the ink's left edge at x, 'r' its right edge, anything
    // else the pen position. Five codes are drawn as others (RemappedCode).
    void DrawChar(uint8_t code, int32_t x, int32_t y, char side = 0);
    static uint8_t RemappedCode(uint8_t code);
    void DrawString(std::string_view text, int32_t x, int32_t y);       // starts at x
    void DrawStringRight(std::string_view text, int32_t x, int32_t y);  // ends at x

    // ---- Colour, pen and brush. Colour serves lines, text and, while no brush is set, fills.
    void SetColor(Colour colour) { _colour = colour; }
    Colour CurrentColor() const { return _colour; }
    // The pen is as wide as the larger of the two, at least a device pixel.
    void SetPenSize(int32_t width, int32_t height) { _penSize = {width, height}; }
    Point PenSize() const { return _penSize; }
    void SetPenPattern(PenPattern pattern) { _penPattern = pattern; }
    static Brush NewBrush(Colour colour) { return {colour}; }
    void SetBrush(std::optional<Brush> brush) { _brush = brush; }
    std::optional<Brush> CurrentBrush() const { return _brush; }

    // ---- Lines and areas. A stroke is centred on its geometry; lines have square ends (SquareEndedLine).
    void DrawLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2);
    // Fills what lies between the edges p1-p2 and p3-p4, neither p2 above p1 nor p4 above p3: corners p1 p2
    // p4 p3.
    void DrawThickLine(Point p1, Point p2, Point p3, Point p4);
    // A cubic from p1 to p4 with the control points p2 and p3.
    void DrawCurve(Point p1, Point p2, Point p3, Point p4);
    // Joined cubics: a start, then three points each. 1 + 3n points.
    void DrawBezier(const std::vector<Point>& points);
    void FrameRect(const Rect& rect);
    void FillRect(const Rect& rect);
    void FrameEllipse(const Rect& bounds);
    void FillEllipse(const Rect& bounds);
    void FrameRoundRect(const Rect& rect, int32_t cornerWidth, int32_t cornerHeight);
    // Closed by itself; fills what it winds around.
    void FillPolygon(const std::vector<Point>& points);

    // ---- Paths. From BeginPath to EndPath drawing calls are kept instead of drawn.
    std::unique_ptr<Path> BeginPath();
    void EndPath() { _currentPath = nullptr; }
    void DrawPath(const Path& path) { path.Replay(*this); }
    void DeletePath(std::unique_ptr<Path> path);  // not the one being recorded

    // ---- Pixels. Surfaces that cannot be read back (paper, files, memory) give null; null restores nothing.
    std::unique_ptr<Pixmap> SavePixmap(const Rect& rect);  // a rectangle that is not empty
    void RestorePixmap(const Pixmap* pixmap);

    // ---- Regions, at this port's zoom; rectangles, points and distances given here are page units.
    WRegion NewRegion() const { return WRegion(_zoomRatio); }
    void AddRectToRegion(WRegion& region, const Rect& rect) const;
    void AddEllipseToRegion(WRegion& region, const Rect& bounds) const;
    void SubtractEllipseFromRegion(WRegion& region, const Rect& bounds) const;
    void AddPolygonToRegion(WRegion& region, const std::vector<Point>& points) const;
    void OffsetRegion(WRegion& region, int32_t dx, int32_t dy) const;
    bool PointInRegion(const WRegion& region, Point p) const;
    bool RectMeetsRegion(const WRegion& region, const Rect& rect) const;
    void RescaleRegion(WRegion& region) const { region.Rescale(_zoomRatio); }
    void PaintRegion(const WRegion& region);   // with the brush, else the colour
    void InvertRegion(const WRegion& region);  // on surfaces made of pixels; elsewhere nothing

    // ---- Clip: nothing is painted outside. A new port has none.
    void SetClip(const WRegion& region);
    WRegion GetClip() const;  // everything where there is none
    void ClearClip();

    // ---- A word for the drag loop.
    int32_t DragState() const { return _dragState; }
    void SetDragState(int32_t state) { _dragState = state; }

    // ---- Trace: one line for each painting call, in page units, with the font, pen or colour it used; the
    // same lines whatever the surface. Null stops it. `lines` is kept by the caller.
    void SetTrace(std::vector<std::string>* lines) { _trace = lines; }

protected:
    // What a surface paints. All coordinates are device pixels, exact; colours come from Ink() and Fill().
    // The glyph of a character or the whole text, its pen starting at `baseline`, `size` pixels to the em.
    virtual void DoGlyph(char32_t character, DevicePoint baseline, double size) = 0;
    virtual void DoText(std::string_view text, DevicePoint baseline, double size) = 0;
    // `width` is at least 1. A solid line covers SquareEndedLine.
    virtual void DoLine(DevicePoint from, DevicePoint to, double width) = 0;
    virtual void DoBezier(const std::vector<DevicePoint>& points, double width) = 0;
    virtual void DoPolygon(const std::vector<DevicePoint>& points) = 0;
    virtual void DoFrameRect(const DeviceRect& rect, DevicePoint cornerRadii, double width) = 0;
    virtual void DoFillRect(const DeviceRect& rect) = 0;
    virtual void DoFrameEllipse(const DeviceRect& bounds, double width) = 0;
    virtual void DoFillEllipse(const DeviceRect& bounds) = 0;
    virtual void DoPaintRegion(const WRegion& deviceRegion, bool invert) = 0;
    // Null: no clip.
    virtual void DoSetClip(const WRegion* deviceRegion) = 0;
    virtual std::unique_ptr<Pixmap> DoSavePixmap(const Rect&) { return nullptr; }
    virtual void DoRestorePixmap(const Pixmap&) {}

    Colour Ink() const { return _colour; }
    Colour Fill() const { return _brush ? _brush->colour : _colour; }
    PenPattern Pattern() const { return _penPattern; }

private:
    void Trace(const char* what, const std::vector<int64_t>& numbers, const std::string& tail);
    std::string FontTail() const;
    std::string PenTail() const;
    std::string FillTail() const;
    DevicePoint Exact(Point p) const;
    DeviceRect Exact(const Rect& rect) const;
    std::vector<DevicePoint> Exact(const std::vector<Point>& points) const;
    double PenWidth() const;
    double ExactFontSize() const;
    Point RegionShift() const;
    void ClipMoved();
    void PaintRegionAs(const WRegion& region, bool invert);

    int32_t _unitsPerInchH, _unitsPerInchV, _dpiH, _dpiV;
    int16_t _zoomRatio = kTrueSizeZoom;
    Point _origin, _deviceOffset;
    Path* _currentPath = nullptr;
    int32_t _dragState = 0;

    FontId _font = 0;
    int32_t _fontSize = 0;
    uint8_t _fontStyle = kPlainStyle;
    Colour _colour = kBlack;
    std::optional<Brush> _brush;
    Point _penSize{1, 1};
    PenPattern _penPattern = PenPattern::Solid;
    std::optional<WRegion> _clip;
    std::vector<std::string>* _trace = nullptr;
};

}  // namespace corvane
