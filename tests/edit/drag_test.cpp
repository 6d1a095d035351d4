// What the arrow drags: the picture until the release, and the score after it.
#include "edit/Texts.h"
#include "layout/NoteSigns.h"
#include "layout/TextPlaces.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

class DragTest : public SpannerTest {
protected:
    void PressItem(int group, int item, Point at) {
        SetToolMode(ModePencil);
        SetPaletteGroup(static_cast<uint8_t>(group));
        SetItem(static_cast<uint16_t>(item));
        MouseDown(*window, at.x, at.y, 0);
        SetToolMode(ModeArrow);
    }
    template <class R>
    R* Only() {
        for (const DrawPatch& patch : window->Sheet().AllPatches())
            if (R* record = patch.Record<R>()) return record;
        return nullptr;
    }
    void Take(Point at) {
        SetToolMode(ModeArrow);
        MouseDown(*window, at.x, at.y, 0);
    }
    std::vector<std::string> PictureLines(bool dragged) {
        MemoryPort port(MemoryPort::Tracing::On);
        if (!dragged)
            window->Sheet().Draw(port, PageRect(window->CurrentPage()), {});
        else if (window->interaction)
            window->interaction->Draw(port, {});
        return port.Lines();
    }
    // Drags from an object's middle; it lies there then, and everything else as before.
    void ExpectDragged(void* record, Point by) {
        const DrawPatch patch = PatchOf(record);
        const Rect rect = patch.Bounds();
        const Point from = MiddleOf(rect), to = from + by;
        const size_t calls = PictureLines(false).size();
        Step([&] {
            Take(from);
            EXPECT_TRUE(PictureLines(true).empty()) << "nothing is dragged yet";
            MouseMove(*window, to.x, to.y);
            const size_t own = PictureLines(true).size();
            EXPECT_GT(own, 0u);
            EXPECT_EQ(PictureLines(false).size() + own, calls) << "the page is painted without it";
            EXPECT_EQ(patch.Bounds(), rect) << "nothing has changed yet";
            MouseUp(*window, to.x, to.y);
        });
        const Rect now = patch.Bounds();
        EXPECT_NEAR(now.left, rect.left + by.x, 8);
        EXPECT_NEAR(now.top, rect.top + by.y, 8);
        EXPECT_EQ(PictureLines(false).size(), calls);
        EXPECT_TRUE(window->Sheet().Lifted().empty());
        ExpectSameAfterReload();
    }
};

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
