// Arpeggios: entered before a chord, drawn over its heads, dragged, taken away.
#include "drag_fixture.h"
#include "edit/Clipboard.h"
#include "layout/Arpeggios.h"

namespace corvane {
namespace {

class ArpeggioTest : public DragTest {
protected:
    void SetUp() override {
        DragTest::SetUp();
        Fill(1, 1, "2:3 2:5");
        Item(kHalf);
        const Point on = MiddleOf(RectOf(Head(1, 1, 1)));
        MouseDown(*window, on.x, At(1, 1, 0, 9).y, 0);
        ASSERT_EQ(chordNotes.Count(Event(1, 1, 1)), 2);
    }
    Point OnChord() { return MiddleOf(RectOf(Head(1, 1, 1))); }
    void Press() { PressItem(6, 1, OnChord()); }
};

TEST_F(ArpeggioTest, APressOnAChordMakesOneBeforeAllItsHeadsAndASecondTakesIt) {
    Step([&] { Press(); });
    const auto* arpeggio = Only<Arpeggio>();
    ASSERT_NE(arpeggio, nullptr);
    const Rect ink = PatchOf(Only<Arpeggio>()).Bounds();
    for (const GenericNote* note : chordNotes.Of(Event(1, 1, 1))) {
        const Rect head = RectOf(note);
        EXPECT_LT(ink.right, head.left);
        EXPECT_GT(ink.right, head.left - 150);
        EXPECT_LT(ink.top, (head.top + head.bottom) / 2 + 60);
        EXPECT_GT(ink.bottom, (head.top + head.bottom) / 2 - 60);
    }
    ExpectSameAfterReload();
    Step([&] { Press(); });
    EXPECT_EQ(Count(Arpeggio::kClass), 0);
    PressItem(6, 1, At(2, 1, 500, 5));
    EXPECT_EQ(Count(Arpeggio::kClass), 0) << "no chord is there";
}

TEST_F(ArpeggioTest, TheArrowDragsItAndItsLowerEnd) {
    Press();
    auto* arpeggio = Only<Arpeggio>();
    ExpectDragged(arpeggio, {-80, 60});
    const ArpeggioLine was = LineOf(arpeggio);
    const auto pull = [&](int32_t dy) {
        const Rect ink = PatchOf(arpeggio).Bounds();
        const Point end{(ink.left + ink.right) / 2, ink.bottom - 15};
        Step([&] {
            Take(end);
            MouseMove(*window, end.x + 40, end.y + dy);
            EXPECT_FALSE(PictureLines(true).empty());
            MouseUp(*window, end.x + 40, end.y + dy);
        });
    };
    pull(700);
    EXPECT_EQ(LineOf(arpeggio).x, was.x);
    EXPECT_EQ(LineOf(arpeggio).top, was.top);
    EXPECT_EQ(LineOf(arpeggio).bottom, was.bottom + 700) << "over the staff below";
    EXPECT_GT(PatchOf(arpeggio).Bounds().bottom, was.bottom + 500);
    pull(-1500);
    EXPECT_EQ(LineOf(arpeggio).bottom, was.top + 100);
}

TEST_F(ArpeggioTest, EraserAndClearTakeIt) {
    Press();
    Step([&] { EraseAt(MiddleOf(PatchOf(Only<Arpeggio>()).Bounds())); });
    EXPECT_EQ(Count(Arpeggio::kClass), 0);
    Press();
    Take(MiddleOf(PatchOf(Only<Arpeggio>()).Bounds()));
    MouseUp(*window, 0, 0);
    Step([&] { ClearSelection(*window); });
    EXPECT_EQ(Count(Arpeggio::kClass), 0);
    EXPECT_EQ(Events(1, 1).size(), 2u) << "and nothing else";
}

}  // namespace
}  // namespace corvane
