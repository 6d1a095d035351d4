// Copy, cut, paste and clear, within a score and between two.
#include "edit/Clipboard.h"

#include "base/Notify.h"
#include "edit/CommandTable.h"
#include "edit_fixture.h"
#include "model/Clefs.h"
#include "play/MIDIUtility.h"
#include "state_keeper.h"

namespace corvane {
namespace {

std::string told;

class ClipTest : public EditTest {
protected:
    void SetUp() override {
        EditTest::SetUp();
        told.clear();
        SetNotifySink([](Severity, std::string_view text) { told = text; });
        for (int i = 0; i < 4; ++i) Enter(kEighth, 1, 1, 900, 3 + i);
        Enter(kHalfRest, 1, 1, 950, 5);
        Tools().currentVoice = 0;
    }
    void TearDown() override {
        SetNotifySink(nullptr);
        other.reset();
        EditTest::TearDown();
    }

    void SelectEvents(int measure, int staff, int from = -50, int to = 1010) {
        const Point a = At(measure, staff, from, 20), b = At(measure, staff, to, -10);
        window->TheSelection().Clear();
        window->TheSelection().Add({a.x, a.y, b.x, b.y});
    }
    void CaretAt(int measure, int staff, int perMille = 0) {
        const Point p = At(measure, staff, perMille, 5);
        window->caret = {MeasureNumber(measure), StaffNumber(staff), p.x, true};
    }
    // "8:3 8:4 r2": values and lines, rests with their value.
    std::string Line(int measure, int staff, int voice = 1) {
        std::string text;
        for (const VoiceSymbol* symbol : Events(measure, staff, voice)) {
            text += text.empty() ? "" : " ";
            const auto* chord = As<Chords>(symbol);
            text += (chord ? "" : "r") + std::to_string(ValueOf(symbol));
            if (chord)
                for (const GenericNote* note : chordNotes.Of(chord))
                    text += ":" + std::to_string(note->_line);
        }
        return text;
    }
    void ExpectSoundWithClipboard(WindowTarn& of) {
        const auto roots = ClipboardRoots(*of.Pool());
        for (const Finding& finding : CheckScore(*of.Pool(), roots)) ADD_FAILURE() << TextOf(finding);
    }
    void Run(int id) { ASSERT_TRUE(RunCommand(*window, id)) << id; }

