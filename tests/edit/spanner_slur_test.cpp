// Slurs and the signs on their notes: what stands inside, what outside, and that the sheet follows.
#include "edit/CommandTable.h"
#include "layout/SlurShape.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

constexpr int kTransposeItems = 32819;

class SlurTest : public SpannerTest {
protected:
    void Sign(int group, int item, const GenericNote* note) {
        SetToolMode(ModePencil);
        SetPaletteGroup(static_cast<uint8_t>(group));
        SetItem(static_cast<uint16_t>(item));
        const Point p = MiddleOf(RectOf(note));
        MouseDown(*window, p.x, p.y, 0);
    }
    void Slur(const GenericNote* from, const GenericNote* to) {
        Stroke(1, 28, MiddleOf(RectOf(from)), MiddleOf(RectOf(to)));
    }
    template <class R>
    static Rect InkOn(const GenericNote* note) {
        for (NoteAttribute* attribute : noteAttributes.Of(note))
            if (auto* sign = As<R>(attribute)) return PatchOf(sign).Bounds();
        return {};
    }
    TaperedCurve Curve() { return CurveOf(*First<MarkSlur>(1, 1)); }
    // How far a sign's ink stands beyond the slur's middle line, upward.
    int32_t Beyond(const Rect& ink) {
        int32_t least = INT32_MAX;
        for (const Point p : PointsAlong(Curve()))
            if (ink.left <= p.x && p.x <= ink.right) least = std::min(least, p.y - ink.bottom);
        return least;
    }
};

TEST_F(SlurTest, FermatasStandOutsideAndArticulationsInside) {
    Fill(1, 1, "4:7 4:9 4:8 4:9");
    Fill(2, 1, "4:8 4:7");
    GenericNote *first = Head(1, 1, 0), *between = Head(1, 1, 2), *last = Head(2, 1, 1);
    for (const GenericNote* note : {between, last}) Sign(7, 13, note);
    for (const GenericNote* note : {first, last}) Sign(4, 1, note);
    const int32_t alone = InkOn<Corona>(last).bottom;
    Step([&] { Slur(first, last); });
    ASSERT_TRUE(IsAbove(slurMarks.ParentOf(First<MarkSlur>(1, 1))));
    for (const GenericNote* note : {between, last}) EXPECT_GE(Beyond(InkOn<Corona>(note)), 20);
    EXPECT_LE(Curve().from.y, InkOn<Articolazione>(first).top - 20);
    EXPECT_LE(Curve().to.y, InkOn<Articolazione>(last).top - 20);

    // A note in another measure lifts the slur, and with it what stands outside.
    const int32_t before = InkOn<Corona>(last).bottom;
    Step([&] { Do(kTransposeItems, {{"interval", "P8"}, {"from", "1"}, {"to", "1"}}); });
    EXPECT_LT(InkOn<Corona>(last).bottom, before);
    EXPECT_GE(Beyond(InkOn<Corona>(last)), 20);
    const Point middle = PointsAlong(Curve())[PointsAlong(Curve()).size() / 2];
    Step([&] { EraseAt(middle); });
    ASSERT_EQ(Count(MarkSlur::kClass), 0);
    EXPECT_EQ(InkOn<Corona>(last).bottom, alone);
}

// The heads' side is below: the flags and beams of grace notes are above.
TEST_F(SlurTest, FromAGraceNoteToItsMainNoteASlurRunsFromHeadToHead) {
    for (const int line : {2, 9}) {
        window = Open("S", 2, 1);
        Fill(1, 1, "2:5 2:" + std::to_string(line));
        Tools().graceMode = true;
        Enter(kEighth, 1, 1, XOf(Events(1, 1)[1]) - 60, 6);
        Tools().graceMode = false;
        ASSERT_TRUE(IsGrace(Events(1, 1)[1]));
        const GenericNote *grace = Head(1, 1, 1), *main = Head(1, 1, 2);
        Step([&] { Slur(grace, main); });
        const Rect from = RectOf(grace), to = RectOf(main);
        EXPECT_GE(Curve().from.y, from.bottom);
        EXPECT_GE(Curve().to.y, to.bottom);
        EXPECT_LE(Curve().to.y, to.bottom + 60) << "at the head, not at the end of its stem";
        EXPECT_LE(Curve().to.x, to.right);
    }
}

TEST_F(SlurTest, GoesWithItsNoteBesideAnotherVoiceThatBeginsWithAnAccidental) {
    Fill(1, 1, "4:7 4:9");
    GenericNote *first = Head(1, 1, 0), *last = Head(1, 1, 1);
    Tools().currentVoice = 2;
    Fill(1, 1, "4:2");
    Sign(1, 23, chordNotes.First(As<Chords>(Events(1, 1, 2).front())));
    Tools().currentVoice = 1;
    Slur(first, last);
    ASSERT_TRUE(First<MarkSlur>(1, 1));
    Step([&] {
        Lasso(1, -60, 1, 60);
        EXPECT_TRUE(RunCommand(*window, 32774));
    });
    EXPECT_FALSE(First<MarkSlur>(1, 1));
    EXPECT_TRUE(As<Pause>(Events(1, 1).front()));
}

}  // namespace
}  // namespace corvane
