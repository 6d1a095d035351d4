// Clefs within measures while events move around them: each goes on to govern what it governed, later
// measures read the same clef as before, and what is heard is what is read.
#include "edit/Clipboard.h"
#include "edit/MeasureRange.h"
#include "sign_fixture.h"

namespace corvane {
namespace {

constexpr int kBassItem = 2, kAltoItem = 6;
constexpr int kRemoveMeasures = 32794, kMeasuresPerSystem = 32788, kSpacing = 32807;

class ClefMoves : public SignTest {
protected:
    void InVoice(int voice) { SetCurrentVoice(static_cast<uint16_t>(voice)); }
    void EnterGrace(int measure, int perMille, int line) {
        Tools().graceMode = true;
        Enter(kEighth, measure, 1, perMille, line);
        Tools().graceMode = false;
    }
    int ClefAtStartOf(int measure) { return ClefInForce(Crossing(measure, 1), 0); }
};

TEST_F(ClefMoves, TheLastClefStaysTheLastWhereAnotherVoiceIsSpaced) {
    Switches().autoSpace = false;
    Enter(kQuarter, 1, 1, 100, 3);
    Enter(kQuarter, 1, 1, 200, 3);
    InVoice(2);
    Enter(kQuarter, 1, 1, 300, 3);
    Enter(kQuarter, 2, 1, 300, 3);
    PressClef(kBassItem, 1, 1, 150);
    PressClef(kAltoItem, 1, 1, 250);
    const int alto = ClefAtStartOf(2);
    ASSERT_EQ(alto, ClefOf(8).code);

    // The second voice begins at the left now, before the first clef.
    Switches().autoSpace = true;
    Step([&] { Enter(kQuarter, 1, 1, 900, 3); });
    EXPECT_EQ(XOf(Events(1, 1, 2).front()), 0);
    EXPECT_EQ(ClefAtStartOf(2), alto);
}

TEST_F(ClefMoves, TwoClefsBeforeOneEventKeepTheirOrder) {
    for (const auto& [first, second] : {std::pair{kBassItem, kAltoItem}, std::pair{kAltoItem, kBassItem}}) {
        window = Open("D", 3, 2);
        Enter(kHalf, 1, 1, 0, 3);
        Enter(kHalf, 1, 1, 600, 3);
        EnterGrace(1, XOf(Events(1, 1)[1]) - 100, 4);
        ASSERT_EQ(Events(1, 1).size(), 3u);
        const int32_t grace = XOf(Events(1, 1)[1]), main = XOf(Events(1, 1)[2]);
        PressClef(first, 1, 1, grace - 10);
        PressClef(second, 1, 1, (grace + main) / 2);
        Enter(kQuarter, 2, 1, 0, 3);
        const int read = ClefAtStartOf(2);
        Step([&] { Do(kSpacing, {{"from", "1"}, {"to", "1"}}); });
        EXPECT_EQ(ClefAtStartOf(2), read);
    }
}

TEST_F(ClefMoves, ARefusedPasteLeavesTheSoundOfWhatMovesBack) {
    Fill(1, 1, kHalf, 2, 3);
    InVoice(2);
    Fill(1, 1, kQuarter, 3, 3);
    Fill(2, 1, kQuarter, 2, 3);
    PressClef(kBassItem, 1, 1, 490);
    ExpectHeightsOfNotation();
    const Point a = At(2, 1, -50, 20), b = At(2, 1, 1000, -10);
    window->TheSelection().Add({a.x, a.y, b.x, b.y});
    Copy(*window);
    window->caret = {MeasureNumber(1), StaffNumber(1), At(1, 1, 990, 5).x, true};
    // Five quarters crowd in front of the clef before the last of them is taken back.
    EXPECT_FALSE(Paste(*window));
    EXPECT_EQ(Events(1, 1, 2).size(), 4u);
    ExpectHeightsOfNotation();
    ExpectSound();
}

// A grace note reads the last clef of its measure.
TEST_F(ClefMoves, AGraceNoteSoundsByAClefThatComesToTheEndOfItsMeasure) {
    const struct {
        const char* why;
        int clefMeasure, clefPlace, graceMeasure, command;
        CommandArguments arguments;
    } cases[] = {
        {"the measure with the clef goes", 2, 500, 1, kRemoveMeasures, {{"from", "2"}}},
        {"a head of a system comes within", 4, -60, 3, kMeasuresPerSystem, {{"count", "6"}}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.why);
        window = Open("D", 3, 2);
        EnterGrace(each.graceMeasure, 0, 3);
        Enter(kQuarter, each.graceMeasure, 1, 300, 3);
        PressClef(kBassItem, each.clefMeasure, 1, each.clefPlace);
        Step([&] { Do(each.command, each.arguments); });
        EXPECT_TRUE(SignOf<MovingClaf>(Crossing(each.graceMeasure, 1)));
    }
}

}  // namespace
}  // namespace corvane
