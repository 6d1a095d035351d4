// Scores made by the same steps that a person takes, and the ticks that they are played at, worked out by
// hand: the first beat at 120, a quarter at 60 lasting 240.
#include "play/DryPlay.h"
#include "sign_fixture.h"

namespace corvane {
namespace {

constexpr int kTime = 32779, kTempo = 32778, kBarline = 32783, kEndings = 32796, kAddPages = 32790,
              kTieNotes = 32804, kGraceOptions = 33088, kMixer = 33050;
constexpr int k64th = 15;  // of the palette

class PlayCases : public SignTest {
protected:
    // "120:60 360:62": note-ons of the first staff's port by tick and key; `ends` for the note-offs.
    std::string Sounds(bool ends = false, const PlaySetup& setup = {}) {
        std::string text;
        DryPlay(
            Score(),
            [&](std::string_view line) {
                int tick, port, status, key, velocity;
                if (std::sscanf(std::string(line).c_str(), "%d %d %d %d %d", &tick, &port, &status, &key,
                                &velocity) != 5 ||
                    port == setup.click.port || (status & 0xF0) != 0x90 || (velocity == 0) != ends)
                    return;
                text += (text.empty() ? "" : " ") + std::to_string(tick) + ':' + std::to_string(key);
            },
            nullptr, setup);
        return text;
    }
    std::vector<int> Clicks(const PlaySetup& setup) {
        std::vector<int> ticks;
        DryPlay(
            Score(),
            [&](std::string_view line) {
                int tick, port, status, key, velocity;
                if (std::sscanf(std::string(line).c_str(), "%d %d %d %d %d", &tick, &port, &status, &key,
                                &velocity) == 5 &&
                    port == setup.click.port && (status & 0xF0) == 0x90 && velocity > 0)
                    ticks.push_back(tick);
            },
            nullptr, setup);
        return ticks;
    }
    // Behind what the voice holds.
    void Append(int item, int measure, int line) { Enter(item, measure, 1, 940, line); }
    static PlaySetup Clicked(int countOff) {
        PlaySetup setup;
        setup.click.on = true;
        setup.click.port = 5;
        setup.click.countOffMeasures = countOff;
        return setup;
    }
};

// Lines from 0: d' 62, e' 64, f' 65, g' 67, a' 69.

TEST_F(PlayCases, PlainNotesOfTwoStaves) {
    Do(kMixer, {{"staff", "1"}, {"port", "2"}, {"channel", "3"}, {"program", "41"}, {"volume", "100"}});
    Do(kMixer, {{"staff", "2"}, {"channel", "4"}, {"transposition", "-12"}});
    Append(kQuarter, 1, 0);
    Append(kQuarterRest, 1, 4);
    Append(kHalf, 1, 2);
    Enter(kHalf, 1, 2, 100, 5);  // d, two octaves below the d'
    // The program and full volume first; velocity 64 of 127, with a volume of 100 fifty of it.
    EXPECT_EQ(DryPlay(Score()),
              "0 2 194 40 0\n0 2 178 7 127\n"
              "120 2 146 62 50\n120 -1 147 38 64\n"
              "360 2 146 62 0\n"
              "600 -1 147 38 0\n600 2 146 65 50\n"
              "1080 2 146 65 0\n");
}

TEST_F(PlayCases, MetersAndTheirCarry) {
    // A beat of 5/6 is two thirds of a quarter: 160 ticks, a measure 800.
    Do(kTime, {{"num", "5"}, {"den", "6"}, {"from", "1"}, {"to", "2"}});
    Append(kQuarter, 1, 0);
    Append(kQuarter, 1, 1);
    Append(kQuarter, 2, 2);
    EXPECT_EQ(Sounds(), "120:62 280:64 920:65");
    // 7/128: a beat of 7.5, a measure of 52 and 56 in turn; a 64th is two of its beats.
    Do(kTime, {{"num", "7"}, {"den", "128"}, {"from", "3"}, {"to", "6"}});
    for (int measure = 3; measure <= 6; ++measure) Append(k64th, measure, 3);
    EXPECT_EQ(Sounds(), "120:62 280:64 920:65 1720:67 1772:67 1828:67 1880:67");
    EXPECT_EQ(Sounds(true), "280:62 440:64 1080:65 1735:67 1788:67 1843:67 1896:67");
}

TEST_F(PlayCases, TempoChangesInsideMeasures) {
    for (int i = 0; i < 4; ++i) Append(kQuarter, 1, i);
    Append(kHalf, 2, 0);
    Do(kTempo, {{"measure", "1"}, {"beat", "2"}, {"figure", "8"}, {"bpm", "60"}});
    Do(kTempo, {{"measure", "1"}, {"beat", "4"}, {"figure", "2"}, {"bpm", "60"}});
    // 240 to the second beat, two of 480 at an eighth = 60, one of 120 at a half = 60.
    EXPECT_EQ(Sounds(), "120:62 360:64 840:65 1320:67 1440:62");
    EXPECT_EQ(Sounds(true), "360:62 840:64 1320:65 1440:67 1680:62");
}

TEST_F(PlayCases, PickupAndCountOffOfSevenBeats) {
    Step([&] { Do(kTime, {{"num", "1"}, {"den", "4"}, {"from", "1"}, {"pickup", "1"}}); });
    Append(kQuarter, 1, 0);
    Append(kWhole, 2, 1);
    ExpectSameAfterReload();
    const PlaySetup setup = Clicked(1);
    // Four beats and the three that the pickup lacks, from 120; the pickup at 120 + 7 * 240.
    EXPECT_EQ(Sounds(false, setup), "1800:62 2040:64");
    const std::vector<int> clicks = Clicks(setup);
    ASSERT_GE(clicks.size(), 9u);
    for (int beat = 0; beat < 9; ++beat) EXPECT_EQ(clicks[static_cast<size_t>(beat)], 120 + 240 * beat);
}

TEST_F(PlayCases, RepeatsEndingsAndAStartWithinARepeat) {
    for (int measure = 1; measure <= 6; ++measure) Append(kWhole, measure, measure - 1);
    for (const char* measure : {"2", "3"}) Do(kBarline, {{"measure", measure}, {"type", "repeatstart"}});
    Do(kBarline, {{"measure", "4"}, {"type", "repeatend"}});
    Do(kEndings, {{"from", "4"}, {"to", "4"}, {"text", "1."}});
    Do(kEndings, {{"from", "5"}, {"to", "5"}, {"text", "2."}});
    // The later start takes over; the first ending is left out on the repeat.
    EXPECT_EQ(Sounds(), "120:62 1080:64 2040:65 3000:67 3960:65 4920:69 5880:71");
}

TEST_F(PlayCases, OverfullVoicesEndWithTheirMeasure) {
    Switches().autoSpace = false;  // what keeps a full voice from taking more
    for (int i = 0; i < 5; ++i) Append(kQuarter, 1, i);
    Append(kQuarter, 2, 0);
    EXPECT_EQ(Sounds(), "120:62 360:64 600:65 840:67 1080:62");
    EXPECT_EQ(Sounds(true), "360:62 600:64 840:65 1080:67 1080:69 1320:62");
}

TEST_F(PlayCases, ATiedChainOverPagesSoundsOnce) {
    for (int measure = 1; measure <= 6; ++measure) Append(kWhole, measure, measure < 5 ? 2 : 3);
    Do(kAddPages, {{"count", "1"}});
    ASSERT_EQ(documentPages.Count(Score()), 2);
    window->SetCurrentPage(documentPages.Last(Score()));
    Append(kWhole, 7, 3);
    window->TheSelection().SelectAll();
    Do(kTieNotes, {});
    // Four measures of one pitch are one note, and so are two on the first page with one on the second.
    EXPECT_EQ(Sounds(), "120:65 3960:67");
    EXPECT_EQ(Sounds(true), "3960:65 6840:67");
}

TEST_F(PlayCases, SoloAndMute) {
    Append(kWhole, 1, 0);
    Enter(kWhole, 1, 2, 100, 5);
    const std::string both = Sounds();
    EXPECT_EQ(both.size(), std::string("120:62 120:50").size());
    Do(kMixer, {{"staff", "1"}, {"on", "0"}});
    EXPECT_EQ(Sounds(), both.substr(7)) << "the first staff is mute";
    Do(kMixer, {{"staff", "1"}, {"solo", "1"}});
    EXPECT_EQ(Sounds(), both.substr(0, 6)) << "solo takes the mute away";
    Do(kMixer, {{"staff", "2"}, {"solo", "1"}});
    EXPECT_EQ(Sounds(), both);
    Do(kMixer, {{"staff", "1"}, {"on", "0"}});
    EXPECT_EQ(Sounds(), both.substr(7)) << "mute takes the solo away";
}

TEST_F(PlayCases, GraceNotesBothWays) {
    const auto enter = [&](const char* from, int measure) {
        Do(kGraceOptions, {{"time", from}, {"assigned", "100"}, {"cut", "50"}});
        Append(kQuarter, measure, 0);
        Append(kQuarter, measure, 1);
        ToggleGrace();
        const auto* second = Events(measure, 1)[1];
        Enter(kEighth, measure, 1, XOf(second) - 30, 4);
        ToggleGrace();
    };
    enter("following", 1);
    enter("preceding", 2);
    // An eighth is half a quarter: taken from the next, 360 + 120, and from the one before, 1320 - 120.
    EXPECT_EQ(Sounds(), "120:62 360:69 480:64 1080:62 1200:69 1320:64");
    EXPECT_EQ(Sounds(true), "360:62 480:69 600:64 1200:62 1320:69 1560:64");
    // Another share for those of the first measure alone: a quarter of the quarter.
    Step([&] { Do(kGraceOptions, {{"time", "preceding"}, {"cut", "25"}, {"from", "1"}, {"to", "1"}}); });
    EXPECT_EQ(Sounds(), "120:62 300:69 360:64 1080:62 1200:69 1320:64");
    EXPECT_EQ(Refusal(kGraceOptions, {{"cut", "101"}}), "cut is a whole number from 0 to 100");
}

}  // namespace
}  // namespace corvane
