// What a press of the arrow picks, and what commands make of exactly that.
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "edit/PickPlaces.h"
#include "edit/Signs.h"
#include "edit/TarnSelect.h"
#include "layout/SpannerMarks.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

class PickTest : public SpannerTest {
protected:
    // Two measures of a beamed group, a rest and quarters, under one thing of every kind that spans.
    void SetUp() override {
        SpannerTest::SetUp();
        Fill(1, 1, "8:3 8:5 8:4 8:3 r4 4:5");
        Fill(2, 1, "4:5 4:3 4:4 4:5");
        MeasureStaff *first = Crossing(1, 1), *second = Crossing(2, 1);
        ASSERT_TRUE(InsertHairpin(*window, {first, second, 100, 700, 6000}, HairpinKind::Crescendo));
        ASSERT_TRUE(InsertOttava(*window, {first, second, 100, 700, -3000}, "_8vaSu_"));
        ASSERT_TRUE(InsertTrillo(*window, {second, second, 100, 900, -2000}));
        ASSERT_TRUE(InsertPedale(*window, {first, second, 100, 700, 8000}));
        ASSERT_TRUE(InsertSlur(*window, Events(1, 1)[0], Events(1, 1)[3]));
        ASSERT_TRUE(TieNotesOf(*window, {Head(1, 1, 5), Head(2, 1, 0)}));
        ASSERT_TRUE(InsertEndings(*window, {MeasureNumber(1), MeasureNumber(2)}, "1."));
        SetToolMode(ModeArrow);
    }
    // A point of the middle piece of what a class draws.
    Point On(int16_t number) {
        for (const DrawPatch& patch : window->Sheet().AllPatches()) {
            if (patch.ClassNumber() != number || patch.Bounds().IsEmpty()) continue;
            const std::vector<Point> line = patch.Behaviour().Outline(patch.Object());
            if (line.size() < 2) return MiddleOf(patch.Bounds());
            const size_t at = line.size() / 2;
            return {(line[at - 1].x + line[at].x) / 2, (line[at - 1].y + line[at].y) / 2};
        }
        ADD_FAILURE() << "nothing of class " << number;
        return {};
    }
    void Click(Point p, uint32_t modifiers = 0) {
        MouseDown(*window, p.x, p.y, modifiers);
        MouseUp(*window, p.x, p.y);
    }
    std::vector<int16_t> PickedNumbers() {
        std::vector<int16_t> numbers;
        for (const Pick& pick : window->TheSelection().ThePicks().List()) numbers.push_back(pick.number);
        return numbers;
    }
};

TEST_F(PickTest, EachThingIsPickedByItselfAndDeletedByItself) {
    const struct {
        int16_t mark, whole;
    } cases[] = {
        {MarkHairpin::kClass, Hairpin::kClass}, {MarkOttava::kClass, Ottava::kClass},
        {MarkPedale::kClass, Pedale::kClass},   {MarkTrillo::kClass, Trillo::kClass},
        {MarkSlur::kClass, Slur::kClass},       {MarkValue::kClass, TieValue::kClass},
        {MarkEndings::kClass, Endings::kClass}, {BeamMarker::kClass, Beam::kClass},
        {Pause::kClass, Pause::kClass},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.whole);
        Click(On(c.mark));
        EXPECT_EQ(PickedNumbers(), std::vector<int16_t>{c.whole});
        EXPECT_FALSE(SelectionRects(*window).empty());
        SetSelectionAnchors(*window);
        EXPECT_EQ(SelectedVoiceSymbols(1).size(), c.whole == Pause::kClass) << "nothing that it runs over";
        std::map<int16_t, int> before;
        for (const auto& other : cases) before[other.whole] = Count(other.whole);
        const std::string notes = Notes();
        Step([&] { ClearSelection(*window); });
        EXPECT_TRUE(window->TheSelection().IsEmpty());
        for (const auto& other : cases)
            EXPECT_EQ(Count(other.whole), before[other.whole] - (other.whole == c.whole)) << other.whole;
        ExpectSameAfterReload();
        window->Undo();
        EXPECT_EQ(Notes(), notes);
        EXPECT_EQ(Count(c.whole), before[c.whole]);
    }
}

