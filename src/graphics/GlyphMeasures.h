// The one source of glyph and text sizes. Every port measures through it, whatever it draws on, so a layout
// comes out the same to the unit on screen, on paper and without any surface. Outlines are unhinted and scale
// linearly: all figures are for a font size of 1 (one em), y downward, measured from the baseline at the pen
// position.
#pragma once

#include <cstdint>
#include <string_view>

#include "graphics/FontName.h"

namespace corvane {

struct EmBox {
    double left = 0, top = 0, right = 0, bottom = 0;
};

struct TextExtent {
    double width = 0, ascent = 0, descent = 0;  // ascent above, descent below the baseline, both positive
};

class GlyphMeasures {
public:
    virtual ~GlyphMeasures() = default;

    // The ink of a glyph; all zero where it has none or the font lacks it. A music font's code is read as
    // U+F000 + code, any other font's as the character itself. `style` is the sum of style bits.
    virtual EmBox GlyphBox(FontId font, uint8_t style, uint8_t code) = 0;

    // How far the pen moves past the glyph.
    virtual double GlyphAdvance(FontId font, uint8_t style, uint8_t code) = 0;

    // Of UTF-8 text on one line. Ascent and descent are the font's own, so an empty text has a height too.
    virtual TextExtent MeasureText(FontId font, uint8_t style, std::string_view text) = 0;
};

// Installed once by whoever starts the program, before any port measures; kept by the caller. Null takes it
// away.
void SetGlyphMeasures(GlyphMeasures* measures);

// Whether any are installed.
bool HasGlyphMeasures();

// What is installed; none is our own mistake and ends the program.
GlyphMeasures& TheGlyphMeasures();

}  // namespace corvane
