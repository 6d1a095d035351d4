// Rubber band, clicks, and what lies in a selection.
#include "edit/CommandTable.h"
#include "edit/MeasureRange.h"
#include "edit/TarnSelect.h"
#include "edit_fixture.h"
#include "layout/NoteGeometry.h"

namespace corvane {
namespace {

class Select : public EditTest {
protected:
    void SetUp() override {
        EditTest::SetUp();
        for (int i = 0; i < 4; ++i) Enter(kEighth, 1, 1, 900, 3 + i);
        for (int i = 0; i < 2; ++i) Enter(kQuarter, 2, 1, 900, 4);
        SetCurrentVoice(2);
        Enter(kHalf, 2, 1, 100, 0);
        SetCurrentVoice(0);
        SetToolMode(ModeArrow);
    }

    void Click(Point p, uint32_t modifiers = 0) {
        MouseDown(*window, p.x, p.y, modifiers);
        MouseUp(*window, p.x, p.y);
    }
    void Drag(Point from, Point to, uint32_t modifiers = 0) {
        MouseDown(*window, from.x, from.y, modifiers);
        MouseMove(*window, (from.x + to.x) / 2, to.y);
        MouseUp(*window, to.x, to.y);
    }
    // Around what a rectangle of per mille and staff steps of one measure holds.
    void DragMeasure(int measure, int staff, int from, int to, uint32_t modifiers = 0) {
        Drag(At(measure, staff, from, 20), At(measure, staff, to, -10), modifiers);
    }
    std::vector<VoiceSymbol*> Selected(int voice = 1) {
        SetSelectionAnchors(*window);
        return SelectedVoiceSymbols(voice);
    }
    size_t Count() { return Selected().size(); }
    Point Middle(const Rect& rect) { return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}; }
    GenericNote* Head(int measure, int event, int voice = 1) {
        return chordNotes.First(As<Chords>(Events(measure, 1, voice)[static_cast<size_t>(event)]));
    }
    Point Paper() { return At(3, 2, 500, -20); }
};

TEST_F(Select, EveryCornerMayBeTheFirst) {
    const Point a = At(1, 1, -20, 20), b = At(1, 1, 200, -10);
    const Point c{a.x, b.y}, d{b.x, a.y};
    for (const auto& [from, to] : {std::pair{a, b}, {b, a}, {c, d}, {d, c}}) {
        Drag(from, to);
        EXPECT_EQ(Selected(), (std::vector<VoiceSymbol*>{Events(1, 1)[0], Events(1, 1)[1]}));
        const auto rects = SelectionRects(*window);
        ASSERT_EQ(rects.size(), 1u);
        EXPECT_EQ(rects[0], (Rect{a.x, a.y, b.x, b.y}));
    }
}

TEST_F(Select, APlayStartsAtTheSelectionElseAtTheCaretElseAtTheFirstMeasure) {
    EXPECT_EQ(PlayStart(*window), nullptr);
    Click(Paper());
    EXPECT_EQ(PlayStart(*window), MeasureNumber(3)) << "the caret";
    DragMeasure(2, 1, -20, 1000);
    Click(Paper(), kShift);
    EXPECT_EQ(PlayStart(*window), MeasureNumber(2)) << "the selection, before the caret";
    SetToolMode(ModePencil);
    ApplyToolMode();
    window->TheSelection().Clear();
    EXPECT_EQ(PlayStart(*window), nullptr) << "a caret that is not shown";
    window->TheSelection().SelectAll();
    EXPECT_EQ(PlayStart(*window), MeasureNumber(1));
}

TEST_F(Select, TheBandIsShownFromPressToReleaseAndThenSelects) {
    const Point from = At(1, 1, -20, 20), to = At(1, 1, 400, -10);
    MouseDown(*window, from.x, from.y, 0);
    ASSERT_TRUE(window->interaction);
    EXPECT_TRUE(window->interaction->Band().IsEmpty());
    MouseMove(*window, to.x, to.y);
    EXPECT_EQ(window->interaction->Band(), (Rect{from.x, from.y, to.x, to.y}));
    EXPECT_EQ(Count(), 0u);
    MouseUp(*window, to.x, to.y);
    EXPECT_FALSE(window->interaction);
    EXPECT_EQ(Count(), 4u);
    MouseMove(*window, from.x, from.y);
    MouseUp(*window, from.x, from.y);
    EXPECT_EQ(Count(), 4u) << "a pointer that is up does nothing";
}

TEST_F(Select, ShiftAddsAndKeepsAndAPlainClickOnPaperClears) {
    DragMeasure(1, 1, -20, 80);
    EXPECT_EQ(Count(), 1u);
    DragMeasure(1, 1, 110, 200, kShift);
    EXPECT_EQ(Selected(), (std::vector<VoiceSymbol*>{Events(1, 1)[0], Events(1, 1)[1]}))
        << "the first rectangle stays";
    Click(Paper(), kShift);
    EXPECT_EQ(Count(), 2u);
    DragMeasure(1, 1, 300, 420);
    EXPECT_EQ(Selected(), (std::vector<VoiceSymbol*>{Events(1, 1)[3]}));
    Click(Paper());
    EXPECT_TRUE(window->TheSelection().IsEmpty());
    EXPECT_EQ(Count(), 0u);
}

TEST_F(Select, OnlyTheVoiceAtHandIsSelected) {
    DragMeasure(2, 1, -50, 1050);
    EXPECT_EQ(Count(), 3u);
    SetCurrentVoice(2);
    EXPECT_EQ(Selected(2), Events(2, 1, 2));
    SetCurrentVoice(1);
    EXPECT_EQ(Selected(1), Events(2, 1, 1));
    EXPECT_EQ(SelectedMeasureStaffs(), (std::vector<MeasureStaff*>{Crossing(2, 1)}));
    SetCurrentVoice(3);
    EXPECT_TRUE(Selected(3).empty());
    EXPECT_EQ(SelectedMeasureStaffs().size(), 1u) << "a crossing counts whatever the voice";
}

TEST_F(Select, AClickSelectsTheHeadUnderItAlone) {
    Item(kEighth);
    const Point head = Middle(RectOf(Head(1, 1)));
    MouseDown(*window, head.x, At(1, 1, 0, 8).y, 0);  // a second head on the second chord
    SetToolMode(ModeArrow);
    Chords* chord = As<Chords>(Events(1, 1)[1]);
    ASSERT_EQ(chordNotes.Count(chord), 2);
    Click(head);
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedNotes(1), (std::vector<GenericNote*>{chordNotes.First(chord)}));
    Click(Middle(RectOf(Head(2, 0))), kShift);
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedNotes(1), (std::vector<GenericNote*>{chordNotes.First(chord), Head(2, 0)}));
    EXPECT_EQ(SelectedChords(1).size(), 2u);
    Click(Middle(RectOf(Head(1, 0))));
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedNotes(1), (std::vector<GenericNote*>{Head(1, 0)})) << "without Shift only this";
    EXPECT_FALSE(window->interaction);
    // A band over the stem alone has the chord, and so all its heads.
    const StemLine stem = LineOf(StemOf(chord));
    Drag({stem.x - 5, stem.end - 90}, {stem.x + 5, stem.end + 20});
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedNotes(1).size(), 2u);
}

