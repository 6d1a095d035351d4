// What the arrow drags: the picture until the release, and the score after it.
#include "drag_fixture.h"
#include "edit/Texts.h"
#include "layout/NoteSigns.h"
#include "layout/TextPlaces.h"

namespace corvane {
namespace {

TEST_F(DragTest, SignsAndTextsGoWhereTheyAreTaken) {
    Fill(1, 1, "4:3 4:5 4:7");
    PressItem(3, 4, At(1, 1, 250, -4));
    PressItem(6, 12, At(2, 1, 500, -3));
    PressItem(4, 4, MiddleOf(RectOf(Head(1, 1, 1))));
    PressItem(1, kSharp, MiddleOf(RectOf(Head(1, 1, 2))));
    ASSERT_TRUE(RunCommand(*window, 32778, {{"measure", "2"}, {"bpm", "90"}}));
    ASSERT_TRUE(RunCommand(*window, 32797, {{"measure", "3"}, {"text", "Fine"}}));
    InsertMeasureStaffText(*window, Crossing(2, 1), At(2, 1, 300, 14), "dolce", {});
    InsertPageText(*window, window->CurrentPage(), {900, 700}, "Chorus", {});
    ExpectDragged(Only<Dinamiche>(), {300, -220});
    ExpectDragged(Only<SimboliVari>(), {-150, 90});
    ExpectDragged(Only<MeasureStaffText>(), {200, -60});
    ExpectDragged(Only<PageText>(), {1200, 150});
    ExpectDragged(Only<Time>(), {140, -100});
    ExpectDragged(Only<Coda>(), {-60, -80});
    ExpectDragged(Only<Articolazione>(), {20, 70});
    ExpectDragged(Only<Accident>(), {-40, 0});
}

TEST_F(DragTest, RestsGoUpAndDownThoseOnLinesFromLineToLine) {
    Fill(1, 1, "r4 r2");
    auto* quarter = As<Pause>(Events(1, 1)[0]);
    auto* half = As<Pause>(Events(1, 1)[1]);
    const int32_t quarterY = PlaceOf(quarter).y, halfY = PlaceOf(half).y, halfX = PlaceOf(half).x;
    ExpectDragged(quarter, {0, 130});
    EXPECT_EQ(PlaceOf(quarter).y, quarterY + 130);
    const Point from = MiddleOf(RectOf(half));
    Step([&] {
        Take(from);
        MouseUp(*window, from.x + 400, from.y - 160);
    });
    EXPECT_EQ(PlaceOf(half).y, halfY - 200);
    EXPECT_EQ(PlaceOf(half).x, halfX) << "its time says where it stands";
}

TEST_F(DragTest, AnEndingGoesUpAndDownWithAllItsMarks) {
    ASSERT_TRUE(InsertEndings(*window, {MeasureNumber(2), MeasureNumber(5)}, "1."));
    std::vector<Rect> before;
    const auto marks = [&] {
        std::vector<Rect> rects;
        for (const DrawPatch& patch : window->Sheet().AllPatches())
            if (patch.Record<MarkEndings>()) rects.push_back(patch.Bounds());
        return rects;
    };
    before = marks();
    ASSERT_EQ(before.size(), 4u);
    const Point from{(before[1].left + before[1].right) / 2, (before[1].top + before[1].bottom) / 2};
    Step([&] {
        Take(from);
        MouseMove(*window, from.x + 300, from.y - 80);
        EXPECT_EQ(window->Sheet().Lifted().size(), 4u);
        EXPECT_EQ(marks(), before);
        MouseUp(*window, from.x + 300, from.y - 80);
    });
    for (Rect& rect : before) rect = rect.MovedBy(0, -80);
    EXPECT_EQ(marks(), before);
    EXPECT_FALSE(SelectionRects(*window).empty()) << "it stays selected";
    ExpectSameAfterReload();
}

TEST_F(DragTest, AClefGovernsWhatIsRightOfWhereItIsLetGo) {
    Fill(1, 1, "4:5 4:5 4:5 4:5");
    PressClef(2, 1, 1, 400);
    SetToolMode(ModeArrow);
    const auto lines = [&] { return Lines(1, 1); };
    const std::vector<int> before = lines();
    ASSERT_NE(before[3], 5) << "read by a bass clef";
    const std::string sound = Notes();
    const auto drag = [&](int32_t to) {
        const Point from = MiddleOf(PatchOf(First<MovingClaf>(1, 1)).Bounds());
        Take(from);
        MouseMove(*window, to, from.y + 200);
        MouseUp(*window, to, from.y + 200);
    };
    const auto xOf = [&](int event) { return RectOf(Head(1, 1, event)).right + 10; };
    Step([&] { drag(xOf(0)); });
    EXPECT_EQ(lines(), (std::vector<int>{5, before[3], before[3], before[3]}));
    Step([&] { drag(xOf(2)); });
    EXPECT_EQ(lines(), (std::vector<int>{5, 5, 5, before[3]}));
    EXPECT_EQ(Notes(), sound);
    Step([&] { drag(At(3, 1, 500, 5).x); });
    EXPECT_EQ(lines(), (std::vector<int>{5, 5, 5, 5})) << "it stays in its measure";
    EXPECT_EQ(Notes(), sound);
    ExpectSameAfterReload();

    // Not past another clef, which would govern nothing.
    PressClef(6, 1, 1, 100);
    SetToolMode(ModeArrow);
    ASSERT_EQ(Count(MovingClaf::kClass), 2);
    StateKeeper keeper(*window);
    MovingClaf* last = nullptr;
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(Crossing(1, 1)))
        if (auto* clef = As<MovingClaf>(symbol); clef && (!last || clef->_place > last->_place)) last = clef;
    const Point from = MiddleOf(PatchOf(last).Bounds());
    Take(from);
    MouseUp(*window, At(1, 1, 0, 5).x, from.y);
    EXPECT_EQ(keeper.commands, 0);
    EXPECT_EQ(Notes(), sound);
}

TEST_F(DragTest, AHeadGoesFromStepToStep) {
    Fill(1, 1, "4:3 8:4 8:5");
    for (const int place : {0, 1}) {
        GenericNote* note = Head(1, 1, place);
        const int line = note->_line;
        const Point from = MiddleOf(RectOf(note));
        Step([&] {
            Take(from);
            MouseMove(*window, from.x + 70, from.y - 260);
            const std::vector<std::string> ghost = PictureLines(true);
            EXPECT_EQ(std::count_if(ghost.begin(), ghost.end(),
                                    [](const std::string& call) { return call.starts_with("char"); }),
                      1);
            EXPECT_EQ(note->_line, line);
            MouseUp(*window, from.x + 70, from.y - 260);
        });
        EXPECT_EQ(Head(1, 1, place)->_line, line + 5);
    }
}

TEST_F(DragTest, APressAloneOrATrembleChangesNothing) {
    Fill(1, 1, "4:3 r4");
    PressItem(3, 4, At(1, 1, 250, -4));
    for (const Point at : {MiddleOf(PatchOf(Only<Dinamiche>()).Bounds()), MiddleOf(RectOf(Head(1, 1, 0)))}) {
        StateKeeper keeper(*window);
        Take(at);
        MouseMove(*window, at.x + 9, at.y - 9);
        EXPECT_TRUE(PictureLines(true).empty());
        MouseUp(*window, at.x + 9, at.y - 9);
        EXPECT_EQ(keeper.commands, 0);
        EXPECT_FALSE(window->TheSelection().IsEmpty()) << "it is selected";
    }
}

TEST_F(DragTest, WhatGoesMeanwhileIsNoLongerDragged) {
    PressItem(3, 4, At(1, 1, 250, -4));
    const Point at = MiddleOf(PatchOf(Only<Dinamiche>()).Bounds());
    Take(at);
    MouseMove(*window, at.x + 200, at.y);
    ASSERT_EQ(window->Sheet().Lifted().size(), 1u);
    window->Undo();
    EXPECT_TRUE(window->Sheet().Lifted().empty());
    MouseMove(*window, at.x + 300, at.y);
    EXPECT_TRUE(PictureLines(true).empty());
    MouseUp(*window, at.x + 300, at.y);
    EXPECT_EQ(Only<Dinamiche>(), nullptr);
    window->Redo();
    ASSERT_NE(Only<Dinamiche>(), nullptr);
    EXPECT_EQ(MiddleOf(PatchOf(Only<Dinamiche>()).Bounds()), at);

    // Another tool in the middle of it puts it down.
    Take(at);
    MouseMove(*window, at.x + 200, at.y);
    SetToolMode(ModePencil);
    ApplyToolMode();
    EXPECT_TRUE(window->Sheet().Lifted().empty());
    MouseUp(*window, at.x + 300, at.y);
    EXPECT_EQ(MiddleOf(PatchOf(Only<Dinamiche>()).Bounds()), at);
    ExpectFiled();

    // So does a step taken back that is another's.
    Fill(2, 1, "4:3");
    Fill(3, 1, "4:3");
    const Point from = MiddleOf(RectOf(Head(2, 1, 0)));
    Take(from);
    MouseMove(*window, from.x, from.y - 200);
    window->Undo();
    EXPECT_FALSE(window->interaction);
    MouseUp(*window, from.x, from.y - 200);
    EXPECT_EQ(Head(2, 1, 0)->_line, 3);
}

TEST_F(DragTest, AnArticulationPressedOnTheStemGoesToItsChord) {
    Fill(1, 1, "4:3");
    const StemLine stem = LineOf(StemOf(Event(1, 1, 0)));
    PressItem(4, 4, {stem.x - 30, (stem.from + stem.end) / 2});
    EXPECT_NE(Only<Articolazione>(), nullptr);
    PressItem(6, 8, {stem.x - 30, stem.end + 20});
    EXPECT_NE(Only<Tremolo>(), nullptr);
    ExpectSound();
}

}  // namespace
}  // namespace corvane
