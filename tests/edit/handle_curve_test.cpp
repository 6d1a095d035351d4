// Handles on ties, tuplets and slurs.
#include "handle_fixture.h"
#include "layout/SlurShape.h"
#include "layout/TieShape.h"
#include "layout/TupletShape.h"

namespace corvane {
namespace {

class HandleCurveTest : public HandleTest {
protected:
    const MarkValue* TieMark(int measure, int place) {
        for (const NoteAttribute* attribute : noteAttributes.Of(Head(measure, 1, place)))
            if (const auto* mark = As<MarkValue>(attribute)) return mark;
        return nullptr;
    }
    Irregular* Tuplet(int measure) {
        for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(Events(measure, 1)[0]))
            if (const auto* mark = As<MarkIrreg>(attribute)) return irregularMarks.ParentOf(mark);
        return nullptr;
    }
    TupletPicture PictureOf(const Irregular* tuplet) { return corvane::PictureOf(tuplet, EndsOf(tuplet)); }
};

TEST_F(HandleCurveTest, ATieArchesAsHighAsItIsTaken) {
    Fill(1, 1, "4:8 4:8");
    ASSERT_TRUE(TieNotesOf(*window, {Head(1, 1, 0)}));
    const MarkValue* mark = TieMark(1, 0);
    TieValue* tie = tieMarks.ParentOf(mark);
    const TiePiece before = PieceOf(*mark);
    ASSERT_TRUE(before.up);
    Do(kTies, {});
    ASSERT_EQ(Count(), 1u);
    Move(HandleOf(tie), {70, -120});
    EXPECT_EQ(tie->_height, before.height + 1200);
    EXPECT_EQ(PieceOf(*mark).curve.from, before.curve.from) << "its tips stay";
    EXPECT_NEAR(HandleOf(tie).place.y, before.curve.from.y - (before.height + 1200) / 10 - 60, 1);

    // It bends no further to its notes than a tenth of a space, and near to the usual height it is usual
    // again.
    Move(HandleOf(tie), {0, 2000});
    EXPECT_EQ(tie->_height, -100);
    Move(HandleOf(tie), {0, -(before.height + 100) / 10 - 6});
    EXPECT_EQ(tie->_height, 0);
    EXPECT_EQ(PieceOf(*mark).height, before.height);
}

TEST_F(HandleCurveTest, ATieOverTwoSystemsHasOneHandleForBothPieces) {
    Fill(3, 1, "1:8");
    Fill(4, 1, "4:8");
    ASSERT_TRUE(TieNotesOf(*window, {Head(3, 1, 0)}));
    const MarkValue *first = TieMark(3, 0), *second = TieMark(4, 0);
    TieValue* tie = tieMarks.ParentOf(first);
    Do(kTies, {});
    ASSERT_EQ(Count(), 1u);
    EXPECT_LT(HandleOf(tie).place.y, SystemPar(MeasureNumber(1))->_bottom);
    Move(HandleOf(tie), {0, -90});
    EXPECT_EQ(PieceOf(*first).height, tie->_height);
    EXPECT_EQ(PieceOf(*second).height, tie->_height);
}

TEST_F(HandleCurveTest, ABracketEndsWhereItIsTaken) {
    Fill(1, 1, "4:3 4:4 4:5");
    ASSERT_TRUE(MakeTuplets(*window, Events(1, 1), {}));
    Irregular* tuplet = Tuplet(1);
    const TupletPicture before = PictureOf(tuplet);
    ASSERT_TRUE(before.bracketed);
    Do(kTuplets, {});
    ASSERT_EQ(Count(), 2u);
    Move(HandleOf(tuplet, 0), {-40, -60});
    EXPECT_EQ(tuplet->_leftX, -40);
    EXPECT_EQ(tuplet->_leftY, -60);
    EXPECT_EQ(tuplet->_rightX, 0);
    EXPECT_EQ(PictureOf(tuplet).right, before.right);
    Move(HandleOf(tuplet, 0), {5000, 0});
    EXPECT_EQ(PictureOf(tuplet).left.x, before.right.x - 100) << "a bracket stays a space wide";
    Move(HandleOf(tuplet, 1), {220, 0});
    EXPECT_EQ(tuplet->_rightX, 220);
}

TEST_F(HandleCurveTest, AFigureWithoutABracketGoesAsAWhole) {
    Fill(1, 1, "8:3 8:4 8:5");
    ASSERT_TRUE(MakeTuplets(*window, Events(1, 1), {}));
    Irregular* tuplet = Tuplet(1);
    const TupletPicture before = PictureOf(tuplet);
    ASSERT_FALSE(before.bracketed) << "the beam stands for it";
    Do(kTuplets, {});
    ASSERT_EQ(Count(), 1u);
    Move(HandleOf(tuplet, 2), {30, -50});
    EXPECT_EQ(PictureOf(tuplet).baseline, (before.baseline + Point{30, -50}));
    EXPECT_EQ(tuplet->_leftX, 30);
    EXPECT_EQ(tuplet->_rightY, -50);
}

TEST_F(HandleCurveTest, ASlursPointsGoFreelyAndFollowItsNotes) {
    Fill(1, 1, "4:3 4:4 4:5 4:6");
    ASSERT_TRUE(InsertSlur(*window, Event<>(1, 1, 0), Event<>(1, 1, 3)));
    const auto* mark = First<MarkSlur>(1, 1);
    Slur* slur = slurMarks.ParentOf(mark);
    const TaperedCurve before = CurveOf(*mark);
    Do(kSlurs, {});
    ASSERT_EQ(Count(), 4u);
    EXPECT_EQ(HandleOf(slur, 1).tip, before.from);
    EXPECT_EQ(HandleOf(slur, 2).tip, before.to);
    Move(HandleOf(slur, 1), {20, -90});
    const SlurPoints expected{0, 0, 20, -90, 0, 0, 0, 0};
    EXPECT_EQ(PointsOf(slur), expected);
    EXPECT_EQ(CurveOf(*mark).control1, (before.control1 + Point{20, -90}));
    EXPECT_EQ(CurveOf(*mark).from, before.from);

    // Its tip goes with its note. Moved, it keeps its distance from there.
    Move(HandleOf(slur, 0), {-30, 40});
    const Point moved = CurveOf(*mark).from;
    ASSERT_TRUE(RunCommand(*window, 32781, {{"fifths", "4"}, {"from", "1"}}));
    EXPECT_EQ(PointsOf(slur)[0], -30);
    EXPECT_GT(CurveOf(*mark).from.x, moved.x);

    // Tips stay in the music of their system, and in their order.
    Move(HandleOf(slur, 3), {9000, 0});
    EXPECT_NEAR(CurveOf(*mark).to.x, PartOf(mark).right, 1);
    Move(HandleOf(slur, 0), {9000, 0});
    EXPECT_NEAR(CurveOf(*mark).from.x, CurveOf(*mark).to.x - 100, 1);
    Move(HandleOf(slur, 0), {-9000, 0});
    EXPECT_NEAR(CurveOf(*mark).from.x, PartOf(mark).left, 1);
}

TEST_F(HandleCurveTest, EachTipStandsOnItsOwnSystem) {
    Fill(3, 1, "4:3 4:4");
    Fill(4, 1, "4:3 4:4");
    ASSERT_TRUE(InsertSlur(*window, Event<>(3, 1, 0), Event<>(4, 1, 1)));
    Slur* slur = slurMarks.ParentOf(First<MarkSlur>(3, 1));
    Do(kSlurs, {});
    ASSERT_EQ(Count(), 4u);
    const int32_t boundary = SystemPar(MeasureNumber(4))->_top - 600;
    EXPECT_LT(HandleOf(slur, 1).place.y, boundary);
    EXPECT_GT(HandleOf(slur, 2).place.y, boundary);
    Move(HandleOf(slur, 2), {-50, -40});
    const SlurPoints expected{0, 0, 0, 0, -50, -40, 0, 0};
    EXPECT_EQ(PointsOf(slur), expected);
}

TEST_F(HandleCurveTest, TipsThatNotesPushTogetherStillMakeASlur) {
    Fill(1, 1, "4:3 4:4");
    ASSERT_TRUE(InsertSlur(*window, Event<>(1, 1, 0), Event<>(1, 1, 1)));
    const auto* mark = First<MarkSlur>(1, 1);
    const TaperedCurve rule = CurveOf(*mark);
    const TaperedCurve crossed = CurveOf(*mark, {2000, 10, 0, 0, 0, 0, -2000, 0});
    EXPECT_EQ(crossed.from, (rule.from + Point{0, 10}));
    EXPECT_EQ(crossed.to, rule.to);
}

}  // namespace
}  // namespace corvane
