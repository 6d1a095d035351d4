// Which glyphs of the two music fonts each fixed symbol name stands for, and the names by which palettes call
// symbols. Constant data.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// One glyph of a symbol. Size and offsets are hundredths of a line distance.
struct GlyphPart {
    uint8_t code;
    int32_t size = 400;
    int32_t dx = 0, dy = 0;
    uint8_t style = 0;
    bool second = false;  // of the second music font
};

// The glyphs of a name of the table or of a grace form ("Grace" or "grace" before a head, flag, sign or
// fingering), in drawing order; empty for any other name. Flag names hold the single byte 161.
std::vector<GlyphPart> GlyphsOf(std::string_view name);

// The symbol name for a palette's descriptor ("_Accento_", "_Diesis_(") and for the long name of an
// accidental
// ("Diesis", "GraceBemolleP"); any other name is returned as it is.
std::string CanonicalSymbolName(std::string_view name);

// The letter of an accidental's symbol and its glyph at full size.
struct AccidentalGlyph {
    char letter;
    const char* longName;
    uint8_t code;
    bool second;
};
std::span<const AccidentalGlyph> AccidentalGlyphs();

// All names of the table and all descriptors; for contact sheets and tests.
std::vector<std::string> FixedSymbolNames();
std::vector<std::string> PaletteDescriptors();

}  // namespace corvane
