#include "platform/freetype/TextLayout.h"

namespace corvane {
namespace {

// Bytes of the sequence that a lead byte opens and its share of the character; 0 for none.
int LengthOf(uint8_t lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xc2 && lead < 0xe0) return 2;
    if (lead >= 0xe0 && lead < 0xf0) return 3;
    if (lead >= 0xf0 && lead < 0xf5) return 4;
    return 0;
}

constexpr char32_t kLeastOfLength[] = {0, 0, 0x80, 0x800, 0x10000};

}  // namespace

char32_t TakeCharacter(std::string_view& utf8) {
    const uint8_t lead = static_cast<uint8_t>(utf8[0]);
    const int length = LengthOf(lead);
    char32_t character = length > 1 ? lead & (0x7f >> length) : lead;
    bool good = length > 0 && utf8.size() >= static_cast<size_t>(length);
    for (int i = 1; good && i < length; ++i) {
        const uint8_t byte = static_cast<uint8_t>(utf8[static_cast<size_t>(i)]);
        good = (byte & 0xc0) == 0x80;
        character = character << 6 | (byte & 0x3f);
    }
    good = good && character >= kLeastOfLength[length] && character <= 0x10ffff;
    utf8.remove_prefix(good ? static_cast<size_t>(length) : 1);
    return good ? character : lead;
}

FontFace& FaceOf(FontId font, uint8_t style) {
    static std::vector<FontFace*> known;
    const size_t place = static_cast<size_t>(font) * 4 + (style & 3);
    if (place >= known.size()) known.resize(place + 1);
    if (!known[place]) known[place] = &FaceOf(FontFileOf(FontName(font), style & 3));
    return *known[place];
}

TextLayout LayText(FontId font, uint8_t style, std::string_view utf8) {
    TextLayout layout;
    FontFace& own = FaceOf(font, style);
    const PlacedGlyph* last = nullptr;
    while (!utf8.empty()) {
        const char32_t character = TakeCharacter(utf8);
        if (character < U' ' || character == 0x7f) continue;
        FontFace* face = &own;
        if (own.GlyphOf(character) == 0) {
            FontFace& other = FaceOf(FontFileFor(character, FontName(font), style));
            if (other.GlyphOf(character) != 0) face = &other;
        }
        const uint32_t glyph = face->GlyphOf(character);
        if (last && last->face == face) layout.width += face->Kerning(last->glyph, glyph);
        layout.glyphs.push_back({face, glyph, layout.width});
        layout.width += face->Advance(glyph);
        last = &layout.glyphs.back();
    }
    return layout;
}

}  // namespace corvane
