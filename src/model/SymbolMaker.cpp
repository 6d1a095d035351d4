#include "model/SymbolMaker.h"

#include <algorithm>
#include <charconv>

#include "base/Rounding.h"
#include "graphics/GlyphMeasures.h"
#include "model/Relations.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr uint8_t kParenthesisLeft = 40, kParenthesisRight = 41, kMezzo = 189;
constexpr int32_t kFullSize = 400, kGraceSize = 300;
constexpr int32_t kLargestNumber = 30000;  // of a custom name

std::optional<SymbolDesign> DesignFromTable(const Document*, std::string_view name) {
    const std::vector<GlyphPart> glyphs = GlyphsOf(name);
    if (glyphs.empty()) return {};
    SymbolDesign design;
    for (const GlyphPart& glyph : glyphs) design.parts.push_back(MusicPart(glyph));
    design.composite = glyphs.size() > 1;
    return design;
}

// Brackets stand as far from the accidental on its right as on its left, or 110 from its origin if nothing
// can be measured.
SymbolDesign InBrackets(const SymbolPart& accidental, int32_t size) {
    const auto scaled = [size](int32_t value) { return Round(value * size / double{kFullSize}); };
    SymbolPart left = MusicPart({kParenthesisLeft, size, scaled(-110), scaled(50)}, "ParLeft");
    SymbolPart right = MusicPart({kParenthesisRight, size, scaled(110), scaled(50)}, "ParRight");
    const Rect ink = InkOf(accidental);
    if (!ink.IsEmpty()) right.glyph.dx = ink.Width() + scaled(110) - InkOf(left).Width();
    return {{left, accidental, right}, true};
}

std::optional<SymbolDesign> DesignAccidental(const Document*, std::string_view name) {
    if (!name.starts_with('#')) return {};
    name.remove_prefix(1);
    int32_t size = kFullSize;
    if (name.starts_with('G')) size = kGraceSize, name.remove_prefix(1);
    if (name.starts_with('O')) size -= 200, name.remove_prefix(1);
    const bool bracketed = name.ends_with('(');
    if (bracketed) name.remove_suffix(1);
    for (const AccidentalGlyph& accidental : AccidentalGlyphs()) {
        if (name != std::string_view(&accidental.letter, 1)) continue;
        SymbolPart part = MusicPart({accidental.code, size});
        part.glyph.second = accidental.second;
        part = MusicPart(part.glyph);
        if (bracketed) return InBrackets(part, size);
        return SymbolDesign{{part}, false};
    }
    return {};
}

std::optional<SymbolDesign> DesignFingering(const Document*, std::string_view name) {
    if (!name.starts_with('G')) return {};
    name.remove_prefix(1);
    if (name.find_first_not_of("0123456789") != name.npos) return {};
    SymbolDesign design{{}, true};
    for (const char digit : name)
        design.parts.push_back(MusicPart(
            {static_cast<uint8_t>(digit), kFullSize, static_cast<int32_t>(design.parts.size()) * 100}));
    return design;
}

std::optional<SymbolDesign> DesignDynamic(const Document*, std::string_view name) {
    if (!name.starts_with('D')) return {};
    name.remove_prefix(1);
    if (name.find_first_not_of("pmfrsz") != name.npos) return {};
    SymbolDesign design{{}, true};
    int32_t dx = 0;
    for (size_t i = 0; i < name.size(); ++i) {
        const uint8_t code = name[i] == 'm' ? kMezzo : static_cast<uint8_t>(name[i]);
        const SymbolPart letter = MusicPart({code, kFullSize, dx});
        design.parts.push_back(letter);
        const int32_t ink = InkOf(letter).Width(), width = ink ? ink : 100;
        const bool beforeF = i + 1 < name.size() && name[i + 1] == 'f';
        dx += Round(width * (beforeF ? 0.5 : 0.75));
    }
    return design;
}

bool IsCustom(std::string_view name) { return name.starts_with("Custom") || name.starts_with("GraceCustom"); }

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    constexpr std::string_view kBlanks = " \t\r\n";
    for (size_t from = text.find_first_not_of(kBlanks); from != text.npos;) {
        const size_t to = std::min(text.find_first_of(kBlanks, from), text.size());
        words.push_back(text.substr(from, to - from));
        from = text.find_first_not_of(kBlanks, to);
    }
    return words;
}

