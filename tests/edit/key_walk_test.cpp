// Keys alone: the selection walks over events, notes move by steps, the pencil finds its places.
#include "edit/CommandTable.h"
#include "edit/KeyWalk.h"
#include "edit/TarnSelect.h"
#include "spanner_fixture.h"
#include "state_keeper.h"

namespace corvane {
namespace {

class KeyWalkTest : public SpannerTest {
protected:
    void SetUp() override {
        SpannerTest::SetUp();
        Fill(1, 1, "4:3 r4 2:5");
        Fill(1, 2, "1:4");
        Fill(3, 1, "2:4 2:6");
        Tools().currentVoice = 0;
        SetToolMode(ModeArrow);
        window->caret = {};
    }
    Status Run(int id) { return RunCommand(*window, id); }
    std::vector<VoiceSymbol*> Selected() {
        SetSelectionAnchors(*window);
        auto symbols = SelectedVoiceSymbols(1);
        ClearSelectionAnchors();
        return symbols;
    }
    // "1/1 0": measure and staff of the caret, the places of the selected events there.
    std::string Where() {
        std::string text = std::to_string(window->caret.measure->_number) + "/" +
                           (window->caret.staff == StaffNumber(1) ? "1" : "2");
        for (VoiceSymbol* symbol : Selected()) {
            const auto events =
                Events(MeasurePar(symbol)->_number, DocStaffPar(symbol) == StaffNumber(1) ? 1 : 2);
            text += " " + std::to_string(std::find(events.begin(), events.end(), symbol) - events.begin());
        }
        return text;
    }
    std::string Lines(int measure) {
        std::string text;
        for (const VoiceSymbol* symbol : Events(measure, 1))
            if (const auto* chord = As<Chords>(symbol))
                for (const GenericNote* note : chordNotes.Of(chord))
                    text += std::to_string(note->_line) + " ";
        return text;
    }
};

TEST_F(KeyWalkTest, TheSelectionGoesFromEventToEventAndThroughEmptyMeasures) {
    const struct {
        int id;
        const char* where;
    } steps[] = {{40060, "1/1 0"},   {40060, "1/1 1"}, {40060, "1/1 2"}, {40060, "2/1"}, {40060, "3/1 0"},
                 {40062, "3/1 0 1"}, {40061, "2/1"},   {40061, "1/1 2"}, {40064, "2/1"}, {40064, "3/1 0"},
                 {40065, "2/1"},     {40065, "1/1 0"}, {40067, "1/2 0"}, {40060, "2/2"}, {40066, "2/1"}};
    const StateKeeper keeper(*window);
    for (const auto& step : steps) {
        ASSERT_TRUE(Run(step.id)) << step.where;
        EXPECT_EQ(Where(), step.where);
    }
    EXPECT_FALSE(Run(40066)) << "there is no staff above";
    EXPECT_EQ(Where(), "2/1");
    EXPECT_EQ(keeper.commands, 0) << "walking changes nothing";
}

TEST_F(KeyWalkTest, TheEndsAreToldAndTheVoiceAtHandIsKept) {
    for (int i = 0; i < 6; ++i) ASSERT_TRUE(Run(40064));
    EXPECT_EQ(Where(), "6/1");
    EXPECT_NE(std::string(Run(40060).message()).find("last event"), std::string::npos);
    SetCurrentVoice(2);
    Enter(kHalf, 1, 1, 500, 1);
    SetToolMode(ModeArrow);
    window->TheSelection().Clear();
    window->caret = {MeasureNumber(1), StaffNumber(1), 0, true};
    ASSERT_TRUE(Run(40060));
    EXPECT_EQ(VoicePar(Events(1, 1, 2)[0])->_number, 2);
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedVoiceSymbols(2), Events(1, 1, 2));
    ClearSelectionAnchors();
    ASSERT_TRUE(Run(40060));
    EXPECT_EQ(window->caret.measure, MeasureNumber(2)) << "events of other voices are passed";
}

TEST_F(KeyWalkTest, SelectedNotesMoveByStepsAndStaySelected) {
    ASSERT_TRUE(Run(40060));
    ASSERT_TRUE(RunCommand(*window, 32781, {{"fifths", "1"}, {"from", "1"}}));
    StateKeeper keeper(*window);
    ASSERT_TRUE(Run(40041));
    EXPECT_EQ(keeper.commands, 1);
    EXPECT_EQ(Lines(1), "2 5 ");
    const GenericNote* note = Head(1, 1, 0);
    EXPECT_EQ(note->_alteration.Get(), Alteration::Sharp) << "as the key has it";
    EXPECT_FALSE(AccidentOf(note));
    EXPECT_EQ(Where(), "1/1 0");
    ASSERT_TRUE(Run(40042));
    EXPECT_EQ(Lines(1), "9 5 ");
    EXPECT_EQ(note->_alteration.Get(), Alteration::Sharp);
    ASSERT_TRUE(Run(33035));
    EXPECT_TRUE(AccidentOf(note));
    EXPECT_FALSE(Run(33035)) << "it is natural already";
    ASSERT_TRUE(Run(32901));
    EXPECT_EQ(note->_alteration.Get(), Alteration::Flat);
    ASSERT_TRUE(Run(32900));
    ExpectSound();
    for (int i = 0; i < 20 && Run(40042); ++i) {
    }
    EXPECT_NE(std::string(Run(40042).message()).find("no key"), std::string::npos)
        << "the highest key is the end";
    ExpectSound();
}

TEST_F(KeyWalkTest, ThePencilWritesAMelodyByKeysAlone) {
    Item(kQuarter);
    SetToolMode(ModePencil);
    std::optional<Point> at = MovePen(*window, {}, PenMove::Right);
    const auto move = [&](PenMove to, int times = 1) {
        while (times--) at = MovePen(*window, at, to);
    };
    move(PenMove::Right, 3);  // over what stands in the first measure, which has no room
    for (int line = 5; line < 9; ++line) {
        at = PressWithPen(*window, *at);
        if (line < 8) move(PenMove::Right);
        move(PenMove::Up);
    }
    EXPECT_EQ(Lines(2), "5 6 7 8 ");
    move(PenMove::Up);
    at = PressWithPen(*window, *at);
    EXPECT_EQ(Lines(2), "5 6 7 8 10 ") << "a further head of the last chord";
    move(PenMove::Right);
    EXPECT_EQ(FindMeasureStaff(FindSystem(window->CurrentPage(), at->y), *at), Crossing(3, 1)) << "full";
    move(PenMove::StaffBelow);
    move(PenMove::Left);
    at = PressWithPen(*window, *at);
    EXPECT_EQ(Events(2, 2).size(), 1u);
    SetToolMode(ModeEraser);
    PressWithPen(*window, *at);
    EXPECT_FALSE(Events(2, 2).empty() || As<Chords>(Events(2, 2)[0])) << "a rest is left";
    for (int i = 0; i < 40; ++i) move(PenMove::Left);
    const Point first = *at;
    move(PenMove::Left);
    EXPECT_EQ(at->x, first.x);
    ExpectSound();
}

TEST_F(KeyWalkTest, TheEraserTakesDots) {
    Fill(2, 1, "4:5 4:6");
    Item(kDot + 1);
    const Point head = MiddleOf(RectOf(Head(2, 1, 0)));
    MouseDown(*window, head.x, head.y, 0);
    ASSERT_EQ(DotCount(Event<>(2, 1, 0)), 2);
    const std::string dotted = Notes();
    EraseAt(MiddleOf(RectOf(DotOf(Event<>(2, 1, 0)))));
    EXPECT_EQ(DotCount(Event<>(2, 1, 0)), 0);
    EXPECT_NE(Notes(), dotted);
    ExpectSound();
    window->Undo();
    EXPECT_EQ(Notes(), dotted);
}

}  // namespace
}  // namespace corvane
