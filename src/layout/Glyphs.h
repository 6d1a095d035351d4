// Glyphs of the music fonts that stand for no symbol of a document: note figures in tempo marks and meters,
// digits.
#pragma once

#include <string_view>

#include "base/Geometry.h"
#include "graphics/GraphicPort.h"
#include "model/GlyphTable.h"

namespace corvane {

// A glyph with its ink's left edge at `at`, its own offsets added.
Rect InkOfGlyph(const GlyphPart& glyph, Point at, int32_t lineDistance);
void PaintGlyph(GraphicPort& port, const GlyphPart& glyph, Point at, int32_t lineDistance);

// A note as a figure: `at` is the left end of the line that its head stands on, its stem goes up.
struct NoteFigure {
    int value = 4;  // 1 to 128 or 11
    int dots = 0;
    Point at;
    int32_t lineDistance = 100;
};
Rect InkOf(const NoteFigure& figure);
void Paint(GraphicPort& port, const NoteFigure& figure);

// A number in the digits of time signatures, centred on `at`.
Rect InkOfNumber(int number, Point at, int32_t lineDistance);
void PaintNumber(GraphicPort& port, int number, Point at, int32_t lineDistance);

}  // namespace corvane
