#include "platform/freetype/FreeTypeMeasures.h"

#include "platform/freetype/TextLayout.h"

namespace corvane {
namespace {

char32_t CharacterOf(FontId font, uint8_t code) {
    return IsMusicFont(FontName(font)) ? kGlyphBase + code : code;
}

}  // namespace

EmBox FreeTypeMeasures::GlyphBox(FontId font, uint8_t style, uint8_t code) {
    FontFace& face = FaceOf(font, style);
    const uint32_t glyph = face.GlyphOf(CharacterOf(font, code));
    return glyph == 0 ? EmBox{} : face.Box(glyph);
}

double FreeTypeMeasures::GlyphAdvance(FontId font, uint8_t style, uint8_t code) {
    FontFace& face = FaceOf(font, style);
    const uint32_t glyph = face.GlyphOf(CharacterOf(font, code));
    return glyph == 0 ? 0 : face.Advance(glyph);
}

TextExtent FreeTypeMeasures::MeasureText(FontId font, uint8_t style, std::string_view text) {
    FontFace& face = FaceOf(font, style);
    return {LayText(font, style, text).width, face.Ascent(), face.Descent()};
}

void InstallFreeTypeMeasures() {
    static FreeTypeMeasures measures;
    SetGlyphMeasures(&measures);
}

}  // namespace corvane
