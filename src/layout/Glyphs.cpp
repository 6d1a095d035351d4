#include "layout/Glyphs.h"

#include <string>

#include "base/Rounding.h"
#include "graphics/FontName.h"
#include "graphics/MemoryPort.h"
#include "layout/DrawFamilies.h"
#include "layout/LineWeights.h"
#include "model/SymbolNames.h"

namespace corvane {
namespace {

constexpr int32_t kStemLength = 300, kDotGap = 40, kDotStep = 70, kDigitSize = 420, kDigitStep = 100;

void UseFont(GraphicPort& port, const GlyphPart& glyph, int32_t lineDistance) {
    port.SetFontName(glyph.second ? kSecondMusicFont : kMusicFont);
    port.SetFontSize(Round(glyph.size * lineDistance / 100.0));
    port.SetFontStyle(glyph.style);
}

Point Moved(const GlyphPart& glyph, Point at, int32_t lineDistance) {
    return at + Point{glyph.dx * lineDistance / 100, glyph.dy * lineDistance / 100};
}

// What a figure is made of, each with the point of its ink's left edge.
struct PlacedGlyph {
    GlyphPart glyph;
    Point at;
};
struct FigureShape {
    std::vector<PlacedGlyph> glyphs;
    Rect stem;
};

const char* HeadName(int value) {
    switch (value) {
        case 1:
            return "Intero";
        case 2:
            return "Meta";
        case 11:
            return "DoppioIntero";
        default:
            return "Quarto";
    }
}

FigureShape ShapeOf(const NoteFigure& figure) {
    FigureShape shape;
    const int32_t distance = figure.lineDistance, weight = StemWeight(distance);
    const GlyphPart head = GlyphsOf(HeadName(figure.value)).front();
    const Point centre{figure.at.x, figure.at.y - distance / 2};
    shape.glyphs.push_back({head, centre});
    int32_t right = InkOfGlyph(head, centre, distance).right;
    const int32_t top = centre.y - kStemLength * distance / 100;
    if (figure.value != 1 && figure.value != 11)
        shape.stem = {right - weight, top, right, centre.y - distance / 6};
    if (figure.value >= 8 && figure.value != 11)
        for (const GlyphPart& flag : GlyphsOf(FlagName(figure.value, true, false))) {
            shape.glyphs.push_back({flag, {right - weight, top}});
            if (figure.dots) right = std::max(right, InkOfGlyph(flag, {right - weight, top}, distance).right);
        }
    const GlyphPart dot = GlyphsOf("Punto").front();
    for (int i = 0; i < figure.dots; ++i)
        shape.glyphs.push_back({dot, {right + (kDotGap + i * kDotStep) * distance / 100, centre.y}});
    return shape;
}

// The digits of a number from the left.
std::vector<PlacedGlyph> DigitsOf(int number, Point at, int32_t lineDistance) {
    const std::string digits = std::to_string(number);
    const int32_t step = kDigitStep * lineDistance / 100, count = static_cast<int32_t>(digits.size());
    std::vector<PlacedGlyph> placed;
    int32_t x = at.x - count * step / 2;
    for (const char digit : digits) {
        const GlyphPart glyph{static_cast<uint8_t>(digit), kDigitSize};
        const int32_t width = InkOfGlyph(glyph, {}, lineDistance).Width();
        placed.push_back({glyph, {x + (step - width) / 2, at.y}});
        x += step;
    }
    return placed;
}

Rect InkOf(const std::vector<PlacedGlyph>& glyphs, int32_t lineDistance) {
    Rect ink;
    for (const PlacedGlyph& each : glyphs) ink = Union(ink, InkOfGlyph(each.glyph, each.at, lineDistance));
    return ink;
}

void Paint(GraphicPort& port, const std::vector<PlacedGlyph>& glyphs, int32_t lineDistance) {
    for (const PlacedGlyph& each : glyphs) PaintGlyph(port, each.glyph, each.at, lineDistance);
}

}  // namespace

Rect InkOfGlyph(const GlyphPart& glyph, Point at, int32_t lineDistance) {
    MemoryPort port;
    UseFont(port, glyph, lineDistance);
    const Rect ink = port.CharRect(glyph.code);
    const Point place = Moved(glyph, at, lineDistance);
    return ink.MovedBy(place.x - ink.left, place.y);
}

void PaintGlyph(GraphicPort& port, const GlyphPart& glyph, Point at, int32_t lineDistance) {
    UseFont(port, glyph, lineDistance);
    const Point place = Moved(glyph, at, lineDistance);
    port.DrawChar(glyph.code, place.x, place.y, 'l');
}

Rect InkOf(const NoteFigure& figure) {
    const FigureShape shape = ShapeOf(figure);
    return Union(InkOf(shape.glyphs, figure.lineDistance), shape.stem);
}

void Paint(GraphicPort& port, const NoteFigure& figure) {
    const FigureShape shape = ShapeOf(figure);
    Paint(port, shape.glyphs, figure.lineDistance);
    if (!shape.stem.IsEmpty()) {
        const PenKept kept(port);
        PaintUpright(port, shape.stem.left, shape.stem.top, shape.stem.bottom, shape.stem.Width());
    }
}

Rect InkOfNumber(int number, Point at, int32_t lineDistance) {
    return InkOf(DigitsOf(number, at, lineDistance), lineDistance);
}

void PaintNumber(GraphicPort& port, int number, Point at, int32_t lineDistance) {
    Paint(port, DigitsOf(number, at, lineDistance), lineDistance);
}

}  // namespace corvane
