// Ties by command and by pencil: their sound, their accidentals, their end.
#include "edit/Deletion.h"
#include "model/Ties.h"
#include "play/MIDIUtility.h"
#include "rebuilt_events.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

constexpr int kTieNotes = 32804, kTranspose = 32819, kTieItem = 19;

class TieTest : public SpannerTest {
protected:
    // What is kept to be played, as the notation read anew says it.
    void ExpectEventsOfNotation() {
        RoundedVoices rounded;
        rounded.Watch(Score(), true);
        ExpectTheEventsOfTheNotation(*window, rounded);
    }
};

TEST_F(TieTest, OverTheBarlineTwoNotesSoundOnceAndShowOneAccidental) {
    Fill(1, 1, "2:5 4:5 4:3");
    Fill(2, 1, "2:3 2:3");
    for (const auto& [measure, place] : {std::pair{1, 2}, {2, 0}, {2, 1}}) {
        Item(kSharp);
        const Point p = MiddleOf(RectOf(Head(measure, 1, place)));
        MouseDown(*window, p.x, p.y, 0);
    }
    ASSERT_EQ(Accidentals(2, 1), "d-");
    GenericNote *first = Head(1, 1, 2), *second = Head(2, 1, 0);
    Lasso(1, 700, 2, 300);
    Step([&] { Do(kTieNotes, {}); });
    EXPECT_EQ(TiedToAfter(first), second);
    EXPECT_TRUE(NoteOnOf(first) && !NoteOffOf(first) && !NoteOnOf(second) && NoteOffOf(second));
    // What follows on the line says its sharp itself.
    EXPECT_EQ(Accidentals(2, 1), "-d");
    EXPECT_EQ(Accidentals(1, 1), "--d");
    ExpectSameAfterReload();

    // The same command again parts them.
    Step([&] { Do(kTieNotes, {}); });
    EXPECT_EQ(Count(TieValue::kClass) + Count(MarkValue::kClass), 0);
    EXPECT_TRUE(NoteOffOf(first) && NoteOnOf(second));
    EXPECT_EQ(Accidentals(2, 1), "d-");
}

TEST_F(TieTest, ANoteBetweenTiedNotesUnderABeamLeavesNothingOfTheOldBeamOnTheSheet) {
    Fill(1, 1, "8:5 8:5 8:5 8:5");
    Lasso(1, -50, 1, 200);
    Do(kTieNotes, {});
    ASSERT_TRUE(AreTied(Head(1, 1, 0), Head(1, 1, 1)));
    const int32_t between = (XOf(Event(1, 1, 0)) + XOf(Event(1, 1, 1))) / 2;
    Step([&] { Enter(kEighth, 1, 1, between, 8); });
    EXPECT_EQ(Events(1, 1).size(), 5u);
    EXPECT_EQ(Count(TieValue::kClass), 0);
}

TEST_F(TieTest, WhichNotesAreTied) {
    Fill(1, 1, "4:5 4:5 4:4 4:5");
    const std::vector<GenericNote*> heads{Head(1, 1, 0), Head(1, 1, 1), Head(1, 1, 2), Head(1, 1, 3)};
    const auto refusal = [&](std::vector<GenericNote*> notes) {
        return TieNotesOf(*window, notes).message();
    };
    EXPECT_EQ(NoteToTie(heads[0]), heads[1]);
    EXPECT_EQ(NoteToTie(heads[1]), nullptr) << "another pitch comes between";
    EXPECT_EQ(NoteToTie(heads[3]), nullptr) << "nothing follows";
    EXPECT_NE(refusal({heads[1], heads[2], heads[3]}), "");
    EXPECT_NE(refusal({}), "");
    EXPECT_EQ(Count(TieValue::kClass), 0);
    // One note alone is tied to what follows; of many only those that follow each other.
    EXPECT_EQ(refusal({heads[0]}), "");
    EXPECT_TRUE(AreTied(heads[0], heads[1]));
    EXPECT_EQ(refusal(heads), "");
    EXPECT_EQ(Count(TieValue::kClass), 0) << "all of them were tied: they are parted";
}

