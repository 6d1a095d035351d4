// Notes at other pitches and otherwise written ones: what sounds, what is read, and the way back.
#include "notes_fixture.h"

namespace corvane {
namespace {

class Transposing : public NotesTest {
protected:
    // Two staves in three flats with accidentals, a chord with a second, grace notes, eighths under beams.
    void FillScore() {
        Do(kKey, In(1, {{"fifths", "-3"}}));
        Fill(1, 1, kEighth, 7, -1);
        Press(Head(1, 1, 2), kSharp);
        Press(Head(1, 1, 4), kNatural);
        Fill(2, 1, kQuarter, 3, 5);
        Enter(kQuarter, 2, 1, StemPar(Head(2, 1, 2))->_x + 10, 7);
        Enter(kQuarter, 2, 1, StemPar(Head(2, 1, 2))->_x + 10, 11);
        Tools().graceMode = true;
        Enter(kEighth, 2, 1, 2, 8);
        Tools().graceMode = false;
        Fill(2, 2, kHalf, 2, 4);
        Fill(5, 2, kSixteenth, 6, -4);
        Do(kKey, In(4, {{"fifths", "4"}}));
    }
    void Move(const char* kind, const std::string& by) {
        Step([&] { Do(kTranspose, {{kind, by}, {"from", "1"}, {"to", "6"}}); });
    }
};

TEST_F(Transposing, ThereAndBackIsHeardAsBeforeAndByIntervalReadAsBefore) {
    FillScore();
    const std::string heard = Notes(), read = NamesOfAll(), signs = Accidentals(1, 1) + Accidentals(2, 1);
    for (const char* interval : {"m2", "M2", "m3", "M3", "P4", "A4", "d5", "P5", "M6", "P8", "M9"}) {
        SCOPED_TRACE(interval);
        Move("interval", interval);
        EXPECT_NE(Notes(), heard);
        Move("interval", std::string("-") + interval);
        EXPECT_EQ(Notes(), heard);
        EXPECT_EQ(NamesOfAll(), read);
        EXPECT_EQ(Accidentals(1, 1) + Accidentals(2, 1), signs);
    }
    for (const int semitones : {1, 2, 5, 6, 11, 13, -7}) {
        SCOPED_TRACE(semitones);
        Move("semitones", std::to_string(semitones));
        Move("semitones", std::to_string(-semitones));
        EXPECT_EQ(Notes(), heard);
    }
    ExpectSameAfterReload();
}

TEST_F(Transposing, AnIntervalLeadsToItsOwnStepAndSemitonesToTheNotesOfTheKey) {
    const struct {
        const char *kind, *by, *expected;
    } cases[] = {
        {"interval", "M3", "e f# g# a b c#5 d#5"},        {"interval", "-m3", "a3 b3 c# d e f# g#"},
        {"interval", "A1", "c# d# e# f# g# a# b#"},       {"interval", "-A1", "cb db eb fb gb ab bb"},
        {"interval", "d2", "dbb ebb fb gbb abb bbb cb5"}, {"interval", "P8", "c5 d5 e5 f5 g5 a5 b5"},
        {"semitones", "1", "c# eb f f# g# bb c5"},        {"semitones", "-12", "c3 d3 e3 f3 g3 a3 b3"},
        {"semitones", "3", "eb f g g# bb c5 d5"},         {"semitones", "-1", "b3 c# eb e f# g# bb"},
    };
    Fill(1, 1, kEighth, 7, -1);
    ASSERT_EQ(Names(1, 1), "c d e f g a b");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.by);
        Do(kTranspose, In(1, {{c.kind, c.by}}));
        EXPECT_EQ(Names(1, 1), c.expected);
        window->Undo();
    }
    Do(kKey, In(1, {{"fifths", "-4"}}));
    Do(kTranspose, In(1, {{"semitones", "1"}}));
    EXPECT_EQ(Names(1, 1), "db eb f gb ab bb c5") << "all notes of four flats";
}

