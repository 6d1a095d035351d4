// Symbols of repetition texts: letters of the score's font for them, and the signs of segno and coda.
#include <algorithm>

#include "base/Rounding.h"
#include "graphics/FontName.h"
#include "graphics/GlyphMeasures.h"
#include "model/Preferences.h"
#include "model/SymbolMaker.h"
#include "model/SymbolNames.h"

namespace corvane {
namespace {

constexpr uint8_t kSegno = 37, kCoda = 222, kBlank = 32, kItalic = 2;
constexpr int32_t kLetterSize = 210, kSignSize = 400, kSmallSignSize = 280;
constexpr double kPlainAdvance = 0.5;  // of a letter that nothing can measure

struct TextFont {
    std::string name = "Times New Roman";
    uint8_t style = kItalic;
};

TextFont FontIn(const Document* document) {
    const auto* preferences = document ? Preferences<RipetitionPref>(document) : nullptr;
    const TarnFont* font = preferences ? preferences->_phraseFont.Get() : nullptr;
    if (!font) return {};
    const uint8_t style = font->_style;
    return {std::string(TextOf(font->_name)), style ? style : kItalic};
}

// Letters one behind the other; returns where the pen stands then. A symbol's part is drawn with its ink at
// its place, so each letter stands by its own side bearing.
int32_t AddLetters(SymbolDesign& design, const TextFont& font, std::string_view text) {
    const bool measured = HasGlyphMeasures();
    const FontId number = FontNumber(font.name);
    double pen = 0;
    for (const char letter : text) {
        const auto code = static_cast<uint8_t>(letter);
        const double bearing = measured ? TheGlyphMeasures().GlyphBox(number, font.style, code).left : 0;
        if (code != kBlank)
            design.parts.push_back({{code, kLetterSize, Round((pen + bearing) * kLetterSize), 0, font.style},
                                    font.name,
                                    {&letter, 1}});
        pen += measured ? TheGlyphMeasures().GlyphAdvance(number, font.style, code) : kPlainAdvance;
    }
    return Round(pen * kLetterSize);
}

void AddSign(SymbolDesign& design, uint8_t code, int32_t size, int32_t dx, const char* name) {
    design.parts.push_back(MusicPart({code, size, dx}, name));
}

}  // namespace

std::optional<SymbolDesign> DesignRepetitionText(const Document* document, std::string_view name) {
    const auto texts = RepetitionTexts();
    if (std::find(texts.begin(), texts.end(), name) == texts.end()) return {};
    SymbolDesign design{{}, true};
    if (name == "Segno" || name == "Coda") {
        AddSign(design, name == "Segno" ? kSegno : kCoda, kSignSize, 0, name == "Segno" ? "Segno" : "Coda");
        return design;
    }
    const bool toCoda = name == "Al Coda";
    const int32_t end = AddLetters(design, FontIn(document), toCoda ? "al Coda " : name);
    if (toCoda) AddSign(design, kCoda, kSmallSignSize, end, "Coda");
    return design;
}

}  // namespace corvane
