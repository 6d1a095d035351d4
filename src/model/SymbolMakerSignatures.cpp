// Symbols of time and key signatures.
#include <algorithm>
#include <charconv>

#include "graphics/FontName.h"
#include "model/Preferences.h"
#include "model/SymbolMaker.h"
#include "model/SymbolNames.h"

namespace corvane {
namespace {

// ---- Time signatures

constexpr uint8_t kCommon = 99, kCut = 67, kBracketLeft = 123, kBracketRight = 125, kPlus = 43;

// What a name says, and where its digits stand.
struct TimeText {
    std::string font;
    TimeForm form = TimeForm::Stacked;
    int32_t size = kTimeSignatureSize;
    std::vector<std::pair<int, int>> fractions;
    int32_t numeratorGap = 0, denominatorGap = 0;

    int32_t Scaled(int32_t value) const { return size * value / kTimeSignatureSize; }
    int32_t GlyphSize() const { return size * 420 / kTimeSignatureSize; }
    // Where the rows stand from the middle line.
    int32_t UpperRow() const { return -100 - numeratorGap; }
    int32_t LowerRow() const { return denominatorGap + 100; }
};

// Reads numbers and skips everything between them.
class Numbers {
public:
    explicit Numbers(std::string_view text) : _rest(text) {}
    int Next(int fallback, int largest) {
        const size_t from = _rest.find_first_of("0123456789");
        if (from == _rest.npos) return fallback;
        _rest.remove_prefix(from);
        int value = largest;
        const auto read = std::from_chars(_rest.data(), _rest.data() + _rest.size(), value);
        _rest.remove_prefix(static_cast<size_t>(read.ptr - _rest.data()));
        return std::min(value, largest);
    }
    bool AtEnd() const { return _rest.find_first_of("0123456789") == _rest.npos; }

private:
    std::string_view _rest;
};

TimeText ReadTimeText(const Document* document, std::string_view font, std::string_view rest) {
    constexpr int kLargestSize = 10000, kLargestNumber = 9999;
    TimeText text;
    text.font = font.empty() ? std::string(kMusicFont) : std::string(font);
    std::replace(text.font.begin(), text.font.end(), '_', ' ');
    Numbers numbers(rest);
    text.form = static_cast<TimeForm>(numbers.Next(5, 99));
    const int num = numbers.Next(4, kLargestNumber), den = numbers.Next(4, kLargestNumber);
    text.fractions.emplace_back(num, den);
    text.size = numbers.Next(kTimeSignatureSize, kLargestSize);
    while (!numbers.AtEnd()) {
        const int more = numbers.Next(0, kLargestNumber);
        text.fractions.emplace_back(more, numbers.Next(den, kLargestNumber));
    }
    if (const auto* preferences = document ? Preferences<TimeMeasurePref>(document) : nullptr) {
        text.numeratorGap = preferences->_numeratorGap;
        text.denominatorGap = preferences->_denominatorGap;
    }
    return text;
}

SymbolPart TimePart(const TimeText& text, uint8_t code, int32_t dx, int32_t dy, std::string_view name) {
    return {{code, text.GlyphSize(), dx, dy}, text.font, std::string(name)};
}

// Digits are narrow and stand a cell of 100 apart; a lone 1 in the middle of its cell.
void AddRow(SymbolDesign& design, const TimeText& text, const std::string& digits, int32_t dx, int32_t dy) {
    if (digits == "1") dx += text.Scaled(25);
    for (const char digit : digits) {
        design.parts.push_back(TimePart(text, static_cast<uint8_t>(digit), dx, dy, {&digit, 1}));
        dx += text.Scaled(100);
    }
}

int32_t LengthOf(const std::string& row) { return static_cast<int32_t>(row.size()); }

// Adds one fraction, the shorter row in the middle of the longer; returns its width.
int32_t AddFraction(SymbolDesign& design, const TimeText& text, std::pair<int, int> fraction, int32_t dx) {
    const std::string num = std::to_string(fraction.first), den = std::to_string(fraction.second);
    if (text.form == TimeForm::NumeratorOnly || text.form == TimeForm::Upper) {
        AddRow(design, text, num, dx, text.form == TimeForm::Upper ? text.UpperRow() : 0);
        return text.Scaled(100) * LengthOf(num);
    }
    const int32_t longer = std::max(LengthOf(num), LengthOf(den)), half = text.Scaled(50);
    AddRow(design, text, num, dx + half * (longer - LengthOf(num)), text.UpperRow());
    AddRow(design, text, den, dx + half * (longer - LengthOf(den)), text.LowerRow());
    return text.Scaled(100) * longer;
}

int32_t WidthOr(const SymbolPart& part, int32_t fallback) {
    const int32_t width = InkOf(part).Width();
    return width ? width : fallback;
}

// A plus with its middle at a height.
SymbolPart PlusPart(const TimeText& text, int32_t dx, int32_t dy) {
    SymbolPart plus = TimePart(text, kPlus, dx, 0, "+");
    plus.font = kMusicFont;
    const Rect ink = InkOf(plus);
    plus.glyph.dy = dy - (ink.top + ink.bottom) / 2;
    return plus;
}

// The numerators joined by pluses, one denominator under their middle.
SymbolDesign DesignSum(const TimeText& text) {
    SymbolDesign design{{}, true};
    const int32_t space = text.Scaled(20);
    int32_t dx = 0;
    for (size_t i = 0; i < text.fractions.size(); ++i) {
        if (i > 0) {
            SymbolPart plus = PlusPart(text, dx, text.UpperRow());
            dx += WidthOr(plus, text.Scaled(70)) + space;
            design.parts.push_back(std::move(plus));
        }
        const std::string num = std::to_string(text.fractions[i].first);
        AddRow(design, text, num, dx, text.UpperRow());
        dx += text.Scaled(100) * LengthOf(num) + space;
    }
    const std::string den = std::to_string(text.fractions.front().second);
    AddRow(design, text, den, (dx - space - text.Scaled(100) * LengthOf(den)) / 2, text.LowerRow());
    return design;
}

SymbolDesign DesignFractions(const TimeText& text) {
    if (text.form == TimeForm::Sum) return DesignSum(text);
    SymbolDesign design{{}, true};
    const bool bracketed = text.form == TimeForm::Bracketed;
    const int32_t space = text.Scaled(30);
    int32_t dx = 0;
    const auto add = [&](SymbolPart sign) {
        sign.font = kMusicFont;
        dx += WidthOr(sign, text.Scaled(70)) + space;
        design.parts.push_back(std::move(sign));
    };
    if (bracketed) add(TimePart(text, kBracketLeft, dx, 0, "ParentesiAperta"));
    for (size_t i = 0; i < text.fractions.size(); ++i) {
        if (i > 0) add(PlusPart(text, dx, 0));
        dx += AddFraction(design, text, text.fractions[i], dx) + space;
    }
    if (bracketed) add(TimePart(text, kBracketRight, dx, 0, "ParentesiChiusa"));
    return design;
}

// ---- Key signatures

constexpr int kAccidentals = 7, kMiddleLine = 5;

// Staff steps of the seven sharps and the seven flats under some clefs.
struct KeyPlaces {
    uint8_t clefs[7];  // codes; 0 ends all but the first row's
    int8_t sharps[kAccidentals], flats[kAccidentals];
};
constexpr KeyPlaces kKeyPlaces[] = {
    {{1, 3, 4, 11, 12, 13}, {9, 6, 10, 7, 4, 8, 5}, {5, 8, 4, 7, 3, 6, 2}},
    {{2, 5}, {7, 4, 8, 5, 2, 6, 3}, {3, 6, 2, 5, 1, 4, 0}},
    {{6}, {5, 2, 6, 3, 7, 4, 8}, {1, 4, 0, 3, 6, 2, 5}},
    {{7}, {3, 7, 4, 8, 5, 9, 6}, {6, 9, 5, 8, 4, 7, 3}},
    {{8}, {8, 5, 9, 6, 3, 7, 4}, {4, 7, 3, 6, 2, 5, 1}},
    {{9}, {6, 3, 7, 4, 1, 5, 2}, {2, 5, 1, 4, 7, 3, 6}},
    {{10}, {4, 8, 5, 9, 6, 10, 7}, {7, 10, 6, 9, 5, 8, 4}},
};

const KeyPlaces& PlacesOf(int clef) {
    for (const KeyPlaces& places : kKeyPlaces)
        if (clef > 0 &&
            std::find(std::begin(places.clefs), std::end(places.clefs), clef) != std::end(places.clefs))
            return places;
    return kKeyPlaces[0];
}

struct KeyGlyph {
    const char* name;
    uint8_t code;
    int32_t step;  // to the next accidental
};
constexpr KeyGlyph kNatural{"bequadro", 110, 85}, kSharp{"diesis", 35, 105}, kFlat{"bemolle", 98, 95};

}  // namespace

std::optional<SymbolDesign> DesignTimeSignature(const Document* document, std::string_view name) {
    if (!name.starts_with("ts")) return {};
    const size_t end = std::min(name.find(' '), name.size());
    const std::string_view font = name.substr(2, end - 2), rest = name.substr(end);
    if (font == "C" || font == "Cs") {
        Numbers numbers(rest);
        TimeText text;
        text.font = kMusicFont;
        text.form = static_cast<TimeForm>(numbers.Next(5, 99));
        text.size = numbers.Next(kTimeSignatureSize, 10000);
        return SymbolDesign{{TimePart(text, font == "C" ? kCommon : kCut, 0, 0, {})}, true};
    }
    return DesignFractions(ReadTimeText(document, font, rest));
}

std::optional<SymbolDesign> DesignKeySignature(const Document*, std::string_view name) {
    if (!name.starts_with("cs")) return {};
    const size_t mark = name.find_first_of("$%");
    if (mark == name.npos || name.substr(2, mark - 2).find_first_not_of("0123456789") != name.npos) return {};
    const bool flats = name[mark] == '%';
    const std::string_view run = name.substr(mark + 1);
    const KeyPlaces& places = PlacesOf(Numbers(name.substr(0, mark)).Next(1, 99));

    SymbolDesign design{{}, true};
    int32_t dx = 0;
    for (size_t i = 0; i < kAccidentals; ++i) {
        const char how = i < run.size() ? run[i] : '+';
        if (how == '-') continue;
        const KeyGlyph& glyph = how == 'b' ? kNatural : flats ? kFlat : kSharp;
        const int line = flats ? places.flats[i] : places.sharps[i];
        design.parts.push_back(MusicPart({glyph.code, 400, dx, (kMiddleLine - line) * 50}, glyph.name));
        dx += glyph.step;
    }
    return design;
}

}  // namespace corvane