TEST_F(Transposing, AThirdSharpIsWrittenOnTheNextStep) {
    Fill(1, 1, kQuarter, 1, -1);
    for (int i = 0; i < 3; ++i) Do(kTranspose, In(1, {{"interval", "A1"}}));
    EXPECT_EQ(Names(1, 1), "d#");
    Do(kTranspose, In(1, {{"interval", "A1"}, {"direction", "down"}}));
    EXPECT_EQ(Names(1, 1), "d");
}

TEST_F(Transposing, OnlyTheSelectedHeadMovesAndTheChordKeepsItsOrder) {
    Fill(1, 1, kQuarter, 2, 3);
    Enter(kQuarter, 1, 1, StemPar(Head(1, 1, 1))->_x + 10, 5);
    SetToolMode(ModeArrow);
    const Point low = At(1, 1, StemPar(Head(1, 1, 1))->_x, 3);
    MouseDown(*window, low.x + 60, low.y, 0);
    MouseUp(*window, low.x + 60, low.y);
    ASSERT_FALSE(window->TheSelection().IsEmpty());
    Step([&] { Do(kTranspose, {{"interval", "P5"}}); });
    EXPECT_EQ(Names(1, 1), "d5 b a");
    const Stem* stem = StemOf(ChordNumber(1, 1, 1));
    EXPECT_EQ(stemNotes.First(stem)->_line, 7) << "the highest first";
    // A head that would come to stand on another one's line.
    Do(kTranspose, {{"interval", "P8"}, {"from", "1"}});
    EXPECT_EQ(Names(1, 1), "d6 b5 a5");
    window->TheSelection().Clear();
    EXPECT_EQ(Refusal(kTranspose, {{"interval", "P8"}}), "Select some notes first");
}

TEST_F(Transposing, WhatTiesJoinMovesTogetherAndSoundsOnce) {
    Fill(3, 1, kWhole, 1, 2);
    Fill(4, 1, kWhole, 1, 2);
    Tie(Head(3, 1, 1), Head(4, 1, 1));
    EXPECT_EQ(Notes(), "3 1 0 4 5 0 1 1 65 64\n");
    Step([&] { Do(kTranspose, In(4, {{"interval", "M2"}})); });
    EXPECT_EQ(Notes(), "3 1 0 4 5 0 1 1 67 64\n") << "one note across the barline";
    EXPECT_EQ(Names(3, 1), "g");
    Do(kKey, In(4, {{"fifths", "-5"}}));
    Step([&] { Do(kTranspose, In(3, {{"semitones", "1"}})); });
    EXPECT_EQ(Names(3, 1) + " " + Names(4, 1), "g# g#") << "in another key too";
    Step([&] { Do(kEnharmonic, In(4)); });
    EXPECT_EQ(Names(3, 1) + " " + Names(4, 1), "ab ab");
    EXPECT_EQ(Notes(), "3 1 0 4 5 0 1 1 68 64\n");
}

TEST_F(Transposing, SpellingsGoRoundAndSoundTheSame) {
    Fill(1, 1, kQuarter, 4, -1);
    Press(Head(1, 1, 2), kSharp);
    const std::string heard = Notes();
    EXPECT_EQ(Names(1, 1), "c d# e f");
    for (const char* expected : {"b#3 eb fb e#", "c d# e f"}) {
        Step([&] { Do(kEnharmonic, In(1)); });
        EXPECT_EQ(Names(1, 1), expected);
        EXPECT_EQ(Notes(), heard);
    }
    // A natural with a step on each side has three ways.
    Fill(2, 1, kQuarter, 1, 0);
    for (const char* expected : {"ebb", "cx", "d"}) {
        Do(kEnharmonic, In(2));
        EXPECT_EQ(Names(2, 1), expected);
    }
    // None that would fall on another head's line.
    Fill(3, 1, kQuarter, 1, 0);
    Press(Head(3, 1, 1), kSharp);
    Enter(kQuarter, 3, 1, StemPar(Head(3, 1, 1))->_x + 10, 1);
    Do(kEnharmonic, In(3));
    EXPECT_EQ(Names(3, 1), "d# fb");
}

