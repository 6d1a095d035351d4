// Syllables typed from note to note, what is drawn between them, and what edits of the notes do to them.
#include "edit/CommandTable.h"
#include "edit/Deletion.h"
#include "edit/Lyrics.h"
#include "edit/TextEntry.h"
#include "edit_fixture.h"
#include "layout/Lyrics.h"
#include "layout/NoteGeometry.h"
#include "state_keeper.h"

namespace corvane {
namespace {

class LyricTest : public EditTest {
protected:
    // Four quarters in each of the first measures of the upper staff.
    void EnterMeasures(int count) {
        for (int measure = 1; measure <= count; ++measure)
            for (int i = 0; i < 4; ++i) Enter(kQuarter, measure, 1, 980, 6);
    }
    void Sing(int measure, int perMille, const char* text) {
        SetToolMode(ModePencil);
        SetPaletteGroup(8);
        SetItem(2);
        Press(measure, 1, perMille, -3);
        ASSERT_TRUE(TypeText(*window, text));
    }
    Chords* ChordNumber(int measure, int number) {
        return static_cast<Chords*>(Events(measure, 1)[static_cast<size_t>(number - 1)]);
    }
    // The syllables of a verse in a measure, each with the sign of what follows it; "." for a chord without.
    std::string Sung(int measure, int verse = 1) {
        std::string all;
        for (VoiceSymbol* event : Events(measure, 1)) {
            const Liriche* syllable = SyllableOf(static_cast<Chords*>(event), verse);
            if (!all.empty()) all += ' ';
            if (!syllable)
                all += '.';
            else
                all += std::string(TextOf(syllable->_text.Get())) +
                       " -_"[static_cast<int>(syllable->_joint.Get())];
        }
        return all;
    }
    LyricPicture Picture(int measure, int number) {
        return PictureOf(SyllableOf(ChordNumber(measure, number), 1));
    }
};

TEST_F(LyricTest, BlanksHyphensAndUnderscoresGoOnFromNoteToNote) {
    EnterMeasures(3);
    Sing(1, 0, "Glo-ri-a__ in ex-cel- sis");
    EXPECT_EQ(Sung(1), "Glo- ri- a_ _");
    EXPECT_EQ(Sung(2), "in  ex- cel- .") << "a blank of its own skips a note";
    EXPECT_EQ(Sung(3), "sis  . . .");
    ExpectSound();

    Sing(1, 240, "men");
    EXPECT_EQ(Sung(1), "Glo- men- a_ _") << "the note nearest to the press; what follows it stays";
    SetPaletteGroup(8);
    SetItem(2);
    Press(3, 1, 700, -3);
    EXPECT_FALSE(TypeText(*window, "a b c d")) << "a text beyond the last note is told";
}

TEST_F(LyricTest, TheEngraversSpacingKeepsSyllablesApartWhereThereIsRoom) {
    EnterMeasures(1);
    Sing(1, 0, "straightforwardly so-to say");
    const auto gap = [&](int left) {
        const LyricPicture a = Picture(1, left), b = Picture(1, left + 1);
        const Liriche* syllable = SyllableOf(ChordNumber(1, left), 1);
        const int32_t end =
            a.text.at.x + WidthOfText(TextOf(syllable->_text.Get()), LookOf(syllable->_text.Get()));
        return b.text.at.x - end;
    };
    const auto space = [&](const char* lyrics) {
        ASSERT_TRUE(RunCommand(*window, 32807, {{"mode", "engraver"}, {"lyrics", lyrics}}));
    };
    space("0");
    ASSERT_LT(gap(1), 0) << "without room the words run into each other";
    space("1");
    const int32_t size = LyricLook(Score(), 1).size;
    EXPECT_GT(gap(1), size / 4);
    EXPECT_GT(gap(2), size / 2) << "a hyphen stands between";
    EXPECT_GT(gap(3), size / 4);
    ExpectSound();
}

TEST_F(LyricTest, RestsAndGraceNotesAreNotSung) {
    Enter(kQuarter, 1, 1, 980, 6);
    Enter(kQuarterRest, 1, 1, 980, 6);
    Enter(kQuarter, 1, 1, 980, 6);
    Sing(1, 0, "a b");
    EXPECT_TRUE(SyllableOf(ChordNumber(1, 3), 1));
}

TEST_F(LyricTest, HyphensStandInTheMiddleAndLinesEndWithTheLastNote) {
    EnterMeasures(3);
    Sing(1, 0, "Glo-ri a__");
    const LyricPicture first = Picture(1, 1), second = Picture(1, 2), third = Picture(1, 3),
                       held = Picture(1, 4);
    ASSERT_EQ(first.hyphens.size(), 1u);
    const TextLook look = LyricLook(Score(), 1);
    const int32_t left = first.text.at.x + WidthOfText("Glo", look), right = second.text.at.x;
    const int32_t middle = first.hyphens[0].x + WidthOfText("-", look) / 2;
    EXPECT_NEAR(middle, (left + right) / 2, 1);
    EXPECT_TRUE(second.hyphens.empty());
    ASSERT_TRUE(third.extender);
    EXPECT_EQ(third.extender->right, RectOf(chordNotes.First(ChordNumber(1, 4))).right);
    EXPECT_EQ(third.extender->bottom, third.text.at.y) << "the line lies on the baseline";
    EXPECT_FALSE(held.extender) << "nothing is held behind it";
}

TEST_F(LyricTest, WhatGoesOnInTheNextSystemIsDrawnInBoth) {
    EnterMeasures(4);
    Sing(3, 700, "a__ o-");
    const LyricPicture end = Picture(3, 4), start = Picture(4, 1);
    ASSERT_TRUE(end.extender);
    const MeasureFrame last = FrameOf(MeasureNumber(3));
    EXPECT_EQ(end.extender->right, last.left + last.width);
    ASSERT_TRUE(start.lead);
    EXPECT_EQ(start.lead->left, FrameOf(MeasureNumber(4)).XOf(0));
    EXPECT_EQ(Picture(4, 2).hyphens.size(), 1u)
        << "a hyphen that nothing follows stands close behind its syllable";
}

TEST_F(LyricTest, VersesStandBelowEachOtherAndBelowTheLowestNote) {
    EnterMeasures(1);
    Sing(1, 0, "one");
    SetSyllable(*window, ChordNumber(1, 1), 2, "two", LyricJoint::WordEnd, LyricLook(Score(), 2));
    const Liriche *first = SyllableOf(ChordNumber(1, 1), 1), *second = SyllableOf(ChordNumber(1, 1), 2);
    EXPECT_EQ(second->_dy - first->_dy, LineStep(LyricLook(Score(), 2)) * 10);
    const int32_t usual = first->_dy;
    Enter(kQuarter, 2, 1, 980, -2);
    SetSyllable(*window, ChordNumber(2, 1), 1, "low", LyricJoint::WordEnd, LyricLook(Score(), 1));
    EXPECT_GT(first->_dy, usual) << "the whole line of the system gives way";
    ExpectSound();
}

TEST_F(LyricTest, EveryStepOnSyllablesCanBeUndone) {
    EnterMeasures(1);
    const PoolState bare = PoolState::Of(*window->Pool());
    Sing(1, 0, "la");
    const PoolState sung = PoolState::Of(*window->Pool());
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == bare);
    window->Redo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == sung);

    const LyricPicture picture = Picture(1, 1);
    SetToolMode(ModeEraser);
    MouseDown(*window, picture.text.at.x + 20, picture.text.at.y - 20, 0);
    EXPECT_EQ(Sung(1), ". . . .");
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == sung);
}

TEST_F(LyricTest, ADeletedNoteTakesItsSyllableAndTheHyphenBeforeItFollows) {
    EnterMeasures(2);
    Sing(1, 700, "hal-le-lu");
    Liriche* before = SyllableOf(ChordNumber(1, 4), 1);
    const Rect drawn = PatchOf(before).Bounds();
    DeletionChoice choice;
    {
        const EditStep step(*window);
        DeleteNote(*window, chordNotes.First(ChordNumber(2, 1)), choice);
    }
    EXPECT_EQ(Sung(2), "lu  . .");
    EXPECT_NE(PatchOf(before).Bounds(), drawn) << "its hyphen stands before another syllable now";
    EXPECT_EQ(window->Sheet().FiledRect(PatchOf(before)), PatchOf(before).Bounds());
    ExpectSound();
}

}  // namespace
}  // namespace corvane
