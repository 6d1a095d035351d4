// More than one step of undo, where a person asks for it.
#include <random>

#include "base/Notify.h"
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "spanner_fixture.h"
#include "state_keeper.h"

namespace corvane {
namespace {

class UndoLevels : public SpannerTest {
protected:
    void TearDown() override {
        SetUndoLevels(1);
        SpannerTest::TearDown();
    }
    PoolState Now() { return PoolState::Of(*window->Pool()); }
    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(_random); }
    void Run(int id) { ASSERT_TRUE(RunCommand(*window, id)) << id; }
    void RandomPress() {
        SetToolMode(Pick(0, 5) ? ModePencil : ModeEraser);
        SetPaletteGroup(1);
        SetItem(static_cast<uint16_t>(Pick(0, 3) ? Pick(3, 12) : Pick(20, 26)));
        Press(Pick(1, 6), Pick(1, 2), Pick(-50, 1000), Pick(-6, 14));
    }
    // What changes nothing is no step.
    static void Note(std::vector<PoolState>& states, PoolState state) {
        if (states.empty() || !(states.back() == state)) states.push_back(std::move(state));
    }
    // Undoes as long as it can, then does all of it again; the states on the way.
    void ExpectTheWayBack(const std::vector<PoolState>& states) {
        for (size_t i = states.size() - 1; i-- > 0;) {
            GoOn([this] { window->Undo(); }, states[i + 1]);
            ASSERT_EQ(Now(), states[i]) << i;
            ExpectSound();
        }
        for (size_t i = 1; i < states.size(); ++i) {
            GoOn([this] { window->Redo(); }, states[i - 1]);
            ASSERT_EQ(Now(), states[i]) << i;
        }
    }
    // To the next step that shows: one may have written what was there already.
    template <class Step>
    void GoOn(Step step, const PoolState& from) {
        for (int i = 0; i < 10 && Now() == from; ++i) step();
    }

    std::mt19937 _random{7};
};

TEST_F(UndoLevels, OneStepIsAllUnlessMoreAreAskedFor) {
    Fill(1, 1, "4:3 4:4");
    window->Undo();
    EXPECT_FALSE(window->CanUndo());
    EXPECT_TRUE(window->CanRedo());
    window->Redo();
    EXPECT_FALSE(window->CanRedo());
    Run(57642);
    EXPECT_FALSE(RunCommand(*window, 40050, {{"levels", "101"}}));
    ASSERT_TRUE(RunCommand(*window, 40050, {{"levels", "3"}}));
    Fill(1, 1, "4:5 4:6");
    for (int left = 3; left > 0; --left) {
        EXPECT_TRUE(window->CanUndo());
        window->Undo();
    }
    EXPECT_FALSE(window->CanUndo()) << "three steps and no more";
    EXPECT_EQ(Events(1, 1).size(), 1u);
    Fill(1, 1, "4:5");
    EXPECT_FALSE(window->CanRedo()) << "another way has been taken";
    EXPECT_EQ(Events(1, 1).size(), 2u);
    SetUndoLevels(1);
    window->Undo();
    EXPECT_FALSE(window->CanUndo());
    ExpectSound();
}

TEST_F(UndoLevels, EveryStateComesBackByteByByteAlsoOverManyBlocks) {
    SetUndoLevels(100);
    for (int round = 0; round < 6; ++round) {
        std::vector<PoolState> states;
        {
            StateKeeper keeper(*window);
            while (keeper.commands < 40) {
                const int before = keeper.commands;
                if (Pick(0, 12))
                    RandomPress();
                else
                    ASSERT_TRUE(RunCommand(*window, 32791, {{"count", "30"}, {"after", "0"}}));
                if (keeper.commands > before + 1) states.clear();  // a refusal is a step of its own
                if (keeper.commands != before) Note(states, keeper.before);
            }
            Note(states, Now());
        }
        ExpectTheWayBack(states);
        for (int i = Pick(0, 20); i > 0 && window->CanUndo(); --i) window->Undo();
        if (HasFailure()) return;
    }
}

TEST_F(UndoLevels, ARefusalIsNoStepAndCostsNone) {
    SetUndoLevels(10);
    static std::string said;
    SetNotifySink([](Severity, std::string_view text) { said = text; });
    Fill(1, 1, "4:3 4:4 4:5 4:6");
    Fill(2, 1, "2:7 4:5");
    const PoolState before = Now();
    Enter(kQuarter, 1, 1, 1000, 3);
    Enter(kHalfRest, 1, 1, -30, 3);
    EXPECT_EQ(Now(), before);
    EXPECT_EQ(Events(1, 1).size(), 4u);
    window->Undo();
    EXPECT_EQ(Events(2, 1).size(), 1u) << "the last note entered goes";
    window->Redo();

    Lasso(1, -50, 1, 900);
    Run(57634);
    window->caret = {MeasureNumber(2), StaffNumber(1), At(2, 1, 900, 3).x, true};
    (void)RunCommand(*window, 57637);
    EXPECT_EQ(said, "Can't paste, the measure is full!");
    EXPECT_EQ(Events(2, 1).size(), 3u);
    ExpectSound();
    window->Undo();
    EXPECT_EQ(Events(2, 1).size(), 2u);
    EXPECT_TRUE(window->CanUndo()) << "and all that was done before";
    SetNotifySink(nullptr);
}

TEST_F(UndoLevels, ACutUndoneFromFarIsTheClipboardsNoMore) {
    SetUndoLevels(10);
    Fill(1, 1, "4:3 4:4 4:5 4:6");
    Tools().currentVoice = 0;
    const std::string before = Notes();
    Lasso(1, -50, 1, 500);
    Run(57635);
    Fill(2, 1, "2:3");
    window->Undo();
    EXPECT_TRUE(TheClipboard().cutInSourcePending);
    window->Undo();
    EXPECT_EQ(Notes(), before);
    EXPECT_FALSE(TheClipboard().sourceWindow);
    ExpectSound();
    window->Redo();
    EXPECT_TRUE(TheClipboard().cutInSourcePending);
    window->Redo();
    EXPECT_EQ(Events(2, 1).size(), 1u);
    // A further cut completes the first, which ends what can be undone.
    Lasso(2, -50, 2, 900);
    Run(57635);
    for (const Finding& finding : CheckScore(*window->Pool(), ClipboardRoots(*window->Pool())))
        ADD_FAILURE() << TextOf(finding);
    window->Undo();
    EXPECT_FALSE(window->CanUndo());
    EXPECT_EQ(Events(2, 1).size(), 1u);
    ExpectSound();
}

}  // namespace
}  // namespace corvane
