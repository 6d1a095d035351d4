// Accidentals that selected notes show as a reminder, and articulations for many notes at once.
#include "edit/Deletion.h"
#include "layout/NoteGeometry.h"
#include "layout/NoteSigns.h"
#include "layout/SpacingHeader.h"
#include "notes_fixture.h"

namespace corvane {
namespace {

constexpr int kAccidentals = 32814, kArticulations = 32818;

class SignOptionsTest : public NotesTest {
protected:
    // The signs of each event: "staccato|-|accento".
    std::string Articulations(int measure) {
        std::string all;
        for (const VoiceSymbol* event : Events(measure, 1)) {
            std::string own;
            if (const auto* chord = As<Chords>(event))
                for (const GenericNote* note : chordNotes.Of(chord))
                    for (const NoteAttribute* attribute : noteAttributes.Of(note))
                        if (const auto* sign = As<SymbolAttribute>(attribute))
                            own += SymbolName(sign->_symbol);
            all += (all.empty() ? "" : "|") + (own.empty() ? "-" : own);
        }
        return all;
    }
};

TEST_F(SignOptionsTest, RemindersStandWhereAReaderHasAnotherSignInMind) {
    Fill(1, 1, kQuarter, 2, 3);  // b and c
    Press(Head(1, 1, 1), kFlat);
    Fill(2, 1, kQuarter, 2, 3);
    Enter(kQuarter, 2, 1, 950, 3);
    Enter(kQuarter, 2, 1, 990, 10);  // the b above
    EXPECT_EQ(Accidentals(1, 1) + " " + Accidentals(2, 1), "b- ----");
    const std::string notes = Notes();
    Step([&] { Do(kAccidentals, {{"from", "1"}, {"to", "2"}, {"show", "reminders"}}); });
    EXPECT_EQ(Accidentals(1, 1) + " " + Accidentals(2, 1), "b- A(---") << "once is enough";
    Step([&] { Do(kAccidentals, {{"from", "2"}, {"show", "always"}}); });
    EXPECT_EQ(Accidentals(2, 1), "A(A(A(A(");
    ExpectSameAfterReload();
    Step([&] { Do(kAccidentals, {{"from", "1"}, {"to", "2"}}); });
    EXPECT_EQ(Accidentals(1, 1) + " " + Accidentals(2, 1), "b- ----");
    EXPECT_EQ(Notes(), notes) << "brackets change no sound";
}

TEST_F(SignOptionsTest, AReminderOutlivesTheNoteBefore) {
    Fill(1, 1, kQuarter, 2, 3);
    Do(kAccidentals, In(1, {{"show", "always"}}));
    EXPECT_EQ(Accidentals(1, 1), "A(A(");
    Press(Head(1, 1, 1), kFlat);
    EXPECT_EQ(Accidentals(1, 1), "bA(");
    Step([&] {
        const EditStep step(*window);
        DeleteNote(*window, Head(1, 1, 1), {});
    });
    EXPECT_EQ(Accidentals(1, 1), "A(");
}

TEST_F(SignOptionsTest, AccidentalsOfTheFirstEventsMoveTheNoteAreaOfAllStaves) {
    Enter(kQuarter, 1, 2, 5, 5);
    for (const int line : {3, 5, 7}) Enter(kQuarter, 1, 1, 5, line);
    const auto left = [&](int staff) { return RectOf(Head(1, staff, 1)).left; };
    const int32_t before = left(2);
    for (const int note : {0, 1, 2}) {
        GenericNote* head = chordNotes.First(As<Chords>(Events(1, 1)[0]));
        for (int i = 0; i < note; ++i) head = chordNotes.Next(head);
        Press(head, kSharp);
        ExpectFiled();
    }
    EXPECT_EQ(Accidentals(1, 1), "ddd");
    EXPECT_GT(left(2), before + 100) << "three columns do not fit in the usual gap";
    EXPECT_EQ(left(1), left(2));
    const HeaderPlaces places = PlacesOf(MeasurePar(Crossing(1, 1)));
    int32_t reach = INT32_MAX;
    for (const GenericNote* head : chordNotes.Of(As<Chords>(Events(1, 1)[0])))
        reach = std::min(reach, RectOf(AccidentOf(head)).left);
    EXPECT_NEAR(left(2) - reach, places.noteArea - places.repeat - 20, 3)
        << "a fifth of a space from the header";
    window->Undo();
    ExpectFiled();
}

TEST_F(SignOptionsTest, AnotherOctaveIsRemindedOfInItsMeasure) {
    Enter(kQuarter, 1, 1, 5, 3);
    Enter(kQuarter, 1, 1, 500, 10);
    Press(Head(1, 1, 1), kFlat);
    Do(kAccidentals, In(1, {{"show", "reminders"}}));
    EXPECT_EQ(Accidentals(1, 1), "bA(");
}

TEST_F(SignOptionsTest, ANoteThatATieBringsOverIsNotStruckAgain) {
    Enter(kWhole, 1, 1, 5, 5);
    Enter(kWhole, 2, 1, 5, 5);
    Tie(Head(1, 1, 1), Head(2, 1, 1));
    Do(kArticulations, {{"from", "1"}, {"to", "2"}, {"sign", "Accent"}});
    EXPECT_EQ(Articulations(1) + " " + Articulations(2), "accento -");
}

TEST_F(SignOptionsTest, ArticulationsOfManyNotesAreOneStep) {
    Fill(1, 1, kQuarter, 3, 3);
    Enter(kQuarter, 1, 1, StemPar(Head(1, 1, 1))->_x + 10, 7);  // a chord
    Enter(kQuarterRest, 1, 1, 990, 5);
    ASSERT_EQ(Events(1, 1).size(), 4u);
    Step([&] { Do(kArticulations, In(1, {{"sign", "Staccato"}})); });
    EXPECT_EQ(Articulations(1), "staccato|staccato|staccato|-") << "one for a chord, none for a rest";
    Step([&] { Do(kArticulations, In(1, {{"sign", "Accent over tenuto"}})); });
    EXPECT_EQ(Articulations(1), "accentoportato|accentoportato|accentoportato|-")
        << "in place of what was there";
    ExpectSameAfterReload();
    Step([&] { Do(kArticulations, In(1, {{"sign", "None"}})); });
    EXPECT_EQ(Articulations(1), "-|-|-|-");
    EXPECT_EQ(Refusal(kArticulations, In(1, {{"sign", "Louder"}})), "There is no articulation \"Louder\"");
}

}  // namespace
}  // namespace corvane
