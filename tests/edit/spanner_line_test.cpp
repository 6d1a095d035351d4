// Slurs and lines: made by command and by strokes, kept with what they hang on, gone with it.
#include "edit/Deletion.h"
#include "edit/Structure.h"
#include "layout/SlurShape.h"
#include "layout/SpannerMarks.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

constexpr int kSlur = 40020, kCrescendo = 40021, kDiminuendo = 40022, kOctave = 40023, kTrill = 40024,
              kPedal = 40025;
constexpr int kAll[] = {kSlur, kCrescendo, kDiminuendo, kOctave, kTrill, kPedal};

class LineTest : public SpannerTest {
protected:
    void SetUp() override {
        SpannerTest::SetUp();
        for (int measure = 1; measure <= 6; ++measure) Fill(measure, 1, "4:5 4:9 4:4 4:3");
    }
    StaffMeasureSymbol* MarkIn(int measure) {
        for (StaffMeasureSymbol* symbol : staffSymbols.Of(Crossing(measure, 1)))
            if (IsSpannerMark(symbol)) return symbol;
        return nullptr;
    }
    // In which measures the spanner of a measure's mark has its marks.
    std::vector<int> MeasuresOf(int measure) {
        std::vector<int> measures;
        for (const StaffMeasureSymbol* mark : MarksOf(MarkIn(measure)))
            measures.push_back(MeasurePar(mark)->_number);
        return measures;
    }
    Status Insert(int command, const LineRange& range) {
        switch (command) {
            case kSlur:
                return InsertSlur(*window, Event(1, 1, 0), Event(6, 1, 3));
            case kCrescendo:
                return InsertHairpin(*window, range, HairpinKind::Crescendo);
            case kDiminuendo:
                return InsertHairpin(*window, range, HairpinKind::Diminuendo);
            case kOctave:
                return InsertOttava(*window, range, "_8vaGiu_");
            case kTrill:
                return InsertTrillo(*window, range);
            default:
                return InsertPedale(*window, range);
        }
    }
    int Spanners() {
        int count = 0;
        for (const int16_t number :
             {Slur::kClass, Hairpin::kClass, Ottava::kClass, Trillo::kClass, Pedale::kClass, MarkSlur::kClass,
              MarkHairpin::kClass, MarkOttava::kClass, MarkTrillo::kClass, MarkPedale::kClass})
            count += Count(number);
        return count;
    }
};

TEST_F(LineTest, EachIsMadeOverTheSelectionSavedErasedAndUndone) {
    for (const int command : kAll) {
        SCOPED_TRACE(command);
        Lasso(1, -20, 2, 1000);
        Step([&] { Do(command, {}); });
        EXPECT_EQ(MeasuresOf(1), (std::vector<int>{1, 2}));
        ExpectSameAfterReload();
        const StaffMeasureSymbol* mark = MarkIn(1);
        const DrawPatch patch = PatchOf(MarkIn(1));
        EXPECT_FALSE(patch.Bounds().IsEmpty());
        EXPECT_TRUE(PatchOf(MarkIn(2)).Bounds().IsEmpty()) << "one mark a system draws";
        // A press on its line takes it away; one on a note under it would not.
        const Rect ink = patch.Bounds();
        Point on{};
        for (int32_t y = ink.top; y < ink.bottom && on == Point{}; y += 5)
            for (int32_t x = ink.left; x < ink.right; x += 20)
                if (patch.Behaviour().Hit(mark, {x, y}) && window->Sheet().HitSymbol({x, y}) == patch)
                    on = {x, y};
        ASSERT_FALSE(on == Point{});
        Step([&] { EraseAt(on); });
        EXPECT_EQ(Spanners(), 0);
    }
}

TEST_F(LineTest, WhatCannotBeIsRefused) {
    Lasso(1, 900, 1, 1000);
    for (const int command : kAll) EXPECT_NE(Refusal(command, {}), "") << command;
    Lasso(1, -20, 1, 1000);
    EXPECT_NE(Refusal(kOctave, {{"kind", "9up"}}), "");
    EXPECT_NE(Refusal(kSlur, {{"over", "1"}}), "");
    VoiceSymbol *first = Event(1, 1, 0), *last = Event(1, 1, 3);
    EXPECT_FALSE(InsertSlur(*window, last, first));
    EXPECT_FALSE(InsertSlur(*window, first, first));
    Fill(1, 2, "4:5");
    EXPECT_FALSE(InsertSlur(*window, first, Event(1, 2, 0)));
    EXPECT_EQ(Spanners(), 0);
}

TEST_F(LineTest, ASlurGoesWithTheNoteAtItsEndAndStaysWithOneBetween) {
    Lasso(1, -20, 2, 1000);
    Do(kSlur, {});
    const auto erase = [&](int measure, int place) {
        GenericNote* note = Head(measure, 1, place);
        Step([&] {
            const EditStep step(*window);
            DeleteNote(*window, note, {1, true, true, true});
        });
    };
    erase(1, 2);
    EXPECT_EQ(Count(Slur::kClass), 1);
    erase(2, 3);
    EXPECT_EQ(Spanners(), 0);
    // The same slur asked for twice goes again.
    for (const int count : {1, 0}) {
        Lasso(3, -20, 4, 1000);
        Do(kSlur, {});
        EXPECT_EQ(Count(Slur::kClass), count);
    }
}