    std::unique_ptr<WindowTarn> other;
    static constexpr const char* kFirst = "8:3 8:4 8:5 8:6 r2";
};

TEST_F(ClipTest, ACopyComesToTheCaretAndIsOneStep) {
    SelectEvents(1, 1);
    Run(57634);
    EXPECT_EQ(Line(1, 1), kFirst);
    EXPECT_FALSE(TheClipboard().cutInSourcePending);
    CaretAt(2, 1);
    StateKeeper keeper(*window);
    Run(57637);
    EXPECT_EQ(keeper.commands, 1);
    EXPECT_EQ(Line(2, 1), kFirst);
    EXPECT_EQ(BeamOf(StemOf(As<Chords>(Events(2, 1)[0]))), BeamOf(StemOf(As<Chords>(Events(2, 1)[1]))))
        << "beamed as the original";
    ExpectSound();
    const std::string pasted = Notes();
    window->Undo();
    EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
    EXPECT_TRUE(Events(2, 1).empty());
    window->Redo();
    EXPECT_EQ(Notes(), pasted);
    CaretAt(3, 1);
    Run(57637);
    EXPECT_EQ(Line(3, 1), kFirst) << "as often as wanted";
    ExpectSound();
}

TEST_F(ClipTest, TheCaretOutlivesUndoAndRedoWhereItsMeasureDoes) {
    Enter(kQuarter, 1, 1, 900, 3);
    CaretAt(2, 1);
    Measure* measure = window->caret.measure;
    ASSERT_EQ(measure, MeasureNumber(2));
    window->Undo();
    EXPECT_EQ(window->caret.measure, measure);
    ASSERT_TRUE(RunCommand(*window, 32791, {{"count", "1"}}));
    window->caret.measure = MeasureNumber(7);
    ASSERT_TRUE(window->caret.measure);
    window->Undo();
    EXPECT_FALSE(window->caret.measure) << "the measure that it stood in is gone";
}

TEST_F(ClipTest, ACutWaitsForItsPasteAndAnUndoEmptiesTheClipboard) {
    const std::string before = Notes();
    SelectEvents(1, 1, -50, 450);
    Run(57635);
    EXPECT_EQ(Line(1, 1), "r2");
    EXPECT_FALSE(CheckScore(*window->Pool()).empty()) << "they are in the pool still";
    ExpectSoundWithClipboard(*window);
    CaretAt(2, 1);
    Run(57637);
    EXPECT_EQ(Line(2, 1), "8:3 8:4 8:5 8:6");
    ExpectSoundWithClipboard(*window);
    window->Undo();
    EXPECT_TRUE(Events(2, 1).empty());
    EXPECT_TRUE(TheClipboard().cutInSourcePending) << "only the paste is undone";

    SelectEvents(1, 1);
    Run(57635);  // the rest; what was cut before is destroyed
    EXPECT_TRUE(Events(1, 1).empty());
    window->Undo();
    EXPECT_EQ(Line(1, 1), "r2");
    EXPECT_FALSE(TheClipboard().sourceWindow);
    ExpectSound();
    window->Redo();
    EXPECT_TRUE(Events(1, 1).empty());
    ExpectSoundWithClipboard(*window);
    CaretAt(1, 1);
    Run(57637);
    EXPECT_EQ(Line(1, 1), "r2") << "a cut done again can be pasted again";
    EXPECT_NE(Notes(), before);
}

TEST_F(ClipTest, UndoBringsACutBackByteByByteAlsoBehindAFurtherCopy) {
    Enter(kQuarter, 2, 1, 100, 4);
    Tools().currentVoice = 0;
    StateKeeper keeper(*window);
    SelectEvents(1, 1);
    Cut(*window);
    const PoolState before = keeper.before;
    SelectEvents(2, 1);
    Copy(*window);
    EXPECT_EQ(TheClipboard().ClipVoiceSymbols.size(), 1u);
    EXPECT_FALSE(TheClipboard().cutInSourcePending);
    ExpectSoundWithClipboard(*window);
    window->Undo();
    EXPECT_EQ(PoolState::Of(*window->Pool()), before);
    ExpectSound();
    window->Redo();
    ExpectSoundWithClipboard(*window);
    CaretAt(3, 1);
    Paste(*window);
    EXPECT_EQ(Line(3, 1), "4:4") << "the copy is what the clipboard holds";
    ExpectSound();
}

TEST_F(ClipTest, OtherWindowsTakeWhatWasCutAndACutThereCompletesIt) {
    SelectEvents(1, 1);
    Run(57635);
    other = Open("S", 3, 2);
    std::swap(window, other);
    CaretAt(1, 1);
    Run(57637);
    EXPECT_EQ(Line(1, 1), kFirst);
    ExpectSound();
    EXPECT_TRUE(other->CanUndo());
    SelectEvents(1, 1);
    Run(57635);
    EXPECT_FALSE(other->CanUndo()) << "its step is no longer what it was";
    ExpectSound(*other);
    ExpectSoundWithClipboard(*window);
    std::swap(window, other);
    CaretAt(3, 2);
    Run(57637);
    EXPECT_EQ(Line(3, 2), "8:15 8:16 8:17 8:18 r2") << "the bass clef reads the same pitches";
    other.reset();
    EXPECT_FALSE(CanPaste(*window)) << "a window that closes takes its objects along";
    ExpectSound();
}

TEST_F(ClipTest, WhatWasCopiedAndIsGoneMeanwhileIsLeftOut) {
    SelectEvents(1, 1);
    Run(57634);
    SelectEvents(1, 1, -50, 450);
    Switches().deleteNotesToRests = false;
    Run(32774);
    EXPECT_EQ(Line(1, 1), "r2");
    CaretAt(2, 1);
    Run(57637);
    EXPECT_EQ(Line(2, 1), "r2");
    ExpectSound();
}

TEST_F(ClipTest, AFullMeasureRefusesAndKeepsWhatCameBefore) {
    Enter(kHalf, 2, 1, 100, 2);
    Enter(kQuarter, 2, 1, 800, 2);
    Tools().currentVoice = 0;
    SelectEvents(1, 1);
    Run(57634);
    CaretAt(2, 1, 990);
    Run(57637);
    EXPECT_EQ(told, "Can't paste, the measure is full!");
    EXPECT_EQ(Line(2, 1), "2:2 4:2 8:3 8:4");
    ExpectSound();
    const std::string kept = Notes();
    window->Undo();
    EXPECT_EQ(Notes(), kept) << "there is no way back";
    ExpectSound();
}

TEST_F(ClipTest, AnEventThatNoMeasureHoldsWandersToTheEnd) {
    Enter(kWholeRest, 3, 1, 100, 5);
    Tools().currentVoice = 0;
    ASSERT_TRUE(RunCommand(*window, 32779, {{"num", "2"}, {"den", "4"}, {"from", "4"}, {"to", "4"}}));
    SelectEvents(3, 1);
    Run(57634);
    CaretAt(4, 1);
    Run(57637);
    EXPECT_EQ(Line(4, 1), "r1") << "a whole rest fills any measure";
    SelectEvents(1, 1);
    Run(57634);
    CaretAt(5, 2);
    Run(57637);
    EXPECT_EQ(Events(5, 2).size(), 5u);
    ExpectSound();
}

TEST_F(ClipTest, VoicesAndStaffsFollowTheSourceOrTheTool) {
    SetCurrentVoice(2);
    Enter(kHalf, 1, 1, 100, 0);
    Enter(kHalf, 1, 2, 100, 1);
    SetCurrentVoice(0);
    window->TheSelection().SelectAll();
    Run(57634);
    CaretAt(2, 1);
    Run(57637);
    EXPECT_EQ(Line(2, 1), kFirst);
    EXPECT_EQ(Line(2, 1, 2), "2:0");
    EXPECT_EQ(Line(2, 2, 2), "2:1");
    CaretAt(3, 2);
    Run(57637);
    EXPECT_EQ(Events(3, 2).size(), 5u) << "the upper staff comes to the lower, the lower has none below";
    EXPECT_TRUE(Events(3, 1).empty());
    ExpectSound();

    SelectEvents(1, 1, -50, 450);
    SetCurrentVoice(1);
    Run(57634);
    SetCurrentVoice(3);
    CaretAt(4, 1);
    Run(57637);
    EXPECT_EQ(Line(4, 1, 3), "8:3 8:4 8:5 8:6");
    EXPECT_TRUE(Events(4, 1, 1).empty());
    ExpectSound();
}

TEST_F(ClipTest, WhatComesBetweenBeamedNotesPartsTheirBeam) {
    SelectEvents(1, 1, 400);
    Run(57634);  // the half rest
    CaretAt(1, 1, 60);
    Run(57635 + 2);
    EXPECT_EQ(told, "Can't paste, the measure is full!");
    ExpectSound();
    SelectEvents(1, 1, 400);
    Run(57635);
    CaretAt(1, 1, 60);
    Run(57637);
    EXPECT_EQ(Line(1, 1), "8:3 r2 8:4 8:5 8:6");
    ExpectSoundWithClipboard(*window);
}

TEST_F(ClipTest, ClearDeletesNotesToRestsAndRestsForGood) {
    SelectEvents(1, 1);
    const std::string before = Notes();
    StateKeeper keeper(*window);
    Run(32774);
    EXPECT_EQ(Line(1, 1), "r8 r8 r8 r8");
    EXPECT_TRUE(window->TheSelection().IsEmpty());
    ExpectSound();
    window->Undo();
    EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
    EXPECT_EQ(Notes(), before);
    EXPECT_FALSE(RunCommand(*window, 32774)) << "nothing is selected";
}

}  // namespace
}  // namespace corvane