TEST_F(PickTest, ShiftAddsAndTakesOutAgain) {
    Click(On(MarkHairpin::kClass));
    Click(MiddleOf(RectOf(Head(2, 1, 1))), kShift);
    Click(On(MarkPedale::kClass), kShift);
    EXPECT_EQ(PickedNumbers(), (std::vector<int16_t>{Hairpin::kClass, Note::kClass, Pedale::kClass}));
    Click(On(MarkHairpin::kClass), kShift);
    EXPECT_EQ(PickedNumbers(), (std::vector<int16_t>{Note::kClass, Pedale::kClass}));
    EXPECT_FALSE(window->interaction) << "what is taken out is not dragged";
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedNotes(1), (std::vector<GenericNote*>{Head(2, 1, 1)}));
    EXPECT_TRUE(SelectedHairpins().empty());
    EXPECT_EQ(SelectedPedali().size(), 1u);
    const Point from = At(2, 1, 900, 20), to = At(2, 1, 1000, -20);
    MouseDown(*window, from.x, from.y, kShift);
    MouseUp(*window, to.x, to.y);
    EXPECT_EQ(PickedNumbers().size(), 2u) << "a band adds to them";
    Click(At(3, 2, 500, -20));
    EXPECT_TRUE(window->TheSelection().IsEmpty());
}

TEST_F(PickTest, AHeadOfAChordThatVoicesShareIsOnlyItsOwn) {
    SetCurrentVoice(2);
    Enter(kQuarter, 2, 1, 100, 3);
    SetCurrentVoice(0);
    SetToolMode(ModeArrow);
    GenericNote* own = chordNotes.First(As<Chords>(Events(2, 1, 2)[0]));
    Click(MiddleOf(RectOf(own)));
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedVoiceSymbols(1), Events(2, 1, 2));
    EXPECT_EQ(SelectedNotes(1), (std::vector<GenericNote*>{own}));
}

TEST_F(PickTest, PicksFollowWhatTheyNameAndGoWithIt) {
    Click(On(MarkHairpin::kClass));
    const std::vector<Rect> before = SelectionRects(*window);
    Hairpin* hairpin = hairpinMarks.ParentOf(First<MarkHairpin>(1, 1));
    {
        const EditStep step(*window);
        hairpin->_y = hairpin->_y + 1000;
    }
    window->RefilePage();
    const std::vector<Rect> after = SelectionRects(*window);
    ASSERT_EQ(after.size(), before.size());
    EXPECT_GT(after.front().top, before.front().top);
    window->Undo();
    EXPECT_EQ(SelectionRects(*window), before) << "undo moves it back, and it stays picked";
    {
        const EditStep step(*window);
        DeleteSpanner(*window, First<MarkHairpin>(1, 1));
    }
    EXPECT_TRUE(window->TheSelection().IsEmpty()) << "what goes is selected no more";
    window->Undo();
    EXPECT_EQ(Count(Hairpin::kClass), 1);
    EXPECT_TRUE(window->TheSelection().IsEmpty()) << "nor when it comes back";

    // A moved note stays selected where it comes to stand.
    Click(MiddleOf(RectOf(Head(2, 1, 1))));
    const Rect head = SelectionRects(*window).front();
    Do(40040, {});
    ASSERT_EQ(SelectionRects(*window).size(), 1u);
    EXPECT_LT(SelectionRects(*window).front().top, head.top);
    window->SetCurrentPage(nullptr);
    EXPECT_TRUE(window->TheSelection().IsEmpty());
}

TEST_F(PickTest, ABeamIsPressedOnItsStrokesOnly) {
    Beam* beam = BeamOf(StemOf(Event(1, 1, 0)));
    ASSERT_TRUE(beam);
    const Rect box = RectOf(beamMarkers.First(beam));
    const std::vector<BeamStroke> strokes = StrokesOf(beam);
    // Over the stem of its second note too, away from the head.
    const int32_t x = BeamXOf(StemOf(Event(1, 1, 1)));
    const BeamStroke& line = strokes.front();
    const double along = static_cast<double>(x - line.from.x) / (line.to.x - line.from.x);
    Click({x, static_cast<int32_t>(line.from.y + along * (line.to.y - line.from.y))});
    EXPECT_EQ(PickedNumbers(), std::vector<int16_t>{Beam::kClass});
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedBeams(1), std::vector<Beam*>{beam});
    Click({box.left + box.Width() / 3, box.bottom + 60});
    EXPECT_TRUE(PickedNumbers().empty());
    // The stem itself, well below the beam: nothing.
    const StemLine stem = LineOf(StemOf(Event(1, 1, 1)));
    Click({stem.x - 1, (stem.from + stem.end) / 2});
    EXPECT_TRUE(window->TheSelection().IsEmpty());
}

}  // namespace
}  // namespace corvane