TEST_F(TieTest, EachHeadOfAChordIsTiedAndOneThatGoesTakesItsTie) {
    for (int i = 0; i < 2; ++i) Enter(kHalf, 1, 1, 990, 3);
    for (const int line : {5, 7})
        for (int i = 0; i < 2; ++i) {
            Item(kHalf);
            MouseDown(*window, RectOf(Head(1, 1, i)).left + 40, At(1, 1, 0, line).y, 0);
        }
    Lasso(1, -20, 1, 1000);
    Step([&] { Do(kTieNotes, {}); });
    EXPECT_EQ(Count(TieValue::kClass), 3);
    GenericNote* later = Head(1, 1, 1);
    Step([&] {
        const EditStep step(*window);
        DeleteNote(*window, later, {});
    });
    EXPECT_EQ(Count(TieValue::kClass), 2);
    EXPECT_EQ(Count(MarkValue::kClass), 4);
    for (const GenericNote* note : chordNotes.Of(Event(1, 1, 0)))
        EXPECT_EQ(NoteOffOf(note) != nullptr, TiedToAfter(note) == nullptr);
}

TEST_F(TieTest, AnAccidentalGoesWithTheTie) {
    for (const int measure : {1, 2, 3}) Fill(measure, 1, "1:5");
    ASSERT_TRUE(TieNotesOf(*window, {Head(1, 1, 0), Head(2, 1, 0), Head(3, 1, 0)}));
    ASSERT_EQ(Notes(), "1 1 0 3 5 0 1 1 71 64\n");
    const Point middle = MiddleOf(RectOf(Head(2, 1, 0)));
    Item(kFlat);
    Step([&] { MouseDown(*window, middle.x, middle.y, 0); });
    EXPECT_EQ(Notes(), "1 1 0 3 5 0 1 1 70 64\n");
    EXPECT_EQ(Accidentals(1, 1) + Accidentals(2, 1) + Accidentals(3, 1), "b--");
}

TEST_F(TieTest, OfAChainOnlyItsFirstNoteShowsTheAccidentalAndSpeaksForItsLine) {
    Fill(1, 1, "1:5");
    Fill(2, 1, "2:5 4:5 4:5");
    ASSERT_TRUE(TieNotesOf(*window, {Head(1, 1, 0), Head(2, 1, 0), Head(2, 1, 1)}));
    // One of the chain is altered, then the note behind it.
    for (const int place : {1, 2}) {
        Item(kSharp);
        const Point p = MiddleOf(RectOf(Head(2, 1, place)));
        Step([&] { MouseDown(*window, p.x, p.y, 0); });
    }
    EXPECT_EQ(Accidentals(1, 1), "d");
    EXPECT_EQ(Accidentals(2, 1), "--d") << "nothing of this measure has shown it";
    ExpectSameAfterReload();
    Step([&] { ASSERT_TRUE(TieNotesOf(*window, {Head(2, 1, 0)})); });
    EXPECT_EQ(Accidentals(2, 1), "-d-");
    window->Undo();
    Step([&] { ASSERT_TRUE(TieNotesOf(*window, {Head(1, 1, 0)})); });
    EXPECT_EQ(Accidentals(2, 1), "d--") << "struck anew, the chain speaks in its measure";
    window->Undo();
    Step([&] { Do(kTranspose, {{"interval", "A1"}, {"from", "1"}, {"to", "2"}}); });
    EXPECT_EQ(Accidentals(1, 1) + "|" + Accidentals(2, 1), "D|--D");
}

TEST_F(TieTest, AnEventThatComesBetweenPartsThem) {
    Fill(1, 1, "4:5 4:5");
    for (const int item : {kEighth, kEighthRest}) {
        ASSERT_TRUE(TieNotesOf(*window, {Head(1, 1, 0), Head(1, 1, 1)}));
        ASSERT_EQ(Count(TieValue::kClass), 1);
        Step([&] { Enter(item, 1, 1, 120, 5); });
        EXPECT_EQ(Count(TieValue::kClass), 0);
        EXPECT_TRUE(NoteOffOf(Head(1, 1, 0)));
        window->Undo();
        ASSERT_TRUE(TieNotesOf(*window, {Head(1, 1, 0), Head(1, 1, 1)}));  // parts them
    }
}

