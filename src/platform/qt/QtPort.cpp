#include "platform/qt/QtPort.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <cmath>

#include "base/Rounding.h"
#include "platform/freetype/TextLayout.h"
#include "platform/qt/GlyphShapes.h"

namespace corvane {
namespace {

class ImagePixmap : public Pixmap {
public:
    ImagePixmap(const Rect& scaled, QImage pixels) : Pixmap(scaled), image(std::move(pixels)) {}
    QImage image;
};

// The nearest whole pixel, halves downward on the page: unlike Round, the same whatever whole number of
// pixels the picture is shifted by, also across 0, so that pieces of a page join.
int NearestPixel(double place) { return Truncate(std::floor(place + 0.5)); }

bool IsWhole(double value) { return std::abs(value - std::round(value)) < 1e-6; }

// Whether a unit of the painter is one pixel and starts at a pixel's edge.
bool StandsOnPixels(const QPainter& painter) {
    const QTransform t = painter.deviceTransform();
    return std::abs(t.m11() - 1) < 1e-9 && std::abs(t.m22() - 1) < 1e-9 && std::abs(t.m12()) < 1e-9 &&
           std::abs(t.m21()) < 1e-9 && IsWhole(t.dx()) && IsWhole(t.dy());
}

QRegion ToQt(const WRegion& region) {
    std::vector<QRect> rects;
    rects.reserve(region.Rects().size());
    for (const Rect& r : region.Rects()) rects.emplace_back(r.left, r.top, r.Width(), r.Height());
    QRegion result;
    result.setRects(rects.data(), static_cast<int>(rects.size()));
    return result;
}

QRectF ToQt(const DeviceRect& r) { return QRectF(r.left, r.top, r.Width(), r.Height()); }

// Smoothing would leave the colour a shade short at places, and other ones where the picture starts
// elsewhere.
void FillWholePixels(QPainter& painter, const QRect& rect, const QColor& colour) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(rect, colour);
    painter.setRenderHint(QPainter::Antialiasing);
}

QPolygonF ToQt(const std::vector<DevicePoint>& points) {
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (DevicePoint p : points) polygon.append(QPointF(p.x, p.y));
    return polygon;
}

// The whole pixels nearest to a span, at least one.
QRect WholePixels(double left, double top, double right, double bottom) {
    const int x = NearestPixel(left), y = NearestPixel(top);
    return QRect(x, y, std::max(1, NearestPixel(right) - x), std::max(1, NearestPixel(bottom) - y));
}

}  // namespace

QtPort::QtPort(QPainter& painter, int32_t dpi, int32_t unitsPerInch)
    : GraphicPort(unitsPerInch, unitsPerInch, dpi, dpi), _painter(painter) {
    _painter.save();
    const double ratio = _painter.device()->devicePixelRatioF();
    if (ratio != 1) _painter.scale(1 / ratio, 1 / ratio);
    _painter.setRenderHint(QPainter::Antialiasing);
    const QPaintEngine::Type engine = _painter.paintEngine()->type();
    _surface = engine == QPaintEngine::Pdf                                  ? Surface::Embedding
               : engine == QPaintEngine::Raster && StandsOnPixels(_painter) ? Surface::Pixels
                                                                            : Surface::Outlines;
    _hasOuterClip = _painter.hasClipping();
    if (_hasOuterClip) _outerClip = _painter.clipRegion();
}

QtPort::~QtPort() {
    PaintGathered();
    _painter.restore();
}

void QtPort::PaintGathered() {
    if (_gathered.IsEmpty()) return;
    _gathered.Paint(_painter);
    _fillIsSet = false;
}

void QtPort::MakeWayFor(Colour colour) {
    if (_gathered.InkColour() != colour) PaintGathered();
}

void QtPort::UseFill(Colour colour) {
    MakeWayFor(colour);
    if (_fillIsSet && _fillInUse == colour) return;
    _painter.setPen(Qt::NoPen);
    _painter.setBrush(corvane::ToQt(colour));
    _fillInUse = colour;
    _fillIsSet = true;
}

