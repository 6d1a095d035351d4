// The click beside the notes, the count-off, and what a play leaves behind.
#include <sstream>

#include "events_SmallScore.h"
#include "play/DryPlay.h"
#include "play/RecordingPort.h"
#include "play/TaskPlay.h"
#include "walker_Allocations.h"

namespace corvane {
namespace {

ClickSettings LoudClick(int countOff) {
    ClickSettings click;
    click.on = true;
    click.port = 3;
    click.channel = 10;
    click.barPitch = 80;
    click.beatPitch = 70;
    click.barVolume = 120;
    click.beatVolume = 90;
    click.barDuration = click.beatDuration = 6;  // 24 ticks
    click.countOffMeasures = countOff;
    return click;
}

class Click : public SmallScore {
protected:
    // Note-ons on the click's port as "TICK:PITCH", those of the notes as "TICK:note".
    std::string Starts(const ClickSettings& click, int velocities = 0) {
        std::string sent;
        DryPlay(document, [&](std::string_view line) { sent += line; }, nullptr, {.click = click});
        std::istringstream lines(sent);
        std::string text;
        for (int tick, port, status, key, velocity; lines >> tick >> port >> status >> key >> velocity;) {
            if ((status & 0xF0) != 0x90 || velocity <= velocities) continue;
            text += std::to_string(tick) + ':' + (port == click.port ? std::to_string(key) : "note") + ' ';
        }
        return text;
    }
};

TEST_F(Click, MarksBarsAndBeatsAndStopsEachClick) {
    Measure* measure = AddMeasure(3, 4);
    Enter(VoiceOf(measure), 2, {kC4});
    ClickSettings click = LoudClick(0);
    EXPECT_EQ(Starts(click), "120:note 120:80 360:70 600:70 ");
    std::string sent;
    DryPlay(document, [&](std::string_view line) { sent += line; }, nullptr, {.click = click});
    EXPECT_EQ(sent.substr(0, sent.find("360 ")),
              "120 -1 144 60 64\n"
              "120 3 201 1 0\n"
              "120 3 153 80 120\n"
              "144 3 201 1 0\n"
              "144 3 153 80 0\n");
    click.on = false;
    EXPECT_EQ(Starts(click), "120:note ");
}

TEST_F(Click, CountsOffTwoMeasures) {
    Measure* measure = AddMeasure();
    Enter(VoiceOf(measure), 4, {kC4});
    EXPECT_EQ(Starts(LoudClick(2)),
              "120:80 360:70 600:70 840:70 1080:80 1320:70 1560:70 1800:70 "
              "2040:note 2040:80 2280:70 ");
    ClickSettings muted = LoudClick(1);
    muted.muteAfterCountOff = true;
    EXPECT_EQ(Starts(muted), "120:80 360:70 600:70 840:70 1080:note ");
}

TEST_F(Click, CountsOffToAPickupInTheMeterOfTheFullMeasure) {
    Measure* pickup = AddMeasure(1, 4);
    Enter(VoiceOf(pickup), 4, {kC4});
    Measure* full = AddMeasure();
    Enter(VoiceOf(full), 2, {kD4});
    TimeSignature* signature = Make<TimeSignature>();
    signature->_pickup = 1;
    staffSymbols.Add(Crossing(pickup), signature);
    const std::string starts = Starts(LoudClick(1));
    // Seven beats, then the pickup as the fourth of its bar, then the full measure's first.
    EXPECT_EQ(starts.substr(0, starts.find("2040:")),
              "120:80 360:70 600:70 840:70 1080:80 1320:70 1560:70 1800:note 1800:70 ");
    EXPECT_NE(starts.find("2040:note 2040:80"), std::string::npos) << starts;
    EXPECT_EQ(Starts(LoudClick(0)).substr(0, 19), "120:note 120:80 360") << "no count-off, no seven beats";
}

struct Heard : PlayListener {
    void MoveCursor(const Measure* measure, int beat) override {
        cursor.emplace_back(measure->_number, beat);
    }
    void NewBar() override { ++bars; }
    void TempoChanged(const Measure*, int, int bpm) override { tempos.push_back(bpm); }
    std::vector<std::pair<int, int>> cursor;
    std::vector<int> tempos;
    int bars = 0;
};

class Task : public SmallScore {
protected:
    // A play on a clock that the test moves.
    bool Begin(const TaskPlay::Setup& setup = {}) {
        const auto makeClock = [this](int resolution, int unit, ClockDealer* out) {
            auto clock = std::make_unique<ManualClock>(resolution, unit, out);
            _clock = clock.get();
            return clock;
        };
        return task.Init(document, makeClock, setup) && task.Start();
    }
    // Until just behind the callbacks of a tick.
    void RunTo(int tick) {
        while (_clock->Time() < tick) _clock->Fire();
        for (int i = 0; i < 3; ++i) _clock->Fire();
    }
    std::vector<int> StartTicks() const {
        std::vector<int> ticks;
        for (const SentMessage& sent : port.Messages())
            if (sent.data2 && (sent.status & 0xF0) == 0x90) ticks.push_back(sent.tick);
        return ticks;
    }
    RecordingPort port;
    TaskPlay task;

private:
    ManualClock* _clock = nullptr;
};

TEST_F(Task, StopsByItselfAndOnDemandWithoutAHangingNote) {
    Enter(VoiceOf(AddMeasure()), 4, {kC4});
    ASSERT_TRUE(Begin());
    EXPECT_TRUE(IsPlaying());
    EXPECT_FALSE(task.StopIfOver());
    RunTo(130);
    task.Stop();
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(SoundClock::Instance(), nullptr);
    bool sounding = false;
    for (const SentMessage& sent : port.Messages())
        if ((sent.status & 0xF0) == 0x90) sounding = sent.data2 != 0;
    EXPECT_FALSE(sounding);

    ASSERT_TRUE(Begin());
    RunTo(360);
    EXPECT_FALSE(ThePlayFlags().playing) << "the last element has fired";
    const size_t sent = port.Messages().size();
    RunTo(400);
    EXPECT_EQ(port.Messages().size(), sent) << "nothing comes behind the last element";
    EXPECT_TRUE(task.StopIfOver());
    EXPECT_FALSE(IsPlaying());
}

TEST_F(Task, RefusesAScoreWithoutNotes) {
    AddMeasure();
    EXPECT_FALSE(Begin());
    EXPECT_FALSE(IsPlaying());
    EXPECT_FALSE(task.IsPrepared());
}

TEST_F(Task, FollowsTheTempoSliderAtOnce) {
    EnterQuarters(AddMeasure(), {kC4, kD4, kE4, kF4});
    EnterQuarters(AddMeasure(), {kC4});
    ASSERT_TRUE(Begin());
    RunTo(239);
    task.Play()->SetResolution(ResolutionOfSlider(100) / 2);
    RunTo(1000);
    // Half a beat had passed; the other half and all that follow take half their time.
    EXPECT_EQ(StartTicks(), (std::vector<int>{120, 300, 420, 540, 660}));
    EXPECT_EQ(ResolutionOfSlider(100), 240);
    EXPECT_EQ(ResolutionOfSlider(0), 2400);
    EXPECT_EQ(ResolutionOfSlider(200), 24);
}

TEST_F(Task, TellsWhereItIs) {
    EnterQuarters(AddMeasure(2, 4), {kC4, kD4});
    Measure* second = AddMeasure(2, 4);
    EnterQuarters(second, {kC4, kD4});
    AddTempo(second, 1, 120);
    Heard heard;
    TaskPlay::Setup setup;
    setup.listener = &heard;
    ASSERT_TRUE(Begin(setup));
    RunTo(900);
    // The cursor stands at the start when play begins.
    EXPECT_EQ(heard.cursor, (std::vector<std::pair<int, int>>{{1, 1}, {2, 0}, {2, 1}}));
    EXPECT_EQ(heard.tempos, (std::vector<int>{120}));
    EXPECT_GE(heard.bars, 2);
    task.Stop();
}

TEST_F(Task, AllocatesNothingOnTheWay) {
    for (int i = 0; i < 8; ++i) EnterQuarters(AddMeasure(), {kC4, kD4, kE4, kF4});
    port.Reserve(1000);
    ASSERT_TRUE(Begin());
    StartCountingAllocations();
    RunTo(8 * 960 + 200);
    EXPECT_EQ(StopCountingAllocations(), 0);
    EXPECT_EQ(StartTicks().size(), 32u);
    task.Stop();
}

}  // namespace
}  // namespace corvane
