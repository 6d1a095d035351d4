// What is no event on the clipboard: signs, hairpins, slurs and texts, copied, cut, pasted and cleared.
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "edit/TarnSelect.h"
#include "edit/Texts.h"
#include "layout/SlurShape.h"
#include "spanner_fixture.h"
#include "state_keeper.h"

namespace corvane {
namespace {

class ClipSignsTest : public SpannerTest {
protected:
    // Eight quarters with a slur over the first two, a hairpin over all, a dynamic, a text and a page text.
    void SetUp() override {
        SpannerTest::SetUp();
        Fill(1, 1, "4:3 4:4 4:5 4:6");
        Fill(2, 1, "4:6 4:5 4:4 4:3");
        ASSERT_TRUE(InsertSlur(*window, Event<>(1, 1, 0), Event<>(1, 1, 1)));
        ASSERT_TRUE(InsertSlur(*window, Event<>(1, 1, 3), Event<>(2, 1, 0)));
        ASSERT_TRUE(
            InsertHairpin(*window, {Crossing(1, 1), Crossing(2, 1), 100, 600, 5000}, HairpinKind::Crescendo));
        SetToolMode(ModePencil);
        SetPaletteGroup(3);
        SetItem(4);
        Press(1, 1, 250, -4);
        InsertMeasureStaffText(*window, Crossing(2, 1), At(2, 1, 300, 14), "dolce", {});
        InsertPageText(*window, window->CurrentPage(), {900, 700}, "Chorus", {});
        Tools().currentVoice = 0;
        SetToolMode(ModeArrow);
    }
    void Run(int id) { ASSERT_TRUE(RunCommand(*window, id)) << id; }
    // A frame over measures of a staff with what stands above and below it.
    void Select(int from, int to, int fromPlace = -80, int toPlace = 1010) {
        const Point a = At(from, 1, fromPlace, 22), b = At(to, 1, toPlace, -9);
        window->TheSelection().Clear();
        window->TheSelection().Add({a.x, a.y, b.x, b.y});
    }
    void CaretAt(int measure, int staff, int perMille = 0) {
        window->caret = {MeasureNumber(measure), StaffNumber(staff), At(measure, staff, perMille, 5).x, true};
    }
    void ExpectSoundWithClipboard() {
        for (const Finding& finding : CheckScore(*window->Pool(), ClipboardRoots(*window->Pool())))
            ADD_FAILURE() << TextOf(finding);
    }
    // The slur that begins in a measure: from which event there to which event of which measure.
    std::string SlurOf(int measure, int staff) {
        const auto* mark = First<MarkSlur>(measure, staff);
        if (!mark) return "none";
        const Slur* slur = slurMarks.ParentOf(mark);
        const auto name = [&](const VoiceSymbol* event) {
            const int number = MeasurePar(event)->_number;
            const auto events = Events(number, staff);
            return std::to_string(number) + "." +
                   std::to_string(std::find(events.begin(), events.end(), event) - events.begin());
        };
        return name(FirstEventOf(slur)) + "-" + name(LastEventOf(slur));
    }
};

TEST_F(ClipSignsTest, ACopyBringsAllThatIsSelected) {
    Select(1, 2);
    Run(57634);
    CaretAt(3, 2);
    StateKeeper keeper(*window);
    Run(57637);
    ExpectSound();
    EXPECT_EQ(SlurOf(3, 2), "3.0-3.1");
    const auto* hairpin = First<MarkHairpin>(3, 2);
    ASSERT_TRUE(hairpin);
    const Hairpin* wedge = hairpinMarks.ParentOf(hairpin);
    EXPECT_EQ(MeasurePar(hairpinMarks.Last(wedge))->_number, 4) << "over the system's end";
    EXPECT_EQ(wedge->_to, 600);
    EXPECT_EQ(wedge->_opening, hairpinMarks.ParentOf(First<MarkHairpin>(1, 1))->_opening);
    const auto* dynamic = First<Dinamiche>(3, 2);
    ASSERT_TRUE(dynamic);
    EXPECT_EQ(dynamic->_symbol.Get(), First<Dinamiche>(1, 1)->_symbol.Get());
    const auto* text = First<MeasureStaffText>(4, 2);
    ASSERT_TRUE(text);
    EXPECT_EQ(TextOf(text->_text), "dolce");
    EXPECT_EQ(text->_x, First<MeasureStaffText>(2, 1)->_x);
    window->Undo();
    EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
    ExpectSound();
}

TEST_F(ClipSignsTest, WhatReachesInFromElsewhereStaysAndMovesNothing) {
    Fill(2, 2, "4:3");
    // The end of the hairpin, the text and both staves.
    const Point a = At(2, 1, -80, 22), b = At(2, 2, 1010, -9);
    window->TheSelection().Clear();
    window->TheSelection().Add({a.x, a.y, b.x, b.y});
    Run(57634);
    EXPECT_TRUE(TheClipboard().ClipHairpins.empty());
    EXPECT_EQ(TheClipboard().ClipMeasureStaffText.size(), 1u);
    CaretAt(3, 1);
    Run(57637);
    EXPECT_EQ(Events(3, 1).size(), 4u) << "not a measure late";
    EXPECT_TRUE(First<MeasureStaffText>(3, 1));
    // Of the lower staff alone, though the frame meets the dynamic of the upper one.
    Fill(1, 2, "4:3");
    const Point above = At(1, 1, -80, -2), below = At(1, 2, 1010, -9);
    window->TheSelection().Clear();
    window->TheSelection().Add({above.x, above.y, below.x, below.y});
    SetSelectionAnchors(*window);
    ASSERT_EQ(SelectedDinamiche().size(), 1u);
    ClearSelectionAnchors();
    Run(57634);
    EXPECT_TRUE(TheClipboard().ClipDinamiche.empty());
    CaretAt(4, 1);
    Run(57637);
    EXPECT_EQ(Events(4, 1).size(), 1u) << "not a staff too low";
    ExpectSound();
}

TEST_F(ClipSignsTest, SignsKeepToTheirNotesWhereverTheCaretStands) {
    Select(1, 1);
    Run(57634);
    CaretAt(4, 2, 480);
    ASSERT_TRUE(Paste(*window));
    const auto* dynamic = First<Dinamiche>(4, 2);
    ASSERT_TRUE(dynamic);
    EXPECT_EQ(dynamic->_x - XOf(Event<>(4, 2, 1)), First<Dinamiche>(1, 1)->_x - XOf(Event<>(1, 1, 1)))
        << "the notes stand where they are spaced, not at the caret";
    const auto* mark = First<MarkHairpin>(4, 2);
    ASSERT_TRUE(mark);
    EXPECT_EQ(hairpinMarks.ParentOf(mark)->_from, 100);
    EXPECT_EQ(hairpinMarks.ParentOf(mark)->_to, 600);
    ExpectSound();
}

TEST_F(ClipSignsTest, ASlurComesWithBothItsNotesOrNotAtAll) {
    Select(1, 1, 240, 1010);  // the dynamic's second note on: the first slur has lost its beginning
    Run(57634);
    EXPECT_TRUE(TheClipboard().ClipSlurs.empty());
    CaretAt(3, 2);
    Run(57637);
    EXPECT_EQ(SlurOf(3, 2), "none");
    EXPECT_EQ(SlurOf(1, 1), "1.0-1.1") << "a copy leaves it";
    const auto count = Count(Slur::kClass);
    Run(57635);
    EXPECT_EQ(Count(Slur::kClass), count - 2) << "a cut of one of its notes takes it away";
    ExpectSoundWithClipboard();
}

TEST_F(ClipSignsTest, ACutKeepsThemUnlinkedUntilAnotherCompletesIt) {
    StateKeeper keeper(*window);
    Select(1, 2);
    Run(57635);
    const PoolState before = keeper.before;
    EXPECT_TRUE(Events(1, 1).empty());
    EXPECT_FALSE(First<Dinamiche>(1, 1) || First<MarkHairpin>(1, 1) || First<MarkSlur>(1, 1));
    ExpectSoundWithClipboard();
    window->Undo();
    EXPECT_EQ(PoolState::Of(*window->Pool()), before);
    ExpectSound();
    window->Redo();
    for (const int measure : {3, 1}) {
        CaretAt(measure, 1);
        Run(57637);
        EXPECT_NE(SlurOf(measure, 1), "none");
        EXPECT_TRUE(First<MarkHairpin>(measure, 1));
    }
    ExpectSoundWithClipboard();
    const int hairpins = Count(Hairpin::kClass);
    Select(1, 1, -80, 200);
    Run(57634);
    CaretAt(6, 2);
    Run(57637);
    EXPECT_EQ(Count(Hairpin::kClass), hairpins) << "one destroyed with the cut, one pasted";
    ExpectSound();
}

TEST_F(ClipSignsTest, SignsAloneKeepTheirDistancesAndTheScoresEndEndsThem) {
    const Point a = At(1, 1, -80, -1), b = At(2, 1, 1010, -9);
    window->TheSelection().Clear();
    window->TheSelection().Add({a.x, a.y, b.x, b.y});
    Run(57634);
    ASSERT_TRUE(TheClipboard().ClipVoiceSymbols.empty());
    ASSERT_EQ(TheClipboard().ClipDinamiche.size(), 1u);
    ASSERT_EQ(TheClipboard().ClipHairpins.size(), 1u);
    const int32_t apart = First<Dinamiche>(1, 1)->_x - 100;
    CaretAt(6, 1, 500);
    Run(57637);
    ASSERT_TRUE(First<MarkHairpin>(6, 1));
    const Hairpin* wedge = hairpinMarks.ParentOf(First<MarkHairpin>(6, 1));
    EXPECT_NEAR(wedge->_from, 500, 1);
    EXPECT_EQ(wedge->_to, 1000);
    EXPECT_EQ(hairpinMarks.First(wedge), First<MarkHairpin>(6, 1));
    EXPECT_EQ(First<Dinamiche>(6, 1)->_x - wedge->_from, apart);
    ExpectSound();
}

TEST_F(ClipSignsTest, PageTextsStepAsideWhereTheyStandAlready) {
    window->TheSelection().Add({890, 400, 1400, 720});
    Run(57634);
    ASSERT_EQ(TheClipboard().ClipPageText.size(), 1u);
    CaretAt(1, 1);
    Run(57637);
    Run(57637);
    std::vector<Point> places;
    for (const PageText* text : pageTexts.Of(window->CurrentPage())) places.push_back({text->_x, text->_y});
    ASSERT_EQ(places.size(), 3u);
    EXPECT_EQ(places[1].x - places[0].x, places[2].x - places[1].x);
    EXPECT_GT(places[1].y, places[0].y);

    std::unique_ptr<WindowTarn> target = Open("S", 3, 2);
    std::swap(window, target);
    CaretAt(1, 1);
    Run(57637);
    const PageText* pasted = pageTexts.First(window->CurrentPage());
    ASSERT_TRUE(pasted);
    EXPECT_EQ(TextOf(pasted->_text), "Chorus");
    EXPECT_EQ(pasted->_x, 900) << "another page has room at the same place";
    ExpectSound();
    std::swap(window, target);
}

TEST_F(ClipSignsTest, ClearTakesEveryKindAndUndoBringsItBack) {
    ASSERT_TRUE(InsertOttava(*window, {Crossing(1, 1), Crossing(2, 1), 100, 600, {}}, "_8vaSu_"));
    ASSERT_TRUE(InsertTrillo(*window, {Crossing(1, 1), Crossing(1, 1), 100, 600, {}}));
    ASSERT_TRUE(InsertPedale(*window, {Crossing(1, 1), Crossing(1, 1), 100, 600, {}}));
    StateKeeper keeper(*window);
    window->TheSelection().SelectAll();
    Run(32774);
    for (const int16_t number : {80, 81, 84, 86, 88, 91, 93, 101}) EXPECT_EQ(Count(number), 0) << number;
    ExpectSound();
    window->Undo();
    EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
}

}  // namespace
}  // namespace corvane
