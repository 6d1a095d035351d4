#include "shell/ItemPicture.h"

#include <algorithm>
#include <string>

#include "edit/PaletteTable.h"
#include "edit/ToolState.h"
#include "graphics/MemoryPort.h"
#include "model/SymbolMaker.h"
#include "model/SymbolNames.h"

namespace corvane {
namespace {

constexpr int kDynamics = 3;  // palette group
constexpr int kWholeRest = 4, kHalfNote = 5, kHalfRest = 6, kTieItem = 19, kDotItem = 20,
              kAccidentalItem = 23;
constexpr int32_t kStemLength = 330, kShelfOverhang = 45, kDotDistance = 55;

bool IsNote(const PaletteItem& item) { return item.item < kTieItem && item.item % 2 == 1; }
bool IsRest(const PaletteItem& item) { return item.item < kTieItem && item.item % 2 == 0; }

// 0 for longer ones.
int FlagValue(const PaletteItem& item) { return item.item < 9 ? 0 : 8 << (item.item - 9) / 2; }

std::vector<GlyphPart> AccidentalGlyphsOf(const std::string& descriptor) {
    for (const AccidentalGlyph& each : AccidentalGlyphs())
        if (descriptor == "_" + std::string(each.longName) + "_")
            return {{each.code, 400, 0, 0, 0, each.second}};
    return {};
}

// Of an item of the other palettes; none for a text.
std::vector<GlyphPart> SignGlyphs(const PaletteItem& item) {
    const std::string name = CanonicalSymbolName(item.descriptor);
    if (name.starts_with('#')) return AccidentalGlyphsOf(item.descriptor);
    std::vector<GlyphPart> glyphs = GlyphsOf(name);
    if (glyphs.empty() && item.group == kDynamics && name.size() > 1)
        for (const SymbolPart& part : DesignSymbol(nullptr, name).parts) glyphs.push_back(part.glyph);
    return glyphs;
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
    const int32_t x = head.right - ItemPicture::kWeight / 2;
    picture.lines.push_back({{x, -10}, {x, -kStemLength}});
    for (GlyphPart part : GlyphsOf(flag ? FlagName(flag, true, false) : "")) {
        part.dx += head.right - ItemPicture::kWeight;
        part.dy -= kStemLength;
        picture.glyphs.push_back(part);
    }
}

// ---- What spans a stretch

void AddArc(ItemPicture& picture, Point from, int32_t width, int32_t height) {
    constexpr int kPieces = 8;
    const auto at = [&](int i) {
        const int32_t rise = height * 4 * i * (kPieces - i) / (kPieces * kPieces);
        return Point{from.x + width * i / kPieces, from.y + rise};
    };
    for (int i = 0; i < kPieces; ++i) picture.lines.push_back({at(i), at(i + 1)});
}

void AddTie(ItemPicture& picture, const PaletteItem&) {
    for (const int32_t dx : {0, 260})
        for (GlyphPart part : GlyphsOf("Quarto")) {
            part.dx += dx;
            picture.glyphs.push_back(part);
        }
    AddArc(picture, {70, 75}, 240, 40);
}
void AddSlur(ItemPicture& picture, const PaletteItem&) { AddArc(picture, {0, 0}, 380, -100); }
void AddHairpin(ItemPicture& picture, const PaletteItem&) {
    for (const int32_t y : {-65, 65}) picture.lines.push_back({{0, 0}, {360, y}});
}
void AddPedal(ItemPicture& picture, const PaletteItem&) {
    picture.lines = {{{0, -90}, {0, 0}}, {{0, 0}, {360, 0}}, {{360, 0}, {360, -90}}};
}
void AddEnding(ItemPicture& picture, const PaletteItem&) {
    picture.lines = {{{0, 0}, {0, -150}}, {{0, -150}, {340, -150}}};
    for (GlyphPart part : GlyphsOf(CanonicalSymbolName("_Uno_"))) {
        part.dx += 60;
        part.dy -= 30;
        picture.glyphs.push_back(part);
    }
}
void AddOctave(ItemPicture& picture, const PaletteItem& item) {
    const bool down = std::string_view(item.descriptor).find("Giu") != std::string_view::npos;
    picture.glyphs = GlyphsOf(CanonicalSymbolName(item.descriptor));
    const Rect sign = InkOf(picture);
    const int32_t y = down ? sign.bottom : sign.top, left = sign.right + 30, right = left + 120;
    picture.lines = {{{left, y}, {right, y}}, {{right, y}, {right, y + (down ? -90 : 90)}}};
}
void AddTrill(ItemPicture& picture, const PaletteItem& item) {
    picture.glyphs = GlyphsOf(CanonicalSymbolName(item.descriptor));
    for (int i = 0; i < 3; ++i) {
        const int32_t right = InkOf(picture).right;
        for (GlyphPart part : GlyphsOf(CanonicalSymbolName("_TrilloBracket_"))) {
            part.dx += right;
            picture.glyphs.push_back(part);
        }
    }
}

constexpr struct {
    int group, item;
    void (*add)(ItemPicture& picture, const PaletteItem& item);
} kSpanners[] = {
    {1, kTieItem, AddTie}, {1, 28, AddSlur},  {3, 18, AddHairpin}, {5, 2, AddTrill},  {6, 2, AddEnding},
    {6, 3, AddOctave},     {6, 4, AddOctave}, {6, 5, AddOctave},   {6, 6, AddOctave}, {6, 13, AddPedal},
};

// The line that the rest hangs from or stands on.
void AddShelf(ItemPicture& picture, bool hangs) {
    const Rect ink = InkOf(picture);
    const int32_t y = hangs ? ink.top : ink.bottom;
    picture.lines.push_back({{ink.left - kShelfOverhang, y}, {ink.right + kShelfOverhang, y}});
}

}  // namespace

ItemPicture GhostPicture(const PaletteItem& item) {
    ItemPicture picture;
    if (item.group != kNoteGroup) {
        picture.glyphs = SignGlyphs(item);
        picture.hasLine = false;
    } else if (item.item >= kAccidentalItem) {
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
    for (const auto& spanner : kSpanners)
        if (spanner.group == item.group && spanner.item == item.item) {
            ItemPicture picture;
            spanner.add(picture, item);
            return picture;
        }
    ItemPicture picture = GhostPicture(item);
    if (item.group != kNoteGroup) return picture;
    if (IsNote(item) && item.item >= kHalfNote) AddStem(picture, FlagValue(item));
    if (item.item == kWholeRest || item.item == kHalfRest) AddShelf(picture, item.item == kWholeRest);
    return picture;
}

Rect InkOf(const ItemPicture& picture) {
    Rect ink;
    for (const GlyphPart& part : picture.glyphs) {
        const Rect own = GlyphInk(part);
        ink = Union(ink, own.MovedBy(part.dx - own.left, part.dy));  // the side letter 'l'
    }
    for (const ItemPicture::Line& line : picture.lines)
        ink = Union(ink, Rect{line.from.x, line.from.y, line.to.x, line.to.y}.Normalised().GrownBy(
                             ItemPicture::kWeight / 2));
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
    port.SetPenSize(units(ItemPicture::kWeight), units(ItemPicture::kWeight));
    for (const ItemPicture::Line& line : picture.lines)
        port.DrawLine(at.x + units(line.from.x), at.y + units(line.from.y), at.x + units(line.to.x),
                      at.y + units(line.to.y));
}

}  // namespace corvane
