// A real clock plays while the main thread does all that a person may do meanwhile. The thread sanitizer
// watches.
#include <array>
#include <atomic>
#include <thread>

#include "events_SmallScore.h"
#include "model/Par.h"
#include "platform/timer/TimerClock.h"
#include "play/Mixer.h"
#include "play/PlayCursor.h"
#include "play/RecordingPort.h"
#include "play/TaskPlay.h"
#include "store/MemoryManager.h"

namespace corvane {
namespace {

struct Watching : PlayListener {
    PlayCursor cursor;
    std::atomic<int> measure{0}, elapsed{0};
    void Counter(const Measure* at, int) override { measure = at->_number; }
    void Elapsed(int32_t ticks) override { elapsed = ticks; }
    void MoveCursor(const Measure* at, int beat) override { cursor.Move(at, beat); }
};

class LivePlay : public SmallScore {
protected:
    // Two staves of sixteenths at a high tempo, the click beside them.
    void Compose() {
        AddStaff();
        AddStaff()->_voices[0]._channel = 2;
        for (int i = 0; i < 24; ++i) {
            Measure* measure = AddMeasure();
            for (int staff = 0; staff < 2; ++staff)
                for (int note = 0; note < 8; ++note) Enter(VoiceOf(measure, staff), 8, {kC4 + note});
        }
        AddTempo(MeasureNumber(1), 1, 900);
        setup.listener = &watching;
        setup.click.on = true;
        setup.click.port = 3;
    }
    Measure* MeasureNumber(int number) {
        Measure* measure = systemMeasures.First(pageSystems.First(documentPages.First(document)));
        while (--number > 0) measure = NextMeasure(measure);
        return measure;
    }
    bool Begin(const Measure* from = nullptr) {
        watching.cursor.SetStart(from ? from : MeasureNumber(1), PlayCursor::Step::Beat);
        return task.Init(
                   document,
                   [](int resolution, int unit, ClockDealer* out) {
                       return std::make_unique<TimerClock>(resolution, unit, out);
                   },
                   setup) &&
               task.Start(from);
    }
    void WaitFor(int measure) {
        while (watching.measure < measure) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    // Keys that nobody has ended.
    int Sounding() const {
        std::array<std::array<std::array<bool, 128>, 16>, 8> on{};
        int count = 0;
        for (const SentMessage& sent : port.Messages()) {
            if ((sent.status & 0xF0) != 0x90) continue;
            bool& key = on[static_cast<size_t>(sent.port + 1)][sent.status & 15][sent.data1];
            const bool now = sent.data2 != 0;
            count += int{now} - int{key};
            key = now;
        }
        return count;
    }
    RecordingPort port;
    Watching watching;
    PlaySetup setup;
    TaskPlay task;
};

TEST_F(LivePlay, MixerTempoAndCursorActMeanwhileAndNothingHangs) {
    Compose();
    ASSERT_TRUE(Begin());
    DocStaff *upper = documentDocStaffs.First(document), *lower = documentDocStaffs.Last(document);
    for (int turn = 0; watching.measure < 12; ++turn) {
        MemoryManager::Instance().BeginCommand();
        SetActive(upper, turn % 3 != 0);
        SetSolo(lower, turn % 4 == 0);
        SetVoiceValue(upper, 1, VoiceValue::Volume, turn % 128);
        SetVoiceValue(upper, 1, VoiceValue::Channel, 1 + turn % 16);
        SetVoiceValue(lower, 1, VoiceValue::Transposition, turn % 12);
        MemoryManager::Instance().EndCommand();
        task.Play()->SetResolution(ResolutionOfSlider(95 + turn % 10));
        if (turn % 5 == 0) task.Play()->ApplyTempoAtCursor();
        if (watching.cursor.TakeMoved()) {
            EXPECT_GE(watching.cursor.Where().measure->_number, 1);
        }
        EXPECT_FALSE(task.StopIfOver());
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    EXPECT_GT(watching.elapsed, 0);
    task.Stop();
    EXPECT_EQ(Sounding(), 0);
}

TEST_F(LivePlay, EveryWayToEndLeavesSilence) {
    Compose();
    for (const int from : {1, 7, 20}) {
        watching.measure = 0;
        ASSERT_TRUE(Begin(MeasureNumber(from)));
        WaitFor(from);
        if (from == 7) port.Reset();  // panic while it plays
        if (from == 20)
            while (!task.StopIfOver()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        task.Stop();
        EXPECT_EQ(Sounding(), 0) << from;
        EXPECT_EQ(SoundClock::Instance(), nullptr);
    }
}

}  // namespace
}  // namespace corvane
