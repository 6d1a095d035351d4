// Where the glyphs of a line of text stand. Painting and measuring both ask here, so they agree.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "graphics/FontName.h"
#include "platform/freetype/FontFace.h"

namespace corvane {

struct PlacedGlyph {
    FontFace* face;
    uint32_t glyph;
    double x;  // of its pen, in ems from the start of the text
};

struct TextLayout {
    std::vector<PlacedGlyph> glyphs;
    double width = 0;  // ems
};

// One line from left to right, kerned. A character that the font lacks comes from another font of the system.
// Bytes that are no UTF-8 are read as Latin-1; control characters take no place.
TextLayout LayText(FontId font, uint8_t style, std::string_view utf8);

// The face of a font, cheap to ask for.
FontFace& FaceOf(FontId font, uint8_t style);

// Takes the first character off; never called on an empty text.
char32_t TakeCharacter(std::string_view& utf8);

}  // namespace corvane