void QtPort::UsePen(double width) {
    MakeWayFor(Ink());
    QPen pen(corvane::ToQt(Ink()), width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (Pattern() == PenPattern::Dotted) pen.setDashPattern({1, 2});
    _painter.setPen(pen);
    _painter.setBrush(Qt::NoBrush);
    _fillIsSet = false;
}

// ---- Glyphs

void QtPort::DoGlyph(char32_t character, DevicePoint baseline, double size) {
    FontFace& face = FaceOf(Font(), FontStyle());
    const PlacedGlyph glyph{&face, face.GlyphOf(character), 0};
    if (glyph.glyph != 0) DrawGlyphs(&glyph, 1, baseline, size);
}

void QtPort::DoText(std::string_view text, DevicePoint baseline, double size) {
    const TextLayout layout = LayText(Font(), FontStyle(), text);
    const std::vector<PlacedGlyph>& all = layout.glyphs;
    for (size_t i = 0, end; i < all.size(); i = end) {
        for (end = i + 1; end < all.size() && all[end].face == all[i].face;) ++end;
        DrawGlyphs(&all[i], end - i, baseline, size);
    }
}

void QtPort::DrawGlyphs(const PlacedGlyph* glyphs, size_t count, DevicePoint baseline, double size) {
    const bool embeds = _surface == Surface::Embedding && RunFont(*glyphs->face).isValid();
    if (embeds) MakeWayFor(Ink());
    for (size_t i = 0; i < count; ++i) {
        const DevicePoint pen{baseline.x + glyphs[i].x * size, baseline.y};
        if (embeds)
            _gathered.AddGlyph(Ink(), *glyphs[i].face, glyphs[i].glyph, pen, size);
        else
            DrawPictureOrPath(*glyphs[i].face, glyphs[i].glyph, pen, size);
    }
}

void QtPort::DrawPictureOrPath(FontFace& face, uint32_t glyph, DevicePoint pen, double size) {
    QPoint pixel;
    const GlyphPicture* picture =
        _surface == Surface::Pixels ? PictureOf(face, glyph, size, Ink(), pen, pixel) : nullptr;
    if (!picture) return DrawPath(face, glyph, pen, size);
    _painter.drawImage(pixel + picture->offset, picture->image);
}

void QtPort::DrawPath(FontFace& face, uint32_t glyph, DevicePoint pen, double size) {
    UseFill(Ink());
    _painter.drawPath(QTransform(size, 0, 0, size, pen.x, pen.y).map(GlyphPath(face, glyph)));
}

// ---- Lines and areas

// A level or upright solid line as whole pixels; false for any other.
bool QtPort::SnapLine(DevicePoint from, DevicePoint to, double width) {
    const bool level = from.y == to.y, upright = from.x == to.x;
    if (_surface != Surface::Pixels || Pattern() != PenPattern::Solid || level == upright) return false;
    const int thick = std::max(1, Round(width));
    QRect ink;
    if (level) {
        ink = WholePixels(std::min(from.x, to.x), 0, std::max(from.x, to.x), 0);
        ink = QRect(ink.left(), NearestPixel(from.y - 0.5 * thick), ink.width(), thick);
    } else {
        ink = WholePixels(0, std::min(from.y, to.y), 0, std::max(from.y, to.y));
        ink = QRect(NearestPixel(from.x - 0.5 * thick), ink.top(), thick, ink.height());
    }
    FillWholePixels(_painter, ink, corvane::ToQt(Ink()));
    return true;
}

// A level or upright solid line in a file as the rectangle that it is; false for any other.
bool QtPort::GatherLine(DevicePoint from, DevicePoint to, double width) {
    const bool level = from.y == to.y, upright = from.x == to.x;
    if (_surface != Surface::Embedding || Pattern() != PenPattern::Solid || level == upright) return false;
    const double half = 0.5 * width, dx = upright ? half : 0, dy = level ? half : 0;
    MakeWayFor(Ink());
    _gathered.AddRect(
        Ink(), QRectF(QPointF(from.x, from.y), QPointF(to.x, to.y)).normalized().adjusted(-dx, -dy, dx, dy));
    return true;
}

void QtPort::DoLine(DevicePoint from, DevicePoint to, double width) {
    if (SnapLine(from, to, width) || GatherLine(from, to, width)) return;
    if (Pattern() == PenPattern::Dotted) {
        UsePen(width);
        _painter.drawLine(QPointF(from.x, from.y), QPointF(to.x, to.y));
        return;
    }
    UseFill(Ink());
    _painter.drawPolygon(ToQt(SquareEndedLine(from, to, width)), Qt::WindingFill);
}

void QtPort::DoBezier(const std::vector<DevicePoint>& points, double width) {
    const QPolygonF p = ToQt(points);
    QPainterPath path(p[0]);
    for (qsizetype i = 1; i + 2 < p.size(); i += 3) path.cubicTo(p[i], p[i + 1], p[i + 2]);
    UsePen(width);
    _painter.drawPath(path);
}

void QtPort::DoPolygon(const std::vector<DevicePoint>& points) {
    UseFill(Fill());
    _painter.drawPolygon(ToQt(points), Qt::WindingFill);
}

void QtPort::DoFrameRect(const DeviceRect& rect, DevicePoint radii, double width) {
    QRectF frame = ToQt(rect).normalized();
    if (_surface == Surface::Pixels) {
        width = std::max(1, Round(width));
        const double middle = Round(width) % 2 ? 0.5 : 0;
        frame = QRectF(WholePixels(frame.left(), frame.top(), frame.right(), frame.bottom()))
                    .translated(middle, middle);
    }
    UsePen(width);
    if (radii.x > 0 && radii.y > 0)
        _painter.drawRoundedRect(frame, radii.x, radii.y);
    else
        _painter.drawRect(frame);
}

void QtPort::DoFillRect(const DeviceRect& rect) {
    const QRectF area = ToQt(rect).normalized();
    if (area.isEmpty()) return;
    if (_surface == Surface::Embedding) {
        MakeWayFor(Fill());
        _gathered.AddRect(Fill(), area);
    } else if (_surface == Surface::Pixels) {
        FillWholePixels(_painter, WholePixels(area.left(), area.top(), area.right(), area.bottom()),
                        corvane::ToQt(Fill()));
    } else {
        _painter.fillRect(area, corvane::ToQt(Fill()));
    }
}

void QtPort::DoFrameEllipse(const DeviceRect& bounds, double width) {
    UsePen(width);
    _painter.drawEllipse(ToQt(bounds).normalized());
}

void QtPort::DoFillEllipse(const DeviceRect& bounds) {
    UseFill(Fill());
    _painter.drawEllipse(ToQt(bounds).normalized());
}

// ---- Regions and pixels

void QtPort::DoPaintRegion(const WRegion& deviceRegion, bool invert) {
    if (invert && _surface != Surface::Pixels) return;
    PaintGathered();
    _painter.save();
    if (invert) _painter.setCompositionMode(QPainter::CompositionMode_Difference);
    const QColor colour = corvane::ToQt(invert ? kWhite : Fill());
    for (const Rect& r : deviceRegion.Rects())
        FillWholePixels(_painter, QRect(r.left, r.top, r.Width(), r.Height()), colour);
    _painter.restore();
}

void QtPort::DoSetClip(const WRegion* deviceRegion) {
    PaintGathered();
    if (!deviceRegion && !_hasOuterClip) return _painter.setClipping(false);
    QRegion clip = deviceRegion ? ToQt(*deviceRegion) : _outerClip;
    if (deviceRegion && _hasOuterClip) clip &= _outerClip;
    _painter.setClipRegion(clip);
}

// The image under the painter and where the port's 0, 0 lies in it; null on any other device.
QImage* QtPort::Image(Point& shift) const {
    if (_surface != Surface::Pixels || _painter.device()->devType() != QInternal::Image) return nullptr;
    const QTransform t = _painter.deviceTransform();
    shift = {Round(t.dx()), Round(t.dy())};
    return static_cast<QImage*>(_painter.device());
}

std::unique_ptr<Pixmap> QtPort::DoSavePixmap(const Rect& r) {
    Point shift;
    const QImage* image = Image(shift);
    if (!image || r.IsEmpty()) return nullptr;
    QImage pixels = image->copy(QRect(r.left + shift.x, r.top + shift.y, r.Width(), r.Height()));
    pixels.setDevicePixelRatio(1);
    return std::make_unique<ImagePixmap>(r, std::move(pixels));
}

void QtPort::DoRestorePixmap(const Pixmap& pixmap) {
    const auto* saved = dynamic_cast<const ImagePixmap*>(&pixmap);
    if (!saved) return;
    const QPainter::CompositionMode mode = _painter.compositionMode();
    _painter.setCompositionMode(QPainter::CompositionMode_Source);
    _painter.drawImage(QPoint(saved->ScaledRect().left, saved->ScaledRect().top), saved->image);
    _painter.setCompositionMode(mode);
}

}  // namespace corvane
