// Signs on notes from the palettes, and where they stand.
#include "edit/CommandTable.h"
#include "edit/TarnClick.h"
#include "edit_fixture.h"
#include "layout/NoteGeometry.h"
#include "layout/NoteSigns.h"
#include "model/SymbolTable.h"
#include "state_keeper.h"

namespace corvane {
namespace {

class NoteSignTest : public EditTest {
protected:
    void UseItem(int group, int item) {
        SetToolMode(ModePencil);
        SetPaletteGroup(static_cast<uint8_t>(group));
        SetItem(static_cast<uint16_t>(item));
    }
    GenericNote* NoteNumber(int number) {
        return chordNotes.First(static_cast<Chords*>(Events(1, 1)[static_cast<size_t>(number - 1)]));
    }
    void PressNote(int number) {
        const Rect head = RectOf(NoteNumber(number));
        MouseDown(*window, (head.left + head.right) / 2, (head.top + head.bottom) / 2, 0);
    }
    void Sign(int group, int item, int number = 1) {
        UseItem(group, item);
        PressNote(number);
    }
    std::string Signs(int number = 1) {
        std::string names;
        for (NoteAttribute* attribute : noteAttributes.Of(NoteNumber(number)))
            if (auto* sign = As<SymbolAttribute>(attribute))
                names += std::string(names.empty() ? "" : " ") + std::string(SymbolName(sign->_symbol));
        return names;
    }
    Rect InkOfSign(const char* name, int number = 1) {
        for (NoteAttribute* attribute : noteAttributes.Of(NoteNumber(number)))
            if (auto* sign = As<SymbolAttribute>(attribute); sign && SymbolName(sign->_symbol) == name)
                return PlaceOf(sign).Ink();
        return {};
    }
    StaffFrame TheStaff() { return FrameOf(Crossing(1, 1)->_staff.Get()); }
};

TEST_F(NoteSignTest, ASecondPressTakesASignAwayAndAnotherItemExchangesIt) {
    Enter(kQuarter, 1, 1, 0, 4);
    const PoolState bare = PoolState::Of(*window->Pool());
    Sign(4, 4);
    EXPECT_EQ(Signs(), "staccato");
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == bare);
    window->Redo();
    Sign(4, 1);
    EXPECT_EQ(Signs(), "accento");
    Sign(7, 13);
    EXPECT_EQ(Signs(), "accento mediasup") << "a sign of another class stands beside it";
    Sign(4, 1);
    EXPECT_EQ(Signs(), "mediasup");
    Press(1, 1, 900, -9);
    EXPECT_EQ(Signs(), "mediasup") << "a press beside any note";
    ExpectSound();
}

TEST_F(NoteSignTest, ASignOfAGraceNoteIsSmaller) {
    Enter(kQuarter, 1, 1, 500, 4);
    Tools().graceMode = true;
    Enter(kEighth, 1, 1, 300, 6);
    Tools().graceMode = false;
    ASSERT_TRUE(As<Grace>(NoteNumber(2)));
    Sign(4, 4, 2);
    EXPECT_EQ(Signs(2), "gracestaccato");
    const auto* sign = As<SymbolAttribute>(noteAttributes.First(NoteNumber(2)));
    ASSERT_TRUE(sign);
    EXPECT_EQ(PlaceOf(sign).percent, 80);
    ExpectSound();
}

TEST_F(NoteSignTest, AccidentalsOfOrnamentsAreBracketedWhereTheirSwitchSays) {
    Enter(kQuarter, 1, 1, 0, 4);
    const auto flip = [&](int id) { EXPECT_TRUE(RunCommand(*window, id)); };
    flip(40070);  // the other switch is for accidentals of notes
    Sign(5, 9);
    const std::string plain = Signs();
    const int32_t width = InkOfSign(plain.c_str()).Width();
    flip(40071);
    Sign(5, 9);
    EXPECT_EQ(Signs(), plain + "(") << "with brackets it is another sign";
    EXPECT_GT(InkOfSign((plain + "(").c_str()).Width(), width + 40) << "drawn with them";
    window->Undo();
    EXPECT_EQ(Signs(), plain);
    window->Redo();
    flip(40070);
    Sign(1, kSharp);
    flip(40071);
    EXPECT_EQ(Signs().find("(", Signs().find("(") + 1), std::string::npos) << Signs();
    ExpectSound();
}

TEST_F(NoteSignTest, EveryItemOfThePalettesEntersAndIsDrawn) {
    constexpr struct {
        int group, from, to;
    } kItems[] = {{4, 1, 14}, {5, 3, 11}, {5, 13, 22}, {6, 15, 15}, {7, 1, 14}, {7, 23, 24}};
    Enter(kQuarter, 1, 1, 0, 6);
    for (const auto& run : kItems)
        for (int item = run.from; item <= run.to; ++item) {
            SCOPED_TRACE(std::to_string(run.group) + " " + std::to_string(item));
            Sign(run.group, item);
            const auto* sign = As<SymbolAttribute>(noteAttributes.Last(NoteNumber(1)));
            ASSERT_TRUE(sign);
            const DrawPatch patch = PatchOf(const_cast<SymbolAttribute*>(sign));
            ASSERT_TRUE(patch);
            EXPECT_FALSE(patch.Bounds().IsEmpty());
            EXPECT_TRUE(window->Sheet().IsFiled(patch));
            Sign(run.group, item);
        }
    EXPECT_EQ(Signs(), "");
    ExpectSound();
}

TEST_F(NoteSignTest, SignsStandOppositeTheStemOutsideTheStaffAndClearOfEachOther) {
    Enter(kQuarter, 1, 1, 0, 4);    // stem up
    Enter(kQuarter, 1, 1, 500, 7);  // stem down
    Sign(4, 4, 1);
    Sign(4, 4, 2);
    const Rect below = InkOfSign("staccato", 1), above = InkOfSign("staccato", 2);
    EXPECT_NEAR((below.top + below.bottom) / 2, TheStaff().YOfLine(2), 3) << "in the next space";
    EXPECT_NEAR((above.top + above.bottom) / 2, TheStaff().YOfLine(10), 3)
        << "beyond a line the space behind it";

    Sign(4, 1, 1);
    EXPECT_GE(InkOfSign("accento", 1).top, TheStaff().Bottom() + 50) << "an accent stays out of the staff";
    Sign(7, 13, 1);
    Sign(7, 2, 1);
    const Rect bow = InkOfSign("arcoSu", 1), fermata = InkOfSign("mediasup", 1);
    EXPECT_LE(bow.bottom, TheStaff().top - 50);
    EXPECT_LT(fermata.bottom, bow.top) << "a fermata stands outermost, whenever it came";
}

TEST_F(NoteSignTest, TremoloStrokesGetAStemThatHoldsThem) {
    Enter(kHalf, 1, 1, 0, 4);
    const Stem* stem = StemPar(NoteNumber(1));
    const int32_t usual = stem->_length;
    Sign(6, 10);
    const auto* tremolo = As<Tremolo>(voiceSymbolAttributes.First(ChordPar(NoteNumber(1))));
    ASSERT_TRUE(tremolo);
    EXPECT_GT(stem->_length, usual);
    const Rect strokes = PlaceOf(tremolo).Ink();
    const StemLine line = LineOf(stem);
    EXPECT_GT(strokes.top, line.end);
    EXPECT_LT(strokes.bottom, RectOf(NoteNumber(1)).top + 10);
    Sign(6, 10);
    EXPECT_TRUE(voiceSymbolAttributes.IsEmpty(ChordPar(NoteNumber(1))));
    EXPECT_EQ(stem->_length, usual);
    ExpectSound();
}

TEST_F(NoteSignTest, DynamicsStandOnOneLineAndGoWithTheEraser) {
    for (int item = 1; item <= 17; ++item) {
        UseItem(3, item);
        Press(1, 2, 50 * item, -5);
    }
    std::vector<Dinamiche*> marks;
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(Crossing(1, 2)))
        if (auto* mark = As<Dinamiche>(symbol)) marks.push_back(mark);
    ASSERT_EQ(marks.size(), 17u);
    EXPECT_EQ(SymbolName(marks[4]->_symbol), "Dmp");
    ExpectSound();
    SetToolMode(ModeEraser);
    const Rect ink = PatchOf(marks[0]).Bounds();
    MouseDown(*window, ink.left + 5, (ink.top + ink.bottom) / 2, 0);
    int left = 0;
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(Crossing(1, 2)))
        left += As<Dinamiche>(symbol) != nullptr;
    EXPECT_EQ(left, 16);
    ExpectSound();
}

TEST_F(NoteSignTest, TheEraserTakesSignsButNoAccidentals) {
    Enter(kQuarter, 1, 1, 0, 6);
    Item(kSharp);
    PressNote(1);
    Sign(7, 13);
    const Rect ink = InkOfSign("mediasup");
    SetToolMode(ModeEraser);
    MouseDown(*window, (ink.left + ink.right) / 2, ink.top + 10, 0);
    EXPECT_EQ(Signs(), "");
    const Rect sharp = RectOf(As<Accident>(noteAttributes.First(NoteNumber(1))));
    MouseDown(*window, (sharp.left + sharp.right) / 2, (sharp.top + sharp.bottom) / 2, 0);
    EXPECT_FALSE(noteAttributes.IsEmpty(NoteNumber(1)));
    ExpectSound();
}

}  // namespace
}  // namespace corvane
