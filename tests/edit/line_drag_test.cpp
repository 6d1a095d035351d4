// Hairpins, octave, trill and pedal lines by their handles.
#include "drag_fixture.h"
#include "layout/SpannerLines.h"

namespace corvane {
namespace {

class LineDragTest : public DragTest {
protected:
    StaffMeasureSymbol* Made(int16_t number) {
        for (const DrawPatch& patch : window->Sheet().AllPatches())
            if (patch.ClassNumber() == number) return patch.Record<StaffMeasureSymbol>();
        ADD_FAILURE() << "no mark of class " << number;
        return nullptr;
    }
    LinePlace Shown(const StaffMeasureSymbol* mark) { return PlaceOf(PartOf(mark), RunOf(mark)); }
    // A line of each kind over the middle of measures 1 and 2, each at a height of its own.
    void MakeLines() {
        MeasureStaff *first = Crossing(1, 1), *last = Crossing(2, 1);
        ASSERT_TRUE(InsertHairpin(*window, {first, last, 300, 600, 6000}, HairpinKind::Crescendo));
        ASSERT_TRUE(InsertOttava(*window, {first, last, 300, 600, -3000}, "_8vaSu_"));
        ASSERT_TRUE(InsertTrillo(*window, {first, last, 300, 600, -7000}));
        ASSERT_TRUE(InsertPedale(*window, {first, last, 300, 600, 9000}));
        SetToolMode(ModeArrow);
    }
    // Drags as one step, during which the score stays.
    void Pull(const StaffMeasureSymbol* mark, Point from, Point by) {
        const LineRun before = RunOf(mark);
        Step([&] {
            Take(from);
            MouseMove(*window, from.x + by.x, from.y + by.y);
            EXPECT_FALSE(PictureLines(true).empty());
            EXPECT_EQ(RunOf(mark), before);
            MouseUp(*window, from.x + by.x, from.y + by.y);
        });
    }
    // A point of the line that is really on its ink.
    Point On(const StaffMeasureSymbol* mark, int32_t x) {
        const DrawPatch patch = PatchOf(const_cast<StaffMeasureSymbol*>(mark));
        const std::vector<Point> line = patch.Behaviour().Outline(patch.Object());
        for (size_t i = 1; i < line.size(); ++i)
            if (line[i - 1].x <= x && x <= line[i].x) {
                const int32_t way = std::max(line[i].x - line[i - 1].x, 1);
                return {x, line[i - 1].y + (line[i].y - line[i - 1].y) * (x - line[i - 1].x) / way};
            }
        return line.empty() ? Point{} : Point{x, line.front().y};
    }
};

TEST_F(LineDragTest, ThePlaceOfThePressChoosesTheHandle) {
    MakeLines();
    const struct {
        int16_t mark;
        bool hasStart;
    } cases[] = {{MarkHairpin::kClass, true},
                 {MarkOttava::kClass, true},
                 {MarkTrillo::kClass, true},
                 {MarkPedale::kClass, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mark);
        const StaffMeasureSymbol* mark = Made(c.mark);
        LinePlace was = Shown(mark);
        Pull(mark, On(mark, was.left + 10), {-150, 40});
        LinePlace now = Shown(mark);
        EXPECT_NEAR(now.left, was.left - 150, 3);
        EXPECT_NEAR(now.right, was.right - (c.hasStart ? 0 : 150), 3);
        EXPECT_EQ(now.y, was.y + (c.hasStart ? 0 : 40)) << "an end goes sideways only";
        was = now;
        const int32_t end = PatchOf(Made(c.mark)).Bounds().right - 20;
        // The axis: the lines of a hairpin are its opening there.
        Pull(mark, {end, c.mark == MarkHairpin::kClass ? was.y : On(mark, end).y}, {130, 40});
        now = Shown(mark);
        EXPECT_EQ(now.left, was.left);
        EXPECT_NEAR(now.right, was.right + 130, 3);
        was = now;
        Pull(mark, On(mark, (was.left + was.right) / 2), {90, -70});
        now = Shown(mark);
        EXPECT_NEAR(now.left, was.left + 90, 3);
        EXPECT_NEAR(now.right, was.right + 90, 3);
        EXPECT_EQ(now.y, was.y - 70);
        ExpectSameAfterReload();
    }
}

TEST_F(LineDragTest, AHairpinOpensByItsLines) {
    MakeLines();
    const StaffMeasureSymbol* mark = Made(MarkHairpin::kClass);
    const LinePlace place = Shown(mark);
    const LineRun run = RunOf(mark);
    const Point upper{place.right - 10, place.y - run.opening * 100 / 2000};
    Pull(mark, upper, {5, -50});
    LineRun wider = run;
    wider.opening += 1000;
    EXPECT_EQ(RunOf(mark), wider);
    Pull(mark, {place.right - 10, place.y + wider.opening * 100 / 2000}, {0, -900});
    EXPECT_EQ(RunOf(mark).opening, 200) << "never shut";
}

TEST_F(LineDragTest, EndsGoIntoOtherMeasuresAndSystemsAndMarksFollow) {
    MakeLines();
    MeasureStaff *first = Crossing(1, 1), *next = Crossing(3, 1), *below = Crossing(5, 1);
    ASSERT_NE(SystemPar(MeasurePar(next)), SystemPar(MeasurePar(below)));
    StaffMeasureSymbol* mark = Made(MarkOttava::kClass);
    LinePlace place = Shown(mark);
    Pull(mark, On(mark, place.right - 10), {At(3, 1, 500, 5).x - place.right, 0});
    EXPECT_EQ(RunOf(mark).last, next);
    EXPECT_NEAR(RunOf(mark).to, 500, 5);
    EXPECT_EQ(MarksOf(mark).size(), 2u);

    place = Shown(mark);
    const Point from = On(mark, place.right - 10), to = At(5, 1, 250, 12);
    Pull(mark, from, {to.x - from.x, to.y - from.y});
    EXPECT_EQ(RunOf(mark).first, first);
    EXPECT_EQ(RunOf(mark).last, below);
    EXPECT_NEAR(RunOf(mark).to, 250, 5);
    EXPECT_EQ(MarksOf(mark).size(), 2u) << "no system lies between";
    EXPECT_TRUE(PartOf(MarksOf(mark).back())) << "it shows on the second system";
    ExpectSameAfterReload();

    // Back again by the piece below.
    const StaffMeasureSymbol* piece = MarksOf(mark).back();
    const Point end = On(piece, Shown(piece).right - 10), back = At(2, 1, 500, 12);
    Pull(mark, end, {back.x - end.x, back.y - end.y});
    EXPECT_EQ(RunOf(mark).last, Crossing(2, 1));
}

TEST_F(LineDragTest, AnEndStopsShortOfTheOtherAndAWholeInItsSystem) {
    MakeLines();
    const StaffMeasureSymbol* mark = Made(MarkPedale::kClass);
    const LinePlace was = Shown(mark);
    Pull(mark, On(mark, was.right - 10), {50 - was.right, 0});
    EXPECT_EQ(Shown(mark).left, was.left);
    EXPECT_NEAR(Shown(mark).right, was.left + 100, 3);
    const Point middle = On(mark, (Shown(mark).left + Shown(mark).right) / 2);
    const int32_t width = PageRect(window->CurrentPage()).right;
    Pull(mark, middle, {width - 5 - middle.x, 0});
    EXPECT_EQ(RunOf(mark).last, Crossing(3, 1));
    EXPECT_EQ(RunOf(mark).to, 1000);
    EXPECT_NEAR(Shown(mark).right - Shown(mark).left, 100, 4) << "as long as before";
}

TEST_F(LineDragTest, APlayOrUndoInTheMiddleOfItEndsIt) {
    MakeLines();
    const StaffMeasureSymbol* mark = Made(MarkPedale::kClass);
    const LineRun run = RunOf(mark);
    const Point at = On(mark, Shown(mark).right - 10);
    Take(at);
    MouseMove(*window, at.x + 200, at.y);
    ASSERT_FALSE(window->Sheet().Lifted().empty());
    window->Undo();
    EXPECT_TRUE(PictureLines(true).empty());
    MouseUp(*window, at.x + 200, at.y);
    EXPECT_TRUE(window->Sheet().Lifted().empty());
    window->Redo();
    EXPECT_EQ(RunOf(Made(MarkPedale::kClass)), run);
    ExpectFiled();
}

}  // namespace
}  // namespace corvane
