// Which commands can act on what is selected, and what is told of those that cannot.
#include "spanner_fixture.h"

namespace corvane {
namespace {

constexpr int kTie = 32804, kDurations = 32817, kTranspose = 32819, kSharp = 32900, kHideRests = 33083,
              kBeam = 33028, kSlur = 40020;

class NeedsTest : public SpannerTest {
protected:
    // "" where it can act.
    std::string Reason(int id) {
        const Command& command = *FindCommand(id);
        const std::string reason = ReasonAgainst(*window, command);
        EXPECT_EQ(CanAct(*window, command, KindsSelected(*window)), reason.empty()) << command.name;
        return reason;
    }
};

TEST_F(NeedsTest, WithoutASelectionEachCommandForNotesSaysSoAndDoesNothing) {
    Fill(1, 1, "8:3 8:4 r4");
    const PoolState before = PoolState::Of(*window->Pool());
    int needy = 0;
    for (const CommandFamily family : CommandFamilies())
        for (const Command& command : family) {
            if (command.needs == Needs::Nothing) continue;
            const std::string reason = Reason(command.id);
            EXPECT_TRUE(reason.starts_with("Select some ")) << command.name;
            EXPECT_EQ(Refusal(command.id, {}), reason) << "told the same where it is run after all";
            ++needy;
        }
    EXPECT_GE(needy, 35);
    EXPECT_EQ(PoolState::Of(*window->Pool()), before);
    Do(kTranspose, {{"from", "1"}, {"interval", "M2"}});  // who tells measures needs no selection
}

TEST_F(NeedsTest, TheKindAndTheVoiceOfWhatIsSelectedCount) {
    Fill(1, 1, "8:3 8:4 r4");
    Fill(2, 1, "r4");
    const struct {
        const char* what;
        int from, to, voice;
        bool notes, rests;
    } cases[] = {
        {"notes and a rest", 1, 1, 1, true, true},   {"a rest", 2, 2, 1, false, true},
        {"an empty measure", 3, 3, 1, false, false}, {"another voice", 1, 2, 2, false, false},
        {"all voices", 1, 2, 0, true, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Lasso(c.from, -50, c.to, 990);
        SetCurrentVoice(static_cast<uint16_t>(c.voice));
        for (const int id : {kTie, kTranspose, kSharp, kBeam}) EXPECT_EQ(Reason(id).empty(), c.notes);
        for (const int id : {kDurations, kSlur}) EXPECT_EQ(Reason(id).empty(), c.notes || c.rests);
        EXPECT_EQ(Reason(kHideRests).empty(), c.rests);
    }
    window->TheSelection().SelectAll();
    for (const int id : {kTie, kDurations, kHideRests}) EXPECT_EQ(Reason(id), "");
}

TEST_F(NeedsTest, TheReasonIsToldWithoutRunningAnything) {
    Fill(1, 1, "8:3");
    const PoolState before = PoolState::Of(*window->Pool());
    for (const CommandFamily family : CommandFamilies())
        for (const Command& command : family) (void)ReasonAgainst(*window, command);
    EXPECT_EQ(PoolState::Of(*window->Pool()), before);
    EXPECT_TRUE(window->CanUndo());
    ThePlayFlags().playing = ThePlayFlags().clockRunning = true;
    EXPECT_EQ(Reason(kTie), "Stop the play to edit");
    ThePlayFlags().playing = ThePlayFlags().clockRunning = false;
}

}  // namespace
}  // namespace corvane