TEST_F(Transposing, SignsInBracketsAndSmallStepsGoAlong) {
    Fill(1, 1, kQuarter, 2, 2);
    Tools().accidentParenthesis = true;
    Press(Head(1, 1, 1), kNatural);
    Tools().accidentParenthesis = false;
    Press(Head(1, 1, 2), 29);
    EXPECT_EQ(Names(1, 1), "f g+");
    EXPECT_EQ(Accidentals(1, 1), "A(m");
    Step([&] { Do(kTranspose, In(1, {{"interval", "M2"}})); });
    EXPECT_EQ(Names(1, 1), "g a+");
    EXPECT_EQ(Accidentals(1, 1), "A(m");
    Fill(4, 1, kQuarter, 1, 4);
    Press(Head(4, 1, 1), 29);
    EXPECT_EQ(Refusal(kEnharmonic, In(4)), "These notes can be spelled in no other way here");
    Step([&] { Do(kTranspose, In(1, {{"interval", "M3"}})); });
    EXPECT_EQ(Names(1, 1), "b c#5") << "a quarter tone does not fit beside a sharp";
    EXPECT_EQ(Accidentals(1, 1), "A(d");
}

TEST_F(Transposing, WhatMakesNoSenseIsRefusedAndTouchesNothing) {
    Fill(1, 1, kQuarter, 1, 4);
    PressHead(8, 1, 2);
    Fill(1, 2, kQuarter, 1, 4);
    window->ForgetUndo();
    const PoolState before = PoolState::Of(*window->Pool());
    const struct {
        CommandArguments arguments;
        const char* why;
    } cases[] = {
        {{{"from", "1"}}, "Tell semitones or an interval"},
        {{{"from", "1"}, {"interval", "M5"}}, "\"M5\" is no interval; write M3, -m2, P5, A4, d5"},
        {{{"from", "1"}, {"semitones", "49"}}, "semitones is a whole number from -48 to 48"},
        {{{"from", "1"}, {"interval", "M2"}, {"semitones", "2"}}, "Tell semitones or an interval"},
        {{{"from", "2"}, {"interval", "M2"}}, "Select some notes first"},
        {{{"from", "1"}, {"staff", "3"}, {"interval", "M2"}}, "staff is a whole number from 1 to 2"},
        {{{"from", "1"}, {"staff", "2"}, {"interval", "M2"}}, "None of these notes has a pitch"},
        {{{"from", "9"}, {"interval", "M2"}}, "there is no measure 9"},
    };
    for (const auto& c : cases) EXPECT_EQ(Refusal(kTranspose, c.arguments), c.why);
    EXPECT_EQ(Refusal(kEnharmonic, {{"from", "1"}, {"staff", "2"}}), "None of these notes has a pitch");
    EXPECT_EQ(PoolState::Of(*window->Pool()), before);
    EXPECT_FALSE(window->CanUndo());
    // Notes under percussion clefs stay where others move; below the lowest key there is nothing.
    const std::vector<int> drums = Lines(1, 2);
    Do(kTranspose, In(1, {{"semitones", "-48"}}));
    EXPECT_EQ(Lines(1, 2), drums);
    EXPECT_EQ(Refusal(kTranspose, In(1, {{"semitones", "-48"}})),
              "MIDI has no key so low or so high, for a note in measure 1");
}

TEST(Spelling, EveryKeyHasAWayInEveryKeySignature) {
    for (int fifths = -7; fifths <= 7; ++fifths)
        for (int height = 0; height <= 127; ++height) {
            const std::vector<Spelling> ways = SpellingsInKey(height, fifths);
            ASSERT_GE(ways.size(), 2u);
            for (const Spelling& way : ways) ASSERT_EQ(HeightOf(way), height);
            // What the key has on that step it writes so.
            for (const Spelling& way : ways)
                if (way.alteration == AlterationOfKey(fifths, way.step)) {
                    ASSERT_EQ(way, ways.front());
                }
        }
}

}  // namespace
}  // namespace corvane
