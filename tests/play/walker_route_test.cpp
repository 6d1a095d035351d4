// Repetition texts that are followed, recording limits, and values that no score should hold.
#include <functional>
#include <sstream>

#include "events_SmallScore.h"
#include "play/DryPlay.h"
#include "play/InputRing.h"
#include "play/MIDIGrace.h"
#include "play/RecordingPort.h"

namespace corvane {
namespace {

class Route : public SmallScore {
protected:
    // Measures of one whole note, from C upwards.
    std::vector<Measure*> Score(int count) {
        std::vector<Measure*> measures;
        for (int i = 0; i < count; ++i) {
            measures.push_back(AddMeasure());
            Enter(VoiceOf(measures.back()), 1, {kC4 + i});
        }
        return measures;
    }
    void Mark(Measure* measure, const char* text) {
        auto* symbol = Make<SimpleFont>();
        symbol->_name = MakeText(text);
        documentFontSymbols.Add(document, symbol);
        auto* coda = Make<Coda>();
        coda->_symbol = symbol;
        measureSymbols.Add(measure, coda);
    }
    // Letters of the notes as they begin.
    std::string Played(bool follows = true, const Measure* from = nullptr) {
        PlaySetup setup;
        setup.followsTexts = follows;
        std::string letters;
        DryPlay(
            document,
            [&](std::string_view line) {
                std::istringstream words{std::string(line)};
                int tick, port, status, key, velocity;
                words >> tick >> port >> status >> key >> velocity;
                if ((status & 0xF0) == 0x90 && velocity) letters += "CcDdEFfGgAaB"[key % 12];
            },
            from, setup);
        return letters;
    }
};

TEST_F(Route, LeadsAsMusiciansReadTheTexts) {
    using Marks = std::vector<std::pair<int, const char*>>;
    const struct {
        const char* why;
        Marks marks;  // measures from 0
        const char* played;
    } kCases[] = {
        {"from the beginning, then on to the end", {{3, "D.C."}}, "CDEFCDEFGA"},
        {"to the Fine", {{4, "D.C. al fine"}, {1, "Fine"}}, "CDEFGCD"},
        {"a plain D.C. ends at a Fine too", {{5, "D.C."}, {2, "Fine"}}, "CDEFGACDE"},
        {"from the sign, past the coda's gap",
         {{1, "Segno"}, {2, "Al Coda"}, {4, "D.S. al coda"}, {5, "Coda"}},
         "CDEFGDEA"},
        {"the nearest sign before", {{0, "Segno"}, {2, "Segno"}, {3, "D.S."}}, "CDEFEFGA"},
        {"no sign to go to", {{2, "D.S."}, {4, "Segno"}}, "CDEFGA"},
        {"no coda to go to", {{2, "Al Coda"}, {4, "D.C. al coda"}}, "CDEFGCDEFGA"},
        {"a coda that has a D.S. of its own ends",
         {{0, "Segno"}, {1, "Al Coda"}, {3, "D.S. al coda"}, {4, "Coda"}, {5, "D.S."}},
         "CDEFCDGACDEFGA"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.why);
        const std::vector<Measure*> measures = Score(6);
        for (const auto& [measure, text] : c.marks) Mark(measures[static_cast<size_t>(measure)], text);
        EXPECT_EQ(Played(true), c.played);
        EXPECT_EQ(Played(false), "CDEFGA") << "not asked to follow";
        NewScore();
    }
}

TEST_F(Route, TakesRepeatsBeforeItTurnsAndNoneAfterwards) {
    const std::vector<Measure*> m = Score(6);
    m[1]->_startRepeat = 1;
    m[2]->_endRepeat = 1;
    AddEnding({m[2]}, "1.");
    AddEnding({m[3]}, "2.");
    Mark(m[4], "D.C. al fine");
    Mark(m[3], "Fine");
    m[4]->_endRepeat = 1;
    EXPECT_EQ(Played(), "CDEDFGCDF") << "the repeat was taken; then straight through the last ending";
    AddTempo(m[0], 1, 120);
    EXPECT_EQ(Played(true, m[3]), "FGDFGCDF")
        << "from the middle: to the start before it, then to the first measure";
}

TEST_F(Route, RecordingRunsBetweenItsLimits) {
    const std::vector<Measure*> m = Score(4);
    RecordingPort port;
    PlayFlags flags;
    flags.recording = flags.playing = true;
    TarnPlay play(flags);
    PlaySetup setup;
    setup.click.on = true;
    setup.click.port = 0;
    setup.click.countOffMeasures = 1;
    setup.limits = {m[1], 3, m[2], 2};
    play.Init(document, &port, setup);
    ASSERT_TRUE(play.Start(0));
    EXPECT_EQ(TheInputFlags().countOffTicks, 960);
    std::vector<int> changes;
    bool running = false;
    for (int tick = 0; tick < 6000; ++tick) {
        play.Tick(tick);
        if (TheInputFlags().running == running) continue;
        running = !running;
        changes.push_back(tick);
    }
    // Count-off from 120, music from 1080; six beats later it begins, five further on it is over.
    EXPECT_EQ(changes, (std::vector<int>{1080 + 6 * 240, 1080 + 10 * 240}));
    EXPECT_FALSE(flags.recording);
}

TEST_F(Route, ValuesThatNoScoreShouldHoldPlaySomehow) {
    Measure* measure = AddMeasure();
    GenericNote* note = NoteOf(Enter(VoiceOf(measure), 4, {kC4}));
    DocStaff* staff = documentDocStaffs.First(document);
    Time* mark = AddTempo(measure, 1, 60);
    const struct {
        const char* why;
        std::function<void()> harm;
        bool sounds;
    } kCases[] = {
        {"figure of no note", [&] { mark->_figure = 99; }, true},
        {"endless dots", [&] { mark->_dots = 32767; }, true},
        {"tempo below nothing", [&] { mark->_bpm = -30000; }, true},
        {"slowest tuplet", [&] { mark->_figure = 8, mark->_bpm = 1, mark->_tupletNormal = 32767; }, true},
        {"no meter", [&] { measure->_num = measure->_den = 0; }, true},
        {"negative meter", [&] { measure->_num = measure->_den = -5; }, true},
        {"volume beyond a byte", [&] { staff->_voices[0]._volume = 32767; }, true},
        {"velocity beyond a byte", [&] { NoteOnOf(note)->_velocity = 32767; }, true},
        {"program beyond the last", [&] { staff->_voices[0]._program = 300; }, true},
        {"no such key",
         [&] {
             NoteOnOf(note)->_height = 2147483647;
             staff->_voices[0]._transposition = 32767;
         },
         false},
        {"no such channel", [&] { staff->_voices[0]._channel = 17; }, false},
        {"no such port", [&] { staff->_voices[0]._port = 32767; }, false},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.why);
        c.harm();
        SetVelocities({note}, 10, 20);
        EXPECT_EQ(!Played().empty(), c.sounds);
    }
}

TEST_F(Route, GraceNotesNeverTakeMoreThanThereIs) {
    auto* preferences = Make<GracePref>();
    SetText(preferences->_className, "GracePref");
    documentPreferences.Add(document, preferences);
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    Enter(voice, 4, {kC4});
    GraceChord* grace = PutGrace(voice, 1, kD4);
    Enter(voice, 4, {kE4});
    for (const int mode : {17, 18})
        for (const int percent : {-500, 0, 500, 2147483647}) {
            SCOPED_TRACE(percent);
            preferences->_mode = static_cast<int16_t>(mode);
            preferences->_percentAssigned = preferences->_percentCut = percent;
            MakeGraceEvents(grace);
            for (const TimeElement* element : measureTimeElements.Of(measure)) {
                EXPECT_GE(TimePlaceOf(element), (TimePlace{1, 0}));
                EXPECT_LE(TimePlaceOf(element), (TimePlace{3, 0}));
            }
        }
}

}  // namespace
}  // namespace corvane