TEST_F(TieTest, OfTwoVoicesHeldIntoOneNoteTheTieThatStaysHoldsIt) {
    Fill(1, 1, "1:5");
    SetCurrentVoice(2);
    for (const int measure : {1, 2}) Fill(measure, 1, "1:5");
    GenericNote *upper = Head(1, 1, 0), *lower = chordNotes.First(As<Chords>(Events(1, 1, 2)[0])),
                *held = chordNotes.First(As<Chords>(Events(2, 1, 2)[0]));
    ASSERT_TRUE(TieNotesOf(*window, {upper, lower, held}));
    ASSERT_TRUE(AreTied(upper, held) && AreTied(lower, held));
    // A rest behind the first voice's note parts that one alone.
    SetCurrentVoice(1);
    Step([&] { Enter(kEighthRest, 2, 1, 20, 5); });
    EXPECT_TRUE(!AreTied(upper, held) && AreTied(lower, held));
    EXPECT_TRUE(NoteOffOf(upper) && !NoteOffOf(lower) && !NoteOnOf(held));
    ExpectEventsOfNotation();
    Step([&] { ASSERT_TRUE(TieNotesOf(*window, {lower})); });
    EXPECT_TRUE(NoteOffOf(lower) && NoteOnOf(held)) << "the last tie gives both ends back";
    ExpectEventsOfNotation();
}

TEST_F(TieTest, OfOneNoteHeldIntoTwoVoicesTheTieThatStaysHoldsIt) {
    Fill(1, 1, "1:5");
    Fill(2, 1, "1:7");
    SetCurrentVoice(2);
    Fill(2, 1, "1:5");
    SetCurrentVoice(1);
    GenericNote *first = Head(1, 1, 0), *lower = chordNotes.First(As<Chords>(Events(2, 1, 2)[0]));
    ASSERT_TRUE(TieNotesOf(*window, {first}));
    ASSERT_TRUE(AreTied(first, lower));
    // The first voice's chord gets the same head: now that one is nearer.
    Item(kWhole);
    MouseDown(*window, RectOf(Head(2, 1, 0)).left + 40, At(2, 1, 0, 5).y, 0);
    GenericNote* upper = NoteToTie(first);
    ASSERT_TRUE(upper && ChordPar(upper) == Event(2, 1, 0));
    ASSERT_TRUE(TieNotesOf(*window, {first}));
    ASSERT_TRUE(AreTied(first, upper) && AreTied(first, lower));
    Step([&] { ASSERT_TRUE(TieNotesOf(*window, {first})); });
    EXPECT_TRUE(!AreTied(first, upper) && AreTied(first, lower));
    EXPECT_TRUE(!NoteOffOf(first) && NoteOnOf(upper) && !NoteOnOf(lower));
    ExpectEventsOfNotation();
    Step([&] {
        const EditStep step(*window);
        DeleteNote(*window, lower, {});
    });
    EXPECT_TRUE(NoteOffOf(first)) << "the last tie gives the end back";
    ExpectEventsOfNotation();
}

TEST_F(TieTest, ThePencilTiesAndTheEraserParts) {
    Fill(3, 1, "1:6");
    Fill(4, 1, "1:6");  // on the next system
    const Point head = MiddleOf(RectOf(Head(3, 1, 0)));
    Item(kTieItem);
    Step([&] { MouseDown(*window, head.x, head.y, 0); });
    ASSERT_TRUE(AreTied(Head(3, 1, 0), Head(4, 1, 0)));
    // One piece on each system; a press on either is one on the tie.
    for (const int measure : {3, 4}) {
        MarkValue* mark = As<MarkValue>(noteAttributes.First(Head(measure, 1, 0)));
        const Rect ink = PatchOf(mark).Bounds();
        ASSERT_FALSE(ink.IsEmpty());
        EXPECT_TRUE(PatchOf(mark).Behaviour().Hit(mark, {(ink.left + ink.right) / 2, ink.top + 10}));
        EXPECT_FALSE(PatchOf(mark).Behaviour().Hit(mark, {(ink.left + ink.right) / 2, ink.bottom + 60}));
    }
    const Rect ink = PatchOf(noteAttributes.First(Head(4, 1, 0))).Bounds();
    Step([&] { EraseAt({ink.left + 30, ink.bottom - 10}); });
    EXPECT_EQ(Count(TieValue::kClass) + Count(MarkValue::kClass), 0);
    EXPECT_EQ(Notes(), "3 1 0 3 5 0 1 1 72 64\n4 1 0 4 5 0 1 1 72 64\n") << "each sounds on its own";
}

}  // namespace
}  // namespace corvane