TEST_F(Select, APressOnAStemAwayFromTheHeadsSelectsNothing) {
    const StemLine stem = LineOf(StemOf(As<Chords>(Events(2, 1, 2)[0])));
    DragMeasure(1, 1, -20, 80);
    Click({stem.x - 1, (stem.from + stem.end) / 2});
    EXPECT_TRUE(window->TheSelection().IsEmpty());
    EXPECT_FALSE(window->interaction);
}

TEST_F(Select, ABeamWithANoteOutsideIsPartial) {
    Beam* beam = BeamOf(StemOf(As<Chords>(Events(1, 1)[0])));
    ASSERT_TRUE(beam);
    std::vector<Beam*> partial;
    DragMeasure(1, 1, -20, 220);
    SetSelectionAnchors(*window);
    EXPECT_EQ(SelectedBeams(1, &partial), (std::vector<Beam*>{beam}));
    EXPECT_TRUE(partial.empty());
    DragMeasure(1, 1, -20, 60);
    SetSelectionAnchors(*window);
    EXPECT_TRUE(SelectedBeams(1, &partial).empty());
    EXPECT_EQ(partial, (std::vector<Beam*>{beam}));
}

TEST_F(Select, WhatLiesInSeveralTilesIsListedOnce) {
    // All of the page: the widest objects lie in many tiles.
    Drag({-100, -100}, {14000, 16000});
    SetSelectionAnchors(*window);
    std::vector<const void*> objects;
    for (const DrawPatch& patch : SelectedPatches()) objects.push_back(patch.Object());
    std::sort(objects.begin(), objects.end());
    EXPECT_EQ(std::adjacent_find(objects.begin(), objects.end()), objects.end());
    EXPECT_EQ(SelectedVoiceSymbols(1).size(), 7u);
}

TEST_F(Select, WhatAPressCannotSelectKeepsTheSelectionAndAllStaysAll) {
    Click(Middle(RectOf(Head(1, 0))));
    ASSERT_EQ(Count(), 1u);
    Click(At(1, 1, -200, 4));  // the clef at the head of the system
    EXPECT_EQ(Count(), 1u);
    ASSERT_TRUE(RunCommand(*window, 57642));
    const size_t all = Count();
    Click(Middle(RectOf(Head(1, 0))), kShift);
    EXPECT_EQ(Count(), all);
}

TEST_F(Select, AStrokeThatAPlayOvertakesEndsWithoutAnEdit) {
    Drag(At(1, 1, -20, 20), At(1, 1, 1000, -10));
    const size_t before = Count();
    const Point p = Paper();
    MouseDown(*window, p.x, p.y, 0);
    MouseMove(*window, p.x + 500, p.y + 100);
    KeyChar(*window, 'P');
    EXPECT_FALSE(window->interaction) << "another tool gives the stroke up";
    MouseUp(*window, p.x + 500, p.y + 100);
    EXPECT_LE(Count(), before);
}

TEST_F(Select, AllIsEveryPageAndALassoIsItsOwnPage) {
    window = Open("D", 1, 1);
    Page* second = documentPages.Next(documentPages.First(Score()));
    ASSERT_FALSE(second) << "a new score has one page";
    ASSERT_TRUE(RunCommand(*window, 57642));
    EXPECT_TRUE(window->TheSelection().IsWholeScore());
    EXPECT_EQ(SelectionRects(*window).size(), 1u);
    EXPECT_TRUE(RunCommand(*window, 57641));
    EXPECT_TRUE(window->TheSelection().IsEmpty());
    EXPECT_FALSE(RunCommand(*window, 57641)) << "nothing is selected any more";
    window->TheSelection().Add({0, 0, 9000, 9000});
    window->SetCurrentPage(documentPages.First(Score()));
    EXPECT_FALSE(window->TheSelection().IsEmpty()) << "the same page keeps it";
    window->SetCurrentPage(nullptr);
    EXPECT_TRUE(window->TheSelection().IsEmpty());
}

}  // namespace
}  // namespace corvane