SymbolDesign DesignCustom(std::string_view name) {
    const std::vector<std::string_view> words = Words(name);
    const auto number = [&words](size_t i, int32_t fallback) {
        int32_t value = fallback;
        if (i < words.size()) std::from_chars(words[i].data(), words[i].data() + words[i].size(), value);
        return std::clamp(value, -kLargestNumber, kLargestNumber);
    };
    const std::string_view own = words.empty() ? std::string_view() : words[0];
    const size_t place = own.starts_with("GraceCustom") ? 11 : 6;
    const uint8_t code = place < own.size() ? static_cast<uint8_t>(own[place]) : uint8_t{' '};

    SymbolPart part = MusicPart(
        {code, number(2, kFullSize), number(4, 0), number(5, 50), static_cast<uint8_t>(number(3, 0))});
    if (words.size() > 1) {
        part.font = words[1];
        std::replace(part.font.begin(), part.font.end(), '_', ' ');
    }
    return {{part}, false};
}

using Step = std::optional<SymbolDesign> (*)(const Document*, std::string_view);
constexpr Step kSteps[] = {DesignFromTable,  DesignTimeSignature, DesignKeySignature, DesignRepetitionText,
                           DesignAccidental, DesignFingering,     DesignDynamic};

void StoreMetrics(SimpleFont* font, const Rect& ink) {
    const int32_t sides[] = {ink.left, ink.top, ink.right, ink.bottom};
    for (int i = 0; i < 4; ++i) font->_metrics[i] = sides[i];
    font->_dirty = 0;
}

SimpleFont* BuildSimple(const SymbolPart& part, std::string_view name) {
    auto* font = Make<SimpleFont>();
    font->_name = MakeText(part.name.empty() ? name : part.name);
    font->_fontName = MakeText(part.font);
    font->_fontSize = part.glyph.size;
    font->_style = part.glyph.style;
    font->_dx = part.glyph.dx;
    font->_dy = part.glyph.dy;
    font->_code = part.glyph.code;
    font->_dirty = 1;
    if (HasGlyphMeasures()) StoreMetrics(font, InkOf(part));
    return font;
}

SymbolPart PartOf(const SimpleFont* font) {
    return {{font->_code, font->_fontSize, font->_dx, font->_dy, font->_style},
            std::string(TextOf(font->_fontName)),
            std::string(TextOf(font->_name))};
}

bool MeasureDirty(FontSymbol* symbol) {
    if (auto* font = As<SimpleFont>(symbol)) {
        if (!font->_dirty) return false;
        StoreMetrics(font, InkOf(PartOf(font)));
        return true;
    }
    bool any = false;
    if (auto* composite = As<CompositeSymbol>(symbol))
        for (FontSymbol* part : compositeParts.Of(composite)) any |= MeasureDirty(part);
    return any;
}

}  // namespace

SymbolPart MusicPart(const GlyphPart& glyph, std::string_view name) {
    return {glyph, std::string(glyph.second ? kSecondMusicFont : kMusicFont), std::string(name)};
}

Rect InkOf(const SymbolPart& part) {
    if (!HasGlyphMeasures()) return {};
    const GlyphPart& glyph = part.glyph;
    const EmBox box = TheGlyphMeasures().GlyphBox(FontNumber(part.font), glyph.style, glyph.code);
    const auto side = [&glyph](double em, int32_t offset) {
        return Truncate(double{1} * Round(em * glyph.size) + offset);
    };
    return {side(box.left, glyph.dx), side(box.top, glyph.dy), side(box.right, glyph.dx),
            side(box.bottom, glyph.dy)};
}

SymbolDesign DesignSymbol(const Document* document, std::string_view name) {
    if (!IsCustom(name))
        for (const Step step : kSteps)
            if (auto design = step(document, name)) return *design;
    return DesignCustom(name);
}

FontSymbol* BuildSymbol(const SymbolDesign& design, std::string_view name) {
    if (!design.composite) return BuildSimple(design.parts.front(), name);
    auto* composite = Make<CompositeSymbol>();
    composite->_name = MakeText(name);
    for (const SymbolPart& part : design.parts) compositeParts.Add(composite, BuildSimple(part, name));
    return composite;
}

FontSymbol* MakeSymbol(const Document* document, std::string_view name) {
    return BuildSymbol(DesignSymbol(document, name), name);
}

bool MeasureDirtySymbols(Document* document) {
    if (!HasGlyphMeasures()) return false;
    bool any = false;
    for (FontSymbol* symbol : documentFontSymbols.Of(document)) any |= MeasureDirty(symbol);
    return any;
}

}  // namespace corvane
