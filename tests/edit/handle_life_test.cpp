// When control points are there, how they are selected, and what Clear makes of them.
#include "edit/Texts.h"
#include "handle_fixture.h"
#include "layout/Engraving.h"
#include "layout/TieShape.h"

namespace corvane {
namespace {

class HandleLifeTest : public HandleTest {
protected:
    struct Listener : EditorShell {
        std::string heard;
        void Tell(std::string_view text) override { heard = text; }
    };
    bool IsOn() { return window->Handles().IsAnyOn(); }
};

TEST_F(HandleLifeTest, ACommandTurnsAKindOnAndOff) {
    Fill(1, 1, "4:3 4:4");
    SetToolMode(ModePencil);
    ApplyToolMode();
    Do(kStems, {});
    EXPECT_EQ(Tools().toolMode, ModeArrow);
    EXPECT_EQ(Count(), 2u);
    Do(kBarlines, {});
    EXPECT_EQ(Count(), 10u) << "several kinds at once";
    Do(kStems, {});
    EXPECT_EQ(Count(), 8u);
    Do(kStaves, {});
    Do(kHide, {});
    EXPECT_FALSE(IsOn());
    EXPECT_EQ(Refusal(kHide, {}), "No control points are shown");
    EXPECT_NE(Refusal(kStems, {{"height", "2"}}), "");
}

TEST_F(HandleLifeTest, WhatIsNotThereIsTold) {
    Listener listener;
    WindowTarn quiet(listener);
    quiet.Activate();
    quiet.Bind(BuildNewScore({2, 1}, "S"));
    ASSERT_TRUE(RunCommand(quiet, kTies, {}));
    EXPECT_EQ(listener.heard, "There are no ties on this page.");
    EXPECT_TRUE(quiet.Handles().IsOn(HandleKind::Tie)) << "those to come will have one";
    ASSERT_TRUE(RunCommand(quiet, kStaves, {}));
    window->Activate();
    EXPECT_FALSE(quiet.Handles().IsAnyOn()) << "another window became the active one";
}

TEST_F(HandleLifeTest, AnotherToolOrPageEndsThem) {
    for (const char key : {'3', 'e', 'p', 'r'}) {
        Do(kStaves, {});
        KeyChar(*window, 'a');
        ASSERT_TRUE(IsOn());
        KeyChar(*window, key);
        EXPECT_FALSE(IsOn()) << key;
    }
    ASSERT_TRUE(RunCommand(*window, 32790, {{"count", "1"}}));
    Do(kStaves, {});
    Page* second = documentPages.Last(Score());
    window->SetCurrentPage(second == window->CurrentPage() ? documentPages.First(Score()) : second);
    EXPECT_FALSE(IsOn());
}

TEST_F(HandleLifeTest, TheyFollowWhatTheySteer) {
    Fill(1, 1, "4:3 4:4");
    Stem* stem = StemOf(Event(1, 1, 0));
    Do(kStems, {});
    const Point before = HandleOf(stem).place;
    Drag(HandleOf(stem), {0, -100});
    EXPECT_EQ(HandleOf(stem).place, (before + Point{0, -100}));
    EXPECT_TRUE(window->Handles().IsSelected(HandleOf(stem)));
    window->Undo();
    EXPECT_EQ(HandleOf(stem).place, before);
    window->Redo();
    EXPECT_EQ(HandleOf(stem).place, (before + Point{0, -100}));
    window->TheSelection().Add(RectOf(Head(1, 1, 1)));
    ASSERT_TRUE(RunCommand(*window, kClear, {}));
    EXPECT_FALSE(IsOn());
}

TEST_F(HandleLifeTest, WhatGoesMeanwhileIsNoLongerDragged) {
    Fill(1, 1, "4:3 4:4");
    Stem* stem = StemOf(Event(1, 1, 1));
    Do(kStems, {});
    const Point at = HandleOf(stem).place;
    MouseDown(*window, at.x, at.y, 0);
    MouseMove(*window, at.x, at.y - 200);
    EXPECT_EQ(HandleOf(stem).place, (at + Point{0, -200})) << "it is seen where the pointer is";
    EXPECT_EQ(stem->_length, 300) << "nothing has changed yet";
    window->Undo();
    EXPECT_EQ(Count(), 1u);
    StateKeeper keeper(*window);
    MouseMove(*window, at.x, at.y - 300);
    MouseUp(*window, at.x, at.y - 300);
    EXPECT_EQ(keeper.commands, 0);
}

TEST_F(HandleLifeTest, AClickSelectsOneAndOnceMoreNone) {
    Fill(1, 1, "4:3 4:4");
    Do(kStems, {});
    const Handle one = HandleOf(StemOf(Event(1, 1, 0))), two = HandleOf(StemOf(Event(1, 1, 1)));
    const auto selected = [&] { return window->Handles().Selected().size(); };
    Click(one);
    EXPECT_TRUE(window->Handles().IsSelected(one));
    MouseDown(*window, two.place.x + 20, two.place.y - 20, kShift);
    MouseUp(*window, two.place.x + 20, two.place.y - 20);
    EXPECT_EQ(selected(), 1u) << "Shift takes no further one";
    EXPECT_TRUE(window->Handles().IsSelected(two));
    Click(two);
    EXPECT_EQ(selected(), 0u);
    Click(one);
    const Point away = At(2, 1, 500, 15);
    MouseDown(*window, away.x, away.y, 0);
    MouseUp(*window, away.x, away.y);
    EXPECT_EQ(selected(), 0u) << "a press elsewhere";
}

TEST_F(HandleLifeTest, ADragMovesAllThatABandHasTaken) {
    Fill(1, 1, "4:3 4:3");
    Stem *one = StemOf(Event(1, 1, 0)), *two = StemOf(Event(1, 1, 1));
    Do(kStems, {});
    Do(kBarlines, {});
    Lasso(1, -50, 1, 900);
    EXPECT_EQ(window->Handles().Selected().size(), 2u);
    Move(HandleOf(one), {0, -40});
    EXPECT_EQ(one->_length, 340);
    EXPECT_EQ(two->_length, 340);
    // Barlines keep their distances where there is room.
    const Measure *first = MeasureNumber(1), *second = MeasureNumber(2);
    const int32_t edge = first->_right, next = second->_right;
    window->Handles().SelectNothing();
    window->Handles().Select(HandleOf(first, 1));
    window->Handles().Select(HandleOf(second, 1));
    Move(HandleOf(first, 1), {200, 0});
    EXPECT_EQ(first->_right, edge + 200);
    EXPECT_EQ(second->_right, next + 200);
}

TEST_F(HandleLifeTest, KeysGoFromOneToTheNextAndMoveIt) {
    Fill(1, 1, "4:3 4:4");
    EXPECT_FALSE(WalkHandles(*window, true)) << "none is shown";
    Do(kStems, {});
    EXPECT_FALSE(NudgeHandles(*window, {0, -20})) << "none is selected";
    Stem *one = StemOf(Event(1, 1, 0)), *two = StemOf(Event(1, 1, 1));
    for (const auto& [forward, selected] : {std::pair{true, one}, {true, two}, {true, one}, {false, two}}) {
        ASSERT_TRUE(WalkHandles(*window, forward));
        EXPECT_EQ(window->Handles().Selected().size(), 1u);
        EXPECT_TRUE(window->Handles().IsSelected(HandleOf(selected)));
    }
    Step([&] { ASSERT_TRUE(NudgeHandles(*window, {0, -20})); });
    EXPECT_EQ(two->_length, 320);
    StateKeeper keeper(*window);
    EXPECT_TRUE(NudgeHandles(*window, {20, 0}));
    EXPECT_EQ(keeper.commands, 0) << "a stem stands upright";
}

TEST_F(HandleLifeTest, TheyGoBeforeWhatLiesUnderThem) {
    const Measure* first = MeasureNumber(1);
    Do(kBarlines, {});
    const Point at = HandleOf(first, 1).place;
    InsertMeasureStaffText(*window, Crossing(1, 1), {at.x - 100, at.y + 60}, "dolce", {});
    ASSERT_TRUE(window->Sheet().HitSymbol(at).Record<MeasureStaffText>());
    MouseDoubleClick(*window, at.x, at.y, 0);
    EXPECT_EQ(window->textEntry, nullptr);
    EXPECT_TRUE(window->Handles().IsSelected(HandleOf(first, 1)));
    EXPECT_TRUE(window->TheSelection().IsEmpty());
}

TEST_F(HandleLifeTest, ACopyKeepsWhatAPersonHasTold) {
    Fill(1, 1, "4:3 4:8 4:8");
    ASSERT_TRUE(TieNotesOf(*window, {Head(1, 1, 1)}));
    Do(kStems, {});
    Do(kTies, {});
    const Stem* stem = StemOf(Event(1, 1, 0));
    Drag(HandleOf(stem), {0, -80});
    for (const Handle& handle : window->Handles().All())
        if (handle.kind == HandleKind::Tie) Drag(handle, {0, -120});
    Lasso(1, -50, 1, 1000);
    constexpr int kCopy = 57634, kPaste = 57637;
    ASSERT_TRUE(RunCommand(*window, kCopy, {}));
    window->caret = {MeasureNumber(2), StaffNumber(1), At(2, 1, 0, 5).x, true};
    ASSERT_TRUE(RunCommand(*window, kPaste, {}));
    const Stem* copy = StemOf(Event(2, 1, 0));
    EXPECT_EQ(copy->_length, stem->_length);
    EXPECT_TRUE(IsLengthTold(copy));
    const auto told = [&](int measure) {
        for (const NoteAttribute* attribute : noteAttributes.Of(Head(measure, 1, 1)))
            if (const auto* mark = As<MarkValue>(attribute)) return ToldHeight(tieMarks.ParentOf(mark));
        return 0;
    };
    EXPECT_NE(told(1), 0);
    EXPECT_EQ(told(2), told(1));
}

TEST_F(HandleLifeTest, ClearTakesTupletsAndSlursAway) {
    Fill(1, 1, "4:3 4:4 4:5");
    Fill(2, 1, "4:3 4:4");
    ASSERT_TRUE(MakeTuplets(*window, Events(1, 1), {}));
    ASSERT_TRUE(InsertSlur(*window, Event<>(2, 1, 0), Event<>(2, 1, 1)));
    constexpr int16_t kIrregular = 36, kSlur = 91;
    for (const auto& [command, number] : {std::pair{kTuplets, kIrregular}, {kSlurs, kSlur}}) {
        Do(command, {});
        ASSERT_EQ(SpannerTest::Count(number), 1);
        for (const Handle& handle : window->Handles().All()) window->Handles().Select(handle);
        Step([&] { ASSERT_TRUE(RunCommand(*window, kClear, {})); });
        EXPECT_EQ(SpannerTest::Count(number), 0);
        EXPECT_FALSE(IsOn());
    }
    EXPECT_EQ(Events(1, 1).size(), 3u) << "the notes stay";
    Do(kStems, {});
    Click(HandleOf(StemOf(Event(1, 1, 0))));
    StateKeeper keeper(*window);
    ASSERT_TRUE(RunCommand(*window, kClear, {}));
    EXPECT_EQ(keeper.commands, 0) << "a stem does not go by itself";
}

}  // namespace
}  // namespace corvane
