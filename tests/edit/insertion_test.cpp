// What the pencil makes of a press.
#include "edit_fixture.h"
#include "layout/NoteGeometry.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

GenericNote* HeadOf(VoiceSymbol* symbol) { return chordNotes.First(As<Chords>(symbol)); }

class Insertion : public EditTest {
protected:
    // Where the first head of an event was drawn: a press there falls on it.
    Point HeadPlaceOf(VoiceSymbol* symbol) {
        const Rect rect = RectOf(HeadOf(symbol));
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    void PressOn(VoiceSymbol* symbol) {
        const Point p = HeadPlaceOf(symbol);
        MouseDown(*window, p.x, p.y, 0);
    }
};

TEST_F(Insertion, NotesStandInProportionAndSoundAtTheirTimes) {
    Enter(kQuarter, 1, 1, 100, 3);
    Enter(kHalf, 1, 1, 400, 6);
    Enter(kQuarter, 1, 1, 900, 5);
    const auto events = Events(1, 1);
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(XOf(events[0]), 0);
    EXPECT_NEAR(XOf(events[1]) * 2, XOf(events[2]) - XOf(events[1]), 1)
        << "a half note takes twice a quarter's room";
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 1 1 67 64\n1 2 0 1 4 0 1 1 72 64\n1 4 0 1 5 0 1 1 71 64\n");
    EXPECT_TRUE(IsUp(StemOf(As<Chords>(events[2]))->_direction)) << "the middle line is stemmed up";
    EXPECT_FALSE(IsUp(StemOf(As<Chords>(events[1]))->_direction));
    ExpectSound();
}

TEST_F(Insertion, ANoteBetweenOthersMovesThoseBehindItInTime) {
    Enter(kQuarter, 1, 1, 100, 3);
    Enter(kQuarter, 1, 1, 900, 4);
    Enter(kEighth, 1, 1, 200, 5);
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 1 1 67 64\n1 2 0 1 2 16000 1 1 71 64\n1 2 16000 1 3 16000 1 1 69 64\n");
}

TEST_F(Insertion, APressLeftOfTheFirstEventGoesBeforeIt) {
    Enter(kQuarter, 1, 1, 100, 3);
    Enter(kEighth, 1, 1, -30, 5);
    Enter(kHalfRest, 1, 1, -30, 5);
    ToggleGrace();
    Enter(kSixteenth, 1, 1, -30, 7);
    const auto events = Events(1, 1);
    ASSERT_EQ(events.size(), 4u);
    EXPECT_TRUE(IsGrace(events[0]));
    EXPECT_TRUE(As<Pause>(events[1]));
    EXPECT_EQ(HeadOf(events[2])->_line, 5);
    EXPECT_EQ(HeadOf(events[3])->_line, 3);
    for (const VoiceSymbol* event : events) EXPECT_GE(XOf(event), 0);
    ExpectSound();
}

TEST_F(Insertion, FullMeasuresRefuseWithoutATrace) {
    for (int i = 0; i < 4; ++i) Enter(kQuarter, 1, 1, 900, 3);
    const std::string before = Notes();
    Enter(kEighth, 1, 1, 950, 3);
    Enter(kHalfRest, 1, 1, 950, 3);
    EXPECT_EQ(Notes(), before);
    EXPECT_EQ(Events(1, 1).size(), 4u);
    ExpectSound();
    window->Undo();
    ExpectSound();
    EXPECT_EQ(Events(1, 1).size(), 5u)
        << "the refusal is a step of its own: undo steps back to the refused rest";
}

TEST_F(Insertion, AWholeRestFillsAnyEmptyVoiceAndStandsInTheMiddle) {
    MeasureNumber(1)->_num = 2;
    Enter(kWholeRest, 1, 1, 100, 3);
    ASSERT_EQ(Events(1, 1).size(), 1u);
    EXPECT_EQ(XOf(Events(1, 1)[0]), 500);
    Enter(kHalfRest, 1, 1, 900, 3);
    EXPECT_EQ(Events(1, 1).size(), 1u);
}

TEST_F(Insertion, ChordsTakeHeadsOfTheirOwnValueOncePerLine) {
    Enter(kQuarter, 1, 1, 100, 3);
    VoiceSymbol* chord = Events(1, 1)[0];
    const Point p = HeadPlaceOf(chord);
    const struct {
        const char* why;
        int item, line, heads;
    } presses[] = {
        {"a third above joins", kQuarter, 5, 2},
        {"the same line again does nothing", kQuarter, 5, 2},
        {"another value does nothing", kHalf, 7, 2},
        {"a second joins on the other side", kQuarter, 6, 3},
    };
    for (const auto& press : presses) {
        SCOPED_TRACE(press.why);
        Item(press.item);
        MouseDown(*window, p.x, At(1, 1, 0, press.line).y, 0);
        EXPECT_EQ(chordNotes.Count(As<Chords>(chord)), press.heads);
        EXPECT_EQ(Events(1, 1).size(), 1u);
    }
    std::vector<int> lines, sides;
    for (GenericNote* note : stemNotes.Of(StemOf(As<Chords>(chord)))) {
        lines.push_back(note->_line);
        sides.push_back(static_cast<int>(note->_side.Get()));
    }
    EXPECT_EQ(lines, (std::vector<int>{6, 5, 3})) << "the highest first";
    EXPECT_EQ(sides, (std::vector<int>{0, 1, 1})) << "the upper head of a second crosses an up stem";
    ToggleGrace();
    Item(kQuarter);
    MouseDown(*window, p.x, At(1, 1, 0, 8).y, 0);
    EXPECT_EQ(chordNotes.Count(As<Chords>(chord)), 3) << "a grace note does not join a normal chord";
    ExpectSound();
}

TEST_F(Insertion, AccidentalsHoldToTheEndOfTheMeasure) {
    for (int i = 0; i < 3; ++i) Enter(kQuarter, 1, 1, 900, 2);  // F F F
    const auto events = Events(1, 1);
    Item(kSharp);
    PressOn(events[0]);
    EXPECT_EQ(HeadOf(events[0])->_alteration, Alteration::Sharp);
    EXPECT_TRUE(AccidentOf(HeadOf(events[0])));
    EXPECT_TRUE(AccidentOf(HeadOf(events[1]))) << "the next one is natural and says so";
    EXPECT_FALSE(AccidentOf(HeadOf(events[2])));
    Item(kSharp);
    PressOn(events[1]);
    EXPECT_FALSE(AccidentOf(HeadOf(events[1]))) << "the sharp is in force already";
    EXPECT_TRUE(AccidentOf(HeadOf(events[2])));
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 1 1 66 64\n1 2 0 1 3 0 1 1 66 64\n1 3 0 1 4 0 1 1 65 64\n");
    Item(kNatural);
    PressOn(events[0]);
    EXPECT_FALSE(AccidentOf(HeadOf(events[0])));
    EXPECT_TRUE(AccidentOf(HeadOf(events[1])));
    ToggleAccidentParenthesis();
    Item(kFlat);
    PressOn(events[2]);
    EXPECT_EQ(SymbolName(AccidentOf(HeadOf(events[2]))->_symbol), "#b(");
    ExpectSound();
}

TEST_F(Insertion, DotsLengthenNotesAndRests) {
    Enter(kQuarter, 1, 1, 100, 4);
    Enter(kEighth, 1, 1, 900, 4);
    Item(kDot);
    PressOn(Events(1, 1)[0]);
    EXPECT_EQ(DotCount(Events(1, 1)[0]), 1);
    EXPECT_EQ(Notes(), "1 1 0 1 2 16000 1 1 69 64\n1 2 16000 1 3 0 1 1 69 64\n");
    Enter(kQuarterRest, 2, 1, 100, 4);
    auto* rest = As<Pause>(Events(2, 1)[0]);
    const Rect r = RectOf(rest);
    Item(kDot + 1);
    MouseDown(*window, (r.left + r.right) / 2, (r.top + r.bottom) / 2, 0);
    EXPECT_EQ(DotCount(rest), 2);
    EXPECT_DOUBLE_EQ(Duration(rest), 437.5);
    ExpectSound();
}

TEST_F(Insertion, SecondVoiceTurnsStemsApart) {
    Enter(kQuarter, 1, 1, 100, 8);
    EXPECT_FALSE(IsUp(StemOf(As<Chords>(Events(1, 1)[0]))->_direction));
    SetCurrentVoice(2);
    Enter(kHalf, 1, 1, 100, 2);
    EXPECT_TRUE(IsUp(StemOf(As<Chords>(Events(1, 1, 1)[0]))->_direction));
    EXPECT_FALSE(IsUp(StemOf(As<Chords>(Events(1, 1, 2)[0]))->_direction));
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 1 1 76 64\n1 1 0 1 3 0 1 2 65 64\n");
    ExpectSound();
}

TEST_F(Insertion, BassStaffSoundsLower) {
    Enter(kQuarter, 1, 2, 100, 9);
    EXPECT_EQ(Notes(), "1 1 0 1 2 0 2 1 57 64\n");
}

TEST_F(Insertion, GraceNotesTakeNoTimeOfTheirOwn) {
    Enter(kHalf, 1, 1, 100, 3);
    Enter(kHalf, 1, 1, 900, 3);
    ToggleGrace();
    Enter(kSixteenth, 1, 1, 300, 5);
    ASSERT_EQ(Events(1, 1).size(), 3u);
    EXPECT_TRUE(IsGrace(Events(1, 1)[1]));
    EXPECT_TRUE(IsUp(StemOf(As<Chords>(Events(1, 1)[1]))->_direction));
    ExpectSound();
}

TEST_F(Insertion, EighthsOfABeatShareABeam) {
    for (int i = 0; i < 4; ++i) Enter(kEighth, 1, 1, 900, 3 + i);
    const auto events = Events(1, 1);
    ASSERT_EQ(events.size(), 4u);
    const auto beam = [&](int i) { return BeamOf(StemOf(As<Chords>(events[static_cast<size_t>(i)]))); };
    EXPECT_TRUE(beam(0));
    EXPECT_EQ(beam(0), beam(1));
    EXPECT_EQ(beam(2), beam(3));
    EXPECT_NE(beam(0), beam(2));
    EXPECT_FALSE(FlagOf(StemOf(As<Chords>(events[0]))));
    ExpectSound();
}

TEST_F(Insertion, NothingHappensWhilePlayingOrWithoutAStaff) {
    ThePlayFlags().playing = ThePlayFlags().clockRunning = true;
    Enter(kQuarter, 1, 1, 100, 3);
    ThePlayFlags().playing = ThePlayFlags().clockRunning = false;
    EXPECT_EQ(Notes(), "");
    auto bare = Open("", 2, 1);
    SetToolMode(ModePencil);
    MouseDown(*bare, 3000, 2000, 0);
    ExpectSound(*bare);
}

}  // namespace
}  // namespace corvane
