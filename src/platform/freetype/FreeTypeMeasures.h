// Glyph and text sizes from the installed font files.
#pragma once

#include "graphics/GlyphMeasures.h"

namespace corvane {

class FreeTypeMeasures : public GlyphMeasures {
public:
    EmBox GlyphBox(FontId font, uint8_t style, uint8_t code) override;
    double GlyphAdvance(FontId font, uint8_t style, uint8_t code) override;
    TextExtent MeasureText(FontId font, uint8_t style, std::string_view text) override;
};

// Makes them the measures of the whole program. Once, at its start.
void InstallFreeTypeMeasures();

}  // namespace corvane
