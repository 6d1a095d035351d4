#include "shell/ItemPicture.h"

#include <algorithm>
#include <string>

#include "edit/PaletteTable.h"
#include "graphics/MemoryPort.h"
#include "model/SymbolNames.h"

namespace corvane {
namespace {

constexpr int kDotItem = 20, kAccidentalItem = 23;
constexpr int32_t kStemLength = 330, kStemWeight = 14, kDotDistance = 55;

bool IsNote(const PaletteItem& item) { return item.item < kDotItem && item.item % 2 == 1; }
bool IsRest(const PaletteItem& item) { return item.item < kDotItem && item.item % 2 == 0; }

// 0 for longer ones.
int FlagValue(const PaletteItem& item) { return item.item < 9 ? 0 : 8 << (item.item - 9) / 2; }

std::vector<GlyphPart> AccidentalGlyphsOf(const std::string& descriptor) {
    for (const AccidentalGlyph& each : AccidentalGlyphs())
        if (descriptor == "_" + std::string(each.longName) + "_")
            return {{each.code, 400, 0, 0, 0, each.second}};
    return {};
}

Rect GlyphInk(const GlyphPart& part) {
    MemoryPort port;
    port.SetFontName(part.second ? kSecondMusicFont : kMusicFont);
    port.SetFontSize(part.size);
    port.SetFontStyle(part.style);
    return port.CharRect(part.code);
}

void AddStem(ItemPicture& picture, int flag) {
    const Rect head = InkOf(picture);
    picture.stem = {head.right - kStemWeight / 2, -10, -kStemLength, kStemWeight};
    for (GlyphPart part : GlyphsOf(flag ? FlagName(flag, true, false) : "")) {
        part.dx += head.right - kStemWeight;
        part.dy -= kStemLength;
        picture.glyphs.push_back(part);
    }
}

}  // namespace

ItemPicture GhostPicture(const PaletteItem& item) {
    ItemPicture picture;
    if (item.item >= kAccidentalItem) {
        picture.glyphs = AccidentalGlyphsOf(item.descriptor);
    } else if (item.item >= kDotItem) {
        for (int i = 0; i <= item.item - kDotItem; ++i)
            for (GlyphPart part : GlyphsOf("Punto")) {
                part.dx += i * kDotDistance;
                picture.glyphs.push_back(part);
            }
    } else {
        picture.glyphs = GlyphsOf(CanonicalSymbolName(item.descriptor));
        picture.onHead = IsNote(item);
        picture.hasLine = !IsRest(item);
    }
    return picture;
}

ItemPicture WholePicture(const PaletteItem& item) {
    ItemPicture picture = GhostPicture(item);
    const bool hasStem = IsNote(item) && item.item >= 5;
    if (hasStem) AddStem(picture, FlagValue(item));
    return picture;
}

Rect InkOf(const ItemPicture& picture) {
    Rect ink;
    for (const GlyphPart& part : picture.glyphs) {
        const Rect own = GlyphInk(part);
        ink = Union(ink, own.MovedBy(part.dx - own.left, part.dy));  // the side letter 'l'
    }
    if (picture.stem)
        ink = Union(ink, {picture.stem->x - picture.stem->weight / 2, picture.stem->to,
                          picture.stem->x + picture.stem->weight / 2, picture.stem->from});
    return ink;
}

void DrawPicture(GraphicPort& port, const ItemPicture& picture, Point at, int32_t lineDistance) {
    const auto units = [&](int32_t hundredths) { return hundredths * lineDistance / 100; };
    for (const GlyphPart& part : picture.glyphs) {
        port.SetFontName(part.second ? kSecondMusicFont : kMusicFont);
        port.SetFontSize(units(part.size));
        port.SetFontStyle(part.style);
        port.DrawChar(part.code, at.x + units(part.dx), at.y + units(part.dy), 'l');
    }
    if (!picture.stem) return;
    const int32_t x = at.x + units(picture.stem->x), weight = units(picture.stem->weight);
    port.SetPenSize(weight, weight);
    port.DrawLine(x, at.y + units(picture.stem->from), x, at.y + units(picture.stem->to));
}

}  // namespace corvane