TEST_F(LineTest, ALineThatCrossesSystemsHasAMarkOnEachAndKeepsItWhenMeasuresFlow) {
    for (const int command : kAll) {
        SCOPED_TRACE(command);
        window = Open("D", 3, 2);
        for (int measure = 1; measure <= 6; ++measure) Fill(measure, 1, "4:5 4:9 4:4 4:3");
        ASSERT_TRUE(FlowMeasures(*window, 2, {MeasureNumber(1), MeasureNumber(6)}));
        const LineRange range{Crossing(1, 1), Crossing(6, 1), 0, 900, {}};
        EXPECT_TRUE(Insert(command, range));
        EXPECT_EQ(MeasuresOf(1), (std::vector<int>{1, 3, 6}));
        for (const int measure : {1, 3}) EXPECT_FALSE(PatchOf(MarkIn(measure)).Bounds().IsEmpty()) << measure;
        Step([&] { ASSERT_TRUE(FlowMeasures(*window, 1, {MeasureNumber(1), MeasureNumber(6)})); });
        EXPECT_EQ(MeasuresOf(1), (std::vector<int>{1, 2, 3, 4, 5, 6}));
        // Its middle may go, its ends may not.
        Step([&] { ASSERT_TRUE(RemoveMeasures(*window, {MeasureNumber(3), MeasureNumber(3)})); });
        EXPECT_EQ(MeasuresOf(1), (std::vector<int>{1, 2, 3, 4, 5}));
        ExpectSameAfterReload();
        Step([&] { ASSERT_TRUE(RemoveMeasures(*window, {MeasureNumber(5), MeasureNumber(5)})); });
        EXPECT_EQ(Spanners(), 0);
    }
}

TEST_F(LineTest, StrokesOfThePencilGoEitherWayAndAClickWillDo) {
    const Point left = At(1, 1, 10, -4), right = At(2, 1, 500, -4);
    Step([&] { Stroke(3, 18, left, right); });
    const auto* opening = hairpinMarks.ParentOf(First<MarkHairpin>(1, 1));
    EXPECT_EQ(opening->_kind, HairpinKind::Crescendo);
    EXPECT_NEAR(opening->_from, 10, 1);
    EXPECT_NEAR(opening->_to, 500, 1);
    window->Undo();
    Step([&] { Stroke(3, 18, right, left); });
    EXPECT_EQ(hairpinMarks.ParentOf(First<MarkHairpin>(1, 1))->_kind, HairpinKind::Diminuendo);
    Step([&] { Stroke(6, 6, left, left); });
    EXPECT_EQ(First<MarkOttava>(2, 1), nullptr) << "of usual length";
    Step([&] { Stroke(5, 2, At(4, 1, 0, 14), At(5, 1, 900, 14)); });
    Step([&] { Stroke(6, 13, At(4, 1, 0, -4), At(5, 1, 900, -4)); });
    const Point from = MiddleOf(RectOf(Head(1, 1, 0))), to = MiddleOf(RectOf(Head(2, 1, 1)));
    Step([&] { Stroke(1, 28, to, from); });
    const Slur* slur = slurMarks.ParentOf(First<MarkSlur>(1, 1));
    EXPECT_EQ(FirstEventOf(slur), Event(1, 1, 0));
    EXPECT_EQ(LastEventOf(slur), Event(2, 1, 1));
    for (const int16_t number :
         {Hairpin::kClass, Ottava::kClass, Trillo::kClass, Pedale::kClass, Slur::kClass})
        EXPECT_EQ(Count(number), 1) << number;
}

TEST_F(LineTest, ASlurFollowsWhatChangesUnderIt) {
    ASSERT_TRUE(InsertSlur(*window, Event(1, 1, 0), Event(3, 1, 3)));
    const Rect before = PatchOf(First<MarkSlur>(1, 1)).Bounds();
    // A head far above in the middle measure, which holds no mark of the slur.
    const Rect head = RectOf(Head(2, 1, 1));
    Item(kQuarter);
    Step([&] { MouseDown(*window, head.left + 40, At(2, 1, 0, 22).y, 0); });
    EXPECT_LT(PatchOf(First<MarkSlur>(1, 1)).Bounds().top, before.top);
}

TEST_F(LineTest, AnEndingIsDrawnOverMeasuresAndCounts) {
    const auto text = [&](int measure) -> std::string {
        for (const MeasureSymbol* symbol : measureSymbols.Of(MeasureNumber(measure)))
            if (const auto* mark = As<MarkEndings>(symbol))
                return std::string(TextOf(endingsMarks.ParentOf(mark)->_text));
        return "";
    };
    const auto draw = [&](int from, int to) {
        Step([&] { Stroke(6, 2, At(from, 1, 500, 12), At(to, 2, 400, 3)); });
    };
    draw(2, 1);
    EXPECT_EQ(text(1) + text(2) + text(3), "1.1.") << "backward too";
    draw(3, 3);
    EXPECT_EQ(text(3), "2.");
    Do(32796, {{"from", "3"}, {"to", "3"}, {"text", "2.-11. volta"}});
    draw(4, 5);
    EXPECT_EQ(text(4) + text(5), "12.12.");
    draw(2, 2);
    EXPECT_EQ(text(1) + text(2), "") << "a click takes the whole bracket away";
    EXPECT_EQ(text(4), "12.");
    draw(5, 6);
    EXPECT_EQ(text(4) + text(5) + text(6), "12.12.") << "one that it meets is drawn anew";
}

}  // namespace
}  // namespace corvane
