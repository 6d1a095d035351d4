// What a play sends, and when: ticks of 4 ms, the first beat at 120, a quarter at 60 lasting 240.
#include <algorithm>
#include <sstream>

#include "events_SmallScore.h"
#include "play/DryPlay.h"
#include "play/TarnPlaySound.h"

namespace corvane {
namespace {

class Walker : public SmallScore {
protected:
    // "120:C 360:D" - the note-ons of a dry play by key name, one octave from middle C; 48 and below as
    // numbers.
    std::string Starts(const Measure* from = nullptr) { return Messages(from, true); }
    std::string Ends(const Measure* from = nullptr) { return Messages(from, false); }

    // A measure whose notes are of one value.
    Measure* MeasureOf(const std::vector<int>& lines, int value = 4, int num = 4, int den = 4) {
        Measure* measure = AddMeasure(num, den);
        for (const int line : lines) Enter(VoiceOf(measure), value, {line});
        return measure;
    }

private:
    std::string Messages(const Measure* from, bool on) {
        std::istringstream lines(DryPlay(document, from));
        std::string text;
        for (int tick, port, status, key, velocity; lines >> tick >> port >> status >> key >> velocity;) {
            if ((velocity != 0) != on) continue;
            if (!text.empty()) text += ' ';
            text += std::to_string(tick) + ':' + "CcDdEFfGgAaB"[key % 12];
        }
        return text;
    }
};

TEST_F(Walker, PlaysPlainNotesAndEndsBehindTheLast) {
    DocStaff* staff = AddStaff();
    staff->_voices[0]._program = 13;
    staff->_voices[0]._port = 2;
    staff->_voices[0]._channel = 5;
    staff->_voices[0]._volume = 100;
    staff->_voices[0]._transposition = -12;
    MeasureOf({kC4, kD4, kE4, kF4});
    MeasureOf({kG4}, 1);
    // Velocity 100 * 64 / 127; four beats to a measure; a note ends before the next begins.
    EXPECT_EQ(DryPlay(document),
              "0 2 196 12 0\n"
              "0 2 180 7 127\n"
              "120 2 148 48 50\n"
              "360 2 148 48 0\n"
              "360 2 148 50 50\n"
              "600 2 148 50 0\n"
              "600 2 148 52 50\n"
              "840 2 148 52 0\n"
              "840 2 148 53 50\n"
              "1080 2 148 53 0\n"
              "1080 2 148 55 50\n"
              "2040 2 148 55 0\n");
}

TEST_F(Walker, CountsTempoChangesInsideMeasures) {
    Measure* one = MeasureOf({kC4, kD4, kE4, kF4});
    Measure* two = MeasureOf({kC4, kD4, kE4, kF4});
    AddTempo(one, 3, 120);
    // Two beats of 240, two of 120; then 120 until told otherwise.
    EXPECT_EQ(Starts(), "120:C 360:D 600:E 720:F 840:C 960:D 1080:E 1200:F");
    EXPECT_EQ(Starts(two), "120:C 240:D 360:E 480:F") << "the last tempo before the start holds";
    Time* mark = AddTempo(two, 1, 60);
    mark->_dots = 1;
    // A dotted quarter at 60: a quarter lasts 160.
    EXPECT_EQ(Starts(), "120:C 360:D 600:E 720:F 840:C 1000:D 1160:E 1320:F");
    mark->_dots = 0;
    mark->_tupletActual = 2;
    mark->_tupletNormal = 3;
    EXPECT_EQ(Starts(two), "120:C 480:D 840:E 1200:F") << "a triplet quarter at 60";
}

TEST_F(Walker, GivesOddMetersTheirLength) {
    MeasureOf({kC4, kD4}, 4, 5, 6);
    MeasureOf({kE4}, 4, 5, 6);
    // A sixth counts two thirds of a quarter; five of them are a measure.
    EXPECT_EQ(Starts(), "120:C 280:D 920:E");
}

TEST_F(Walker, CarriesWhatRoundingLeaves) {
    for (int i = 0; i < 4; ++i) MeasureOf({kC4, kD4, kE4, kF4, kG4, kA4, kB4}, 128, 7, 128);
    const std::string starts = Starts();
    // 7 times 7.5 is 52.5, so 52 and 56 in turn.
    std::string downbeats;
    std::istringstream all(starts);
    for (std::string start; all >> start;)
        if (start.back() == 'C') downbeats += start + ' ';
    EXPECT_EQ(downbeats, "120:C 172:C 228:C 280:C ");
}

TEST_F(Walker, LetsTheTimeOfEmptyMeasuresPass) {
    AddMeasure();
    MeasureOf({kC4}, 1);
    AddMeasure(3, 4);
    MeasureOf({kD4}, 1);
    EXPECT_EQ(Starts(), "1080:C 2760:D");
    EXPECT_EQ(Ends(), "2040:C 3720:D");
}

TEST_F(Walker, PlaysATieOverABarlineAsOneNote) {
    GenericNote* first = NoteOf(Enter(VoiceOf(AddMeasure()), 1, {kC4}));
    GenericNote* second = NoteOf(Enter(VoiceOf(AddMeasure()), 2, {kC4}));
    Tie(first, second);
    TieNotes(first, second);
    EXPECT_EQ(Starts(), "120:C");
    EXPECT_EQ(Ends(), "1560:C");
}

TEST_F(Walker, SilencesWhatOverfillsAMeasure) {
    MeasureOf({kC4, kD4, kE4, kF4, kG4});
    MeasureOf({kA4}, 1);
    EXPECT_EQ(Starts(), "120:C 360:D 600:E 840:F 1080:A");
    EXPECT_EQ(Ends(), "360:C 600:D 840:E 1080:F 1080:G 2040:A");
}

TEST_F(Walker, RepeatsWithEndings) {
    Measure* intro = MeasureOf({kC4}, 1);
    Measure* begin = MeasureOf({kD4}, 1);
    Measure* firstTime = MeasureOf({kE4}, 1);
    Measure* secondTime = MeasureOf({kF4}, 1);
    Measure* again = MeasureOf({kG4}, 1);
    (void)intro;
    begin->_startRepeat = 1;
    firstTime->_endRepeat = 1;
    AddEnding({firstTime}, "1.");
    AddEnding({secondTime}, "2.");
    EXPECT_EQ(Starts(), "120:C 1080:D 2040:E 3000:D 3960:F 4920:G");
    EXPECT_EQ(Starts(firstTime), "120:E 1080:D 2040:F 3000:G") << "to the nearest start before";

    again->_endRepeat = 1;
    EXPECT_EQ(Starts(), "120:C 1080:D 2040:E 3000:D 3960:F 4920:G") << "that section had its second pass";
    again->_startRepeat = 1;
    EXPECT_EQ(Starts(), "120:C 1080:D 2040:E 3000:D 3960:F 4920:G 5880:G") << "one measure alone";
    begin->_startRepeat = again->_startRepeat = again->_endRepeat = 0;
    EXPECT_EQ(Starts(), "120:C 1080:D 2040:E 3000:C 3960:D 4920:F 5880:G")
        << "no start: to the first measure";
}

TEST_F(Walker, LetsALaterStartTakeOver) {
    Measure *a = MeasureOf({kC4}, 1), *b = MeasureOf({kD4}, 1), *c = MeasureOf({kE4}, 1);
    a->_startRepeat = b->_startRepeat = 1;
    c->_endRepeat = 1;
    EXPECT_EQ(Starts(), "120:C 1080:D 2040:E 3000:D 3960:E");
}

TEST_F(Walker, TakesTheTempoOfTheGoalWhenItJumps) {
    Measure *a = MeasureOf({kC4}, 1), *b = MeasureOf({kD4}, 1);
    b->_endRepeat = 1;
    AddTempo(b, 1, 120);
    EXPECT_EQ(Starts(), "120:C 1080:D 1560:C 2040:D") << "none there: nothing changes";
    AddTempo(a, 1, 60);
    EXPECT_EQ(Starts(), "120:C 1080:D 1560:C 2520:D");
}

TEST_F(Walker, SkipsAnOverfullMeasureOnceOnly) {
    Measure* measure = MeasureOf({kC4, kD4, kE4, kF4, kG4});
    measure->_endRepeat = 1;
    EXPECT_EQ(Starts(), "120:C 360:D 600:E 840:F 1080:C 1320:D 1560:E 1800:F");
}

TEST_F(Walker, HearsTheStavesThatAreActiveOrSoloed) {
    DocStaff *upper = AddStaff(), *lower = AddStaff();
    Measure* measure = AddMeasure();
    Enter(VoiceOf(measure, 0), 1, {kC4});
    Enter(VoiceOf(measure, 1), 1, {kE4});
    EXPECT_EQ(Starts(), "120:C 120:E");
    upper->_active = 0;
    EXPECT_EQ(Starts(), "120:E");
    upper->_active = 1;
    StoreShared(upper->_solo, uint8_t{1});
    StoreShared(document->_hasSolo, uint8_t{1});
    EXPECT_EQ(Starts(), "120:C");
    lower->_solo = 1;
    EXPECT_EQ(Starts(), "120:C 120:E");
    lower->_voices[0]._transposition = 100;
    upper->_voices[0]._channel = 17;
    EXPECT_EQ(Starts(), "") << "no such key, no such channel";
}

TEST_F(Walker, HasNothingToDoWithoutElements) {
    EXPECT_EQ(DryPlay(document), "");
    PutRest(VoiceOf(AddMeasure()), 1);
    ClickSettings click;
    click.on = true;
    click.port = 0;
    std::string text;
    DryPlay(document, [&](std::string_view line) { text += line; }, nullptr, {.click = click});
    EXPECT_EQ(text, "");
}

}  // namespace
}  // namespace corvane
