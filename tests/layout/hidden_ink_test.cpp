// What is hidden takes along what hangs on it, on the screen and on paper.
#include "draw_score.h"
#include "graphics/MemoryPort.h"
#include "layout/DrawPatch.h"
#include "layout/HiddenInk.h"

namespace corvane::draw {
namespace {

class HiddenInkTest : public DrawTest {
protected:
    HiddenInkTest() { New("D", 3, 1); }
    // "grey", "black", both or nothing, as the calls are coloured.
    static std::string Ink(void* record, const DrawContext& context) {
        MemoryPort port(MemoryPort::Tracing::On);
        PatchOf(record).Draw(port, context);
        bool grey = false, black = false;
        for (const std::string& line : port.Lines())
            (line.find("#506870") != std::string::npos ? grey : black) = true;
        EXPECT_EQ(port.CurrentColor(), 0u) << "the colour is what it was";
        return std::string(grey ? "grey" : "") + (grey && black ? " " : "") + (black ? "black" : "");
    }
    // On screen while shown, on screen while not, on paper left out, on paper printed.
    static std::string Looks(void* record, HiddenRule DrawContext::*kind) {
        std::string looks;
        for (const bool printing : {false, true})
            for (const bool seen : {true, false}) {
                DrawContext context;
                context.hiddenNotes = context.hiddenStems = context.hiddenRests = {true, false};
                context.*kind = {seen, seen};
                context.printing = printing;
                looks += (looks.empty() ? "" : "|") + Ink(record, context);
            }
        return looks;
    }
    static constexpr const char *kWhole = "grey|||black", *kSeen = "black|black|black|black";
};

TEST_F(HiddenInkTest, AHeadTakesItsAccidentalAndAllHeadsTheDots) {
    ChordSymbol* column = AddChord(VoiceOfStaff(0, 0), {8, {6, 3}});
    Accident* sign = AddAccident(HeadOf(column, 0), "#d");
    Dot* dot = AddDot(ChordOf(column), 1);
    Hide(HeadOf(column, 0), true);
    EXPECT_EQ(Looks(sign, &DrawContext::hiddenNotes), kWhole);
    EXPECT_EQ(Looks(dot, &DrawContext::hiddenNotes), kSeen) << "the other head is there";
    Hide(HeadOf(column, 1), true);
    EXPECT_EQ(Looks(dot, &DrawContext::hiddenNotes), kWhole);
    EXPECT_EQ(Looks(column, &DrawContext::hiddenNotes), "grey black|black|black|black") << "the stem stays";
    Hide(HeadOf(column, 0), false);
    EXPECT_EQ(Looks(sign, &DrawContext::hiddenNotes), kSeen);
}

TEST_F(HiddenInkTest, ARestTakesItsDots) {
    Pause* rest = AddRest(VoiceOfStaff(0, 0), 4, 0);
    Dot* dot = AddDot(rest, 1);
    Hide(rest, true);
    EXPECT_EQ(Looks(rest, &DrawContext::hiddenRests), kWhole);
    EXPECT_EQ(Looks(dot, &DrawContext::hiddenRests), kWhole);
    EXPECT_EQ(Looks(rest, &DrawContext::hiddenNotes), "grey|grey|black|black")
        << "the rule for notes says nothing of rests";
}

TEST_F(HiddenInkTest, AStemTakesItsFlagAndAllStemsTheBeam) {
    ChordSymbol* column = AddChord(VoiceOfStaff(0, 0), {8, {5}});
    Hide(StemOf(column), true);
    const auto heads = [&](void* record) {
        MemoryPort port(MemoryPort::Tracing::On);
        DrawContext context;
        context.hiddenStems = {false, true};
        PatchOf(record).Draw(port, context);
        return port.Lines().size();
    };
    EXPECT_EQ(heads(column), 1u) << "the head alone, without stem and flag";
    EXPECT_NE(FlagOf(StemOf(column)), nullptr);

    std::vector<BeamSymbol*> stems;
    for (int32_t i = 0; i < 2; ++i)
        stems.push_back(StemOf(
            AddChord(VoiceOfStaff(1, 0), {16, {3}, 400 * i, StemDirection::Up, "Quarto", 350, false})));
    AddBeam(stems, {16, 16}, 'U');
    BeamMarker* first = MarkerOf(stems[0]);
    Hide(static_cast<Stem*>(stems[0]), true);
    EXPECT_EQ(Looks(first, &DrawContext::hiddenStems), kSeen) << "a stem holds it";
    Hide(static_cast<Stem*>(stems[1]), true);
    EXPECT_EQ(Looks(first, &DrawContext::hiddenStems), kWhole);
}

TEST_F(HiddenInkTest, AWholeNotesStemIsNeverHiddenNorShown) {
    ChordSymbol* column = AddChord(VoiceOfStaff(0, 0), {1, {5}, 0, StemDirection::HiddenUp, "Intero"});
    EXPECT_FALSE(IsHidden(StemOf(column)));
    Hide(StemOf(column), false);
    EXPECT_EQ(StemOf(column)->_direction, StemDirection::HiddenUp);
}

TEST_F(HiddenInkTest, ATupletKeepsItsLookWhileItIsHidden) {
    auto* tuplet = Make<Irregular>();
    tuplet->_count = 3;
    tuplet->_inTimeOf = 2;
    tuplet->_bracket = TupletBracket::Always;
    MarkIrreg* first = nullptr;
    for (int32_t i = 0; i < 3; ++i) {
        auto* mark = Make<MarkIrreg>();
        voiceSymbolAttributes.Add(ChordOf(AddChord(VoiceOfStaff(0, 0), {4, {5}, 200 * i})), mark);
        irregularMarks.Add(tuplet, mark);
        if (!first) first = mark;
    }
    const Rect seen = PatchOf(first).Bounds();
    Hide(tuplet, true);
    EXPECT_TRUE(IsHidden(tuplet));
    EXPECT_EQ(BracketOf(tuplet), TupletBracket::Always);
    EXPECT_EQ(PatchOf(first).Bounds(), seen);
    EXPECT_EQ(Looks(first, &DrawContext::hiddenNotes), kWhole);
    Hide(tuplet, false);
    EXPECT_EQ(Looks(first, &DrawContext::hiddenNotes), kSeen);
}

}  // namespace
}  // namespace corvane::draw
