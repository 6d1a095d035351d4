// What the names of symbols turn into.
#include "base/Rounding.h"
#include "model/Clefs.h"
#include "model/GlyphTable.h"
#include "model/SymbolNames.h"
#include "symbol_pool.h"

namespace corvane {
namespace {

using SymbolMaker = DocumentTest;

TEST_F(SymbolMaker, NamesBecomeTheirGlyphs) {
    const struct {
        const char *why, *name, *glyphs;
    } cases[] = {
        {"a sign of the table", "Quarto", "207@385 0 0"},
        {"parts in order", "ChiaveSolSu", "38@400 0 100; 56@250 120 -500/2"},
        {"the second music font", "pizzicato", "182@400 0 0B"},
        {"the single byte 161",
         "32\xA1"
         "down",
         "240@385 0 -10; 75@385 0 -360"},
        {"signs that share a glyph of their own", "_SimboloCoda_", "222@450 0 0"},
        {"", "_Tilde_", "126@450 0 0"},
        {"grace heads", "GraceMeta", "250@285 0 0"},
        {"grace flags shift less than they shrink",
         "Grace8\xA1"
         "up",
         "106@285 0 230"},
        {"grace signs", "gracedoppioaccento", "62@300 0 0; 62@300 75 0"},
        {"grace fingerings", "gracetre", "51@100 0 0"},
        {"the odd one", "graceMordenteDoppioInf", "181@300 0 0; 77@300 350 0"},
        {"its plain form", "MordenteDoppioInf", "181@400 0 0; 91@100 200 0"},
        {"accidentals", "#d", "35@400 0 0"},
        {"quarter tones are in the second font", "#m", "109@400 0 0B"},
        {"a grace accidental", "#Gb", "98@300 0 0"},
        {"a smaller one", "#OA", "110@200 0 0"},
        {"fingerings run on", "G15", "49@400 0 0; 53@400 100 0"},
        {"custom, all told", "CustomA\nTimes_New_Roman\n300\n2\n5\n7\n", "65@300 5 7/2"},
        {"custom, nothing told", "CustomB", "66@400 0 50"},
        {"a grace custom is no fingering", "GraceCustomC", "67@400 0 50"},
        {"an unknown name gives its seventh character", "Unknown?", "110@400 0 50"},
        {"no fingering for a word with G, no dynamic for one with D", "Gadget!", "33@400 0 50"},
        {"", "Dilemma", "97@400 0 50"},
        {"a rest has no grace form", "GracePausa8", "97@400 0 50"},
    };
    for (const auto& c : cases) EXPECT_EQ(GlyphsOfName(c.name), c.glyphs) << c.name << ": " << c.why;
    EXPECT_EQ(TextOf(As<SimpleFont>(LookupSymbol(document, cases[17].name))->_fontName), "Times New Roman");
}

TEST_F(SymbolMaker, PalettesCallSymbolsByTheirDescriptors) {
    const struct {
        const char *descriptor, *name;
    } cases[] = {
        {"_Accento_", "accento"},
        {"_LungaSuperiore_", "lungasup"},
        {"_ChiaveDoCont1_", "ChiaveDoCont"},
        {"_Pausa16_", "Pausa16"},
        {"_Trillo_", "_Trillo_"},
        {"_Diesis_", "#d"},
        {"_MonoBemolle_(", "#M("},
        {"Bequadro", "#A"},
        {"GraceDDiesis", "#GD"},
        {"BequadroGiuP", "#S("},
        {"GraceTriesisP", "#Gt("},
    };
    for (const auto& c : cases) {
        const FontSymbol* called = LookupSymbol(document, c.descriptor);
        EXPECT_EQ(SymbolName(called), c.name);
        EXPECT_EQ(called, LookupSymbol(document, c.name)) << "one symbol, whatever it is called";
    }
}

// A code that a music font lacks would be silently blank.
TEST_F(SymbolMaker, EveryNameHasInk) {
    std::vector<std::string> names = FixedSymbolNames();
    for (std::string& descriptor : PaletteDescriptors()) names.push_back(descriptor);
    for (const AccidentalGlyph& accidental : AccidentalGlyphs())
        names.push_back(std::string("#") + accidental.letter + "(");
    for (const char* name : {"G0123456789", "Dpmfrsz", "tsC", "tsCs", "graceMordenteDoppioInf"})
        names.emplace_back(name);
    names.push_back(TimeSignatureName(TimeForm::Bracketed, 1234567, 890));
    ASSERT_GT(names.size(), 200u);
    for (const std::string& name : names) {
        const FontSymbol* symbol = LookupSymbol(document, name);
        ASSERT_FALSE(PartsOf(symbol).empty()) << name;
        for (const SimpleFont* part : PartsOf(symbol))
            EXPECT_FALSE(SymbolRect(part, 100, 100).IsEmpty()) << name;
    }
}

TEST_F(SymbolMaker, BracketsEncloseTheirAccidental) {
    for (const AccidentalGlyph& accidental : AccidentalGlyphs())
        for (const char* grace : {"", "G"}) {
            const std::string name = std::string("#") + grace + accidental.letter + "(";
            const auto parts = PartsOf(LookupSymbol(document, name));
            ASSERT_EQ(parts.size(), 3u) << name;
            // Drawn with the ink's left edge at the offset.
            const auto right = [](const SimpleFont* p) { return p->_dx + SymbolWidth(p, 100, 100); };
            EXPECT_LE(right(parts[0]), 0) << name;
            EXPECT_LE(right(parts[1]), parts[2]->_dx) << name;
            EXPECT_NEAR(-right(parts[0]), parts[2]->_dx - right(parts[1]), 2) << name;
        }
}

TEST_F(SymbolMaker, DynamicsCloseUp) {
    const auto parts = PartsOf(LookupSymbol(document, "Dmf"));
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[0]->_code, 189) << "109 is the mordent";
    EXPECT_EQ(parts[1]->_dx, Round(SymbolWidth(parts[0], 100, 100) * 0.5)) << "before an f";
    const auto pp = PartsOf(LookupSymbol(document, "Dpp"));
    EXPECT_EQ(pp[1]->_dx, Round(SymbolWidth(pp[0], 100, 100) * 0.75));
}

// Each accidental of each key under each clef stands on a line or space of its own note, within the staff or
// next to it.
TEST_F(SymbolMaker, KeySignaturesStandOnTheirNotes) {
    constexpr int kOrder[] = {3, 0, 4, 1, 5, 2, 6};  // F C G D A E B as steps above C
    for (int clef = 1; clef <= 10; ++clef)
        for (int key = -7; key <= 7; ++key) {
            const std::string name = KeySignatureName(clef, key);
            const auto parts = PartsOf(LookupSymbol(document, name));
            ASSERT_EQ(parts.size(), static_cast<size_t>(std::abs(key))) << name;
            for (size_t i = 0; i < parts.size(); ++i) {
                EXPECT_EQ(parts[i]->_code, key > 0 ? 35 : 98);
                const int line = 5 - parts[i]->_dy / 50;
                EXPECT_TRUE(line >= 0 && line <= 10) << name << " " << line;
                const int step = DiatonicStep(clef, line), note = kOrder[key > 0 ? i : 6 - i];
                EXPECT_EQ(((step % 7) + 7) % 7, note) << name << " accidental " << i;
                if (i > 0) {
                    EXPECT_GT(parts[i]->_dx, parts[i - 1]->_dx);
                }
            }
        }
    EXPECT_TRUE(SymbolRect(LookupSymbol(document, KeySignatureName(1, 0)), 100, 100).IsEmpty())
        << "no accidentals";
}

TEST_F(SymbolMaker, AKeyChangeShowsNaturals) {
    const auto codes = [this](const std::string& name) {
        std::string text;
        for (const SimpleFont* part : PartsOf(LookupSymbol(document, name)))
            text += part->_code == 110 ? 'n' : part->_code == 35 ? '#' : 'b';
        return text;
    };
    EXPECT_EQ(codes(KeySignatureName(1, 1, 3)), "#nn");
    EXPECT_EQ(codes(KeySignatureName(2, 0, -2)), "nn");
    EXPECT_EQ(codes(KeySignatureName(2, -4, -2)), "bbbb") << "nothing to take back";
    EXPECT_EQ(codes(KeySignatureName(1, 2, -3)), "##");
    EXPECT_EQ(codes("cs1%"), "bbbbbbb") << "all seven where nothing is said";
}

// Left, right and middle line of a row of a time signature, as drawn: ink starts at the offset.
struct TimeRow {
    int32_t left = 1000000, right = -1000000, dy = 0;
    std::string digits;
    void Add(const SimpleFont* part) {
        left = std::min(left, int32_t{part->_dx});
        right = std::max(right, part->_dx + SymbolWidth(part, 100, 100));
        dy = part->_dy;
        digits += static_cast<char>(part->_code.Get());
    }
    int32_t Middle() const { return (left + right) / 2; }
};

TEST_F(SymbolMaker, TimeSignaturesAreStackedAndCentred) {
    for (const auto& [num, den] : {std::pair{4, 4}, {12, 8}, {3, 16}, {2, 2}, {1, 4}, {128, 64}}) {
        const std::string name = TimeSignatureName(TimeForm::Stacked, num, den);
        TimeRow above, below;
        for (const SimpleFont* part : PartsOf(LookupSymbol(document, name)))
            (part->_dy < 0 ? above : below).Add(part);
        EXPECT_EQ(above.digits, std::to_string(num)) << name;
        EXPECT_EQ(below.digits, std::to_string(den)) << name;
        EXPECT_EQ(above.dy, -100);
        EXPECT_EQ(below.dy, 100);
        EXPECT_NEAR(above.Middle(), below.Middle(), 16) << name << ": digits fill their cells differently";
    }
    EXPECT_EQ(GlyphsOfName("ts 5 su 1 su 4 su 189*").substr(0, 14), "49@420 25 -100");
    EXPECT_EQ(GlyphsOfName("tsCs"), "67@420 0 0");
    EXPECT_EQ(GlyphsOfName(CommonTimeName(false)), "99@420 0 0");
}

TEST_F(SymbolMaker, OtherFormsOfTimeSignatures) {
    const auto codes = [this](const std::string& name) {
        std::string text;
        for (const SimpleFont* part : PartsOf(LookupSymbol(document, name)))
            text += static_cast<char>(part->_code.Get());
        return text;
    };
    EXPECT_EQ(codes(TimeSignatureName(TimeForm::Bracketed, 3, 8)), "{38}");
    EXPECT_EQ(codes(TimeSignatureName(TimeForm::NumeratorOnly, 3, 8)), "3");
    EXPECT_EQ(codes("ts 5 su 3 su 8 su 189* + 2 su 4"), "38+24") << "an added part";
    const auto parts = PartsOf(LookupSymbol(document, "tsTimes_New_Roman 5 su 2 su 4 su 378*"));
    EXPECT_EQ(TextOf(parts[0]->_fontName), "Times New Roman");
    EXPECT_EQ(parts[0]->_fontSize, 840);
}

}  // namespace
}  // namespace corvane
