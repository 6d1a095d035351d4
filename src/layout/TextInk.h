// Texts where they are drawn: one or several lines in one font, measured and painted by the same rules.
#pragma once

#include <string_view>

#include "base/Geometry.h"
#include "graphics/GraphicPort.h"
#include "model/Texts.h"

namespace corvane {

enum class TextAlign { Left, Centre, Right };

// Where a text stands: its first line's baseline, and which part of each line is at x.
struct TextPlace {
    Point at;
    TextAlign align = TextAlign::Left;
};

// From a line to the next, page units.
int32_t LineStep(const TextLook& look);
// The widest line.
int32_t WidthOfText(std::string_view text, const TextLook& look);
// From the ascent of the first line to the descent of the last.
Rect InkOfText(std::string_view text, const TextLook& look, const TextPlace& place);
// Leaves the port's colour and pen as they are. The list of installed fonts is obeyed.
void PaintText(GraphicPort& port, std::string_view text, const TextLook& look, const TextPlace& place);

}  // namespace corvane
