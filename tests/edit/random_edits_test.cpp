// Thousands of random presses, keys, undos and redos: the score stays sound, and undo gives back every byte.
#include "base/Notify.h"
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "edit_fixture.h"
#include "layout/Beaming.h"
#include "play/MIDIUtility.h"
#include "random_steps.h"
#include "state_keeper.h"

namespace corvane {
namespace {

int StepCount() { return RandomSteps(400); }

class RandomEdits : public EditTest {
protected:
    int Pick(int low, int high) { return _dice.Pick(low, high); }

    void RandomPress() {
        const int mode = Pick(0, 9) == 0 ? ModeEraser : ModePencil;
        SetToolMode(mode);
        if (mode == ModePencil) {
            // Mostly notes and rests; dots and accidentals as often as a person uses them.
            const int item = Pick(0, 3) ? Pick(1, 18) : Pick(20, 34);
            SetItem(static_cast<uint16_t>(item));
        }
        const int measure = Pick(1, 6), staff = Pick(1, 2);
        Press(measure, staff, Pick(-50, 1050), Pick(-8, 18));
    }

    void RandomStep() {
        switch (Pick(0, 11)) {
            case 0:
                return window->Undo();
            case 1:
                return window->Redo();
            case 2:
                return SetCurrentVoice(static_cast<uint16_t>(Pick(0, 3)));
            case 3:
                return (void)KeyChar(*window, "adefgnprs12345678"[Pick(0, 16)]);
            default:
                return RandomPress();
        }
    }

    Dice _dice{RandomSeed(1)};
};

// The events that the edits have kept are those that the notation gives.
TEST_F(RandomEdits, KeepTheEventsThatTheNotationTells) {
    int edits = 0;
    for (int step = 0; step < StepCount(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        RandomStep();
        if (step % 10) continue;
        const std::string kept = Notes();
        const EditStep rebuilding(*window);
        for (const DocStaff* staff : documentDocStaffs.Of(Score()))
            for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(staff))
                for (Voice* voice : measureStaffVoices.Of(crossing)) RebuildVoiceEvents(voice);
        ASSERT_EQ(kept, Notes());
        edits += !kept.empty();
    }
    EXPECT_GT(edits, StepCount() / 20);
}

TEST_F(RandomEdits, StaySoundAndUndoEveryByte) {
    StateKeeper keeper(*window);
    for (int step = 0; step < StepCount(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const int commands = keeper.commands;
        RandomStep();
        ExpectSound();
        if (keeper.commands > commands) {
            const PoolState after = PoolState::Of(*window->Pool());
            window->Undo();
            EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
            window->Redo();
            EXPECT_EQ(PoolState::Of(*window->Pool()), after);
            if (Pick(0, 3) == 0) {
                window->Undo();
                EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
                ExpectSound();
            }
        }
        if (HasFailure()) break;
    }
    EXPECT_TRUE(HasFailure() || keeper.commands > StepCount() / 3) << "the steps must really edit";
}

// The same with selections, clipboard, beams by command and two scores.
class RandomClipboard : public RandomEdits {
protected:
    void SetUp() override {
        RandomEdits::SetUp();
        other = Open("SD", 2, 3);
        window->Activate();
        SetNotifySink([](Severity, std::string_view) { ++refusals; });
    }
    void TearDown() override {
        SetNotifySink(nullptr);
        SetAngledBeams(true);
    }

    void RandomSelection() {
        const int measure = Pick(1, 6);
        const Point a = At(measure, Pick(1, 2), Pick(-100, 900), Pick(5, 30));
        const Point b = At(Pick(measure, 6), 2, Pick(0, 1100), Pick(-20, 0));
        if (Pick(0, 3)) window->TheSelection().Clear();
        window->TheSelection().Add(Rect{a.x, a.y, b.x, b.y}.Normalised());
        if (Pick(0, 20) == 0) window->TheSelection().SelectAll();
    }
    void RandomCaret() {
        const int measure = Pick(1, 6), staff = Pick(1, 2);
        window->caret = {MeasureNumber(measure), StaffNumber(staff), At(measure, staff, Pick(-50, 1050), 5).x,
                         true};
    }
    void RandomClipboardStep() {
        static constexpr int kCommands[] = {57635, 57634, 57637, 57637, 57637, 32774};
        RandomSelection();
        RandomCaret();
        (void)RunCommand(*window, kCommands[Pick(0, 5)]);
    }
    void RandomBeamStep() {
        static constexpr int kCommands[] = {33027, 33028, 33029, 33029, 33030, 33031,
                                            33032, 40026, 40027, 32815, 32816, 33087};
        RandomSelection();
        (void)RunCommand(*window, kCommands[Pick(0, 11)]);
    }
    // A stem of an eighth or shorter has a flag or stands under a beam, any other one has neither.
    void ExpectFlagsOrBeams() {
        for (const DocStaff* staff : documentDocStaffs.Of(Score()))
            for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(staff))
                for (const Voice* voice : measureStaffVoices.Of(crossing))
                    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
                        const auto* chord = As<Chords>(symbol);
                        if (!chord) continue;
                        const bool isShort = ValueOf(chord) >= 8 && ValueOf(chord) != kDoubleWhole;
                        const Stem* stem = StemOf(chord);
                        EXPECT_EQ((FlagOf(stem) != nullptr) + (BeamOf(stem) != nullptr), isShort);
                    }
    }
    void ExpectAllSound() {
        for (WindowTarn* of : {window.get(), other.get()})
            for (const Finding& finding : CheckScore(*of->Pool(), ClipboardRoots(*of->Pool())))
                ADD_FAILURE() << TextOf(finding);
    }

    std::unique_ptr<WindowTarn> other;
    static inline int refusals = 0;
};

TEST_F(RandomClipboard, StaysSoundAndUndoesEveryByte) {
    for (int step = 0; step < StepCount(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        if (Pick(0, 30) == 0) std::swap(window, other);
        window->Activate();
        StateKeeper keeper(*window);
        refusals = 0;
        if (Pick(0, 2) == 0)
            RandomClipboardStep();
        else if (Pick(0, 3) == 0)
            RandomBeamStep();
        else
            RandomStep();
        ExpectAllSound();
        ExpectFlagsOrBeams();
        // Behind a refused paste nothing can be undone.
        if (keeper.commands && !refusals && window->CanUndo()) {
            const PoolState after = PoolState::Of(*window->Pool());
            window->Undo();
            EXPECT_EQ(PoolState::Of(*window->Pool()), keeper.before);
            ExpectAllSound();
            window->Redo();
            EXPECT_EQ(PoolState::Of(*window->Pool()), after);
            ExpectAllSound();
        }
        if (HasFailure()) break;
    }
}

}  // namespace
}  // namespace corvane
