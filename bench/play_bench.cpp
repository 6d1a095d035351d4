// What a tick of the walker costs, and how late messages of a real play are beside a bare timer that runs at
// the same time.
#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "LargeScore.h"
#include "platform/timer/TimerClock.h"
#include "play/DryPlay.h"
#include "play/RecordingPort.h"
#include "play/TaskPlay.h"

namespace corvane {
namespace {

constexpr int64_t kUnit = 4'000'000;  // nanoseconds

int64_t Nanoseconds() {
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return int64_t{t.tv_sec} * 1'000'000'000 + t.tv_nsec;
}

void Report(benchmark::State& state, const char* name, std::vector<int64_t>& nanoseconds) {
    std::sort(nanoseconds.begin(), nanoseconds.end());
    const auto at = [&](size_t perMille) {
        return static_cast<double>(nanoseconds[(nanoseconds.size() - 1) * perMille / 1000]) / 1000;
    };
    state.counters[std::string(name) + "_p50_us"] = at(500);
    state.counters[std::string(name) + "_p99_us"] = at(990);
    state.counters[std::string(name) + "_worst_us"] = at(1000);
}

// Counts messages and forgets them.
class NowherePort : public SoundPort {
public:
    int16_t Count() const override { return 16; }
    int64_t count = 0;

protected:
    bool Send(int16_t, uint8_t, uint8_t, uint8_t) override { return ++count; }
    bool IsOpen(int16_t) const override { return true; }
};

// Every tick of ten minutes out of the middle of 10,000 measures on four staves.
void WalkerTick(benchmark::State& state) {
    StartUpForBench();
    const auto window = LargeScore(10000, "DD", 8);
    constexpr int32_t kTicks = 150'000;
    std::vector<int64_t> costs, sending;  // of all ticks, of those that sent something
    for (auto _ : state) {
        NowherePort port;
        PlayFlags flags;
        flags.playing = true;
        TarnPlay play(flags);
        play.Init(window->GetDocument(), &port);
        play.Start(0);
        costs.clear();
        sending.clear();
        costs.reserve(kTicks);
        sending.reserve(kTicks);
        for (int32_t tick = 0; tick < kTicks; ++tick) {
            const int64_t before = port.count, begin = Nanoseconds();
            play.Tick(tick);
            costs.push_back(Nanoseconds() - begin);
            if (port.count != before) sending.push_back(costs.back());
        }
    }
    Report(state, "tick", costs);
    Report(state, "sending", sending);
}
BENCHMARK(WalkerTick)->Iterations(1)->Unit(benchmark::kMillisecond);

// When each message was sent.
class TimingPort : public NowherePort {
public:
    explicit TimingPort(size_t expected) { sent.reserve(expected); }
    std::vector<int64_t> sent;

protected:
    bool Send(int16_t, uint8_t, uint8_t, uint8_t) override {
        if (sent.size() < sent.capacity()) sent.push_back(Nanoseconds());
        return true;
    }
};

// The lateness of wake-ups every 4 ms.
class BareTimer {
public:
    BareTimer() : _thread([this] { Run(); }) { late.reserve(100'000); }
    void Stop() {
        _stop = true;
        _thread.join();
    }
    std::vector<int64_t> late;

private:
    void Run() {
        for (int64_t due = Nanoseconds(); !_stop;) {
            due += kUnit;
            const timespec t{due / 1'000'000'000, due % 1'000'000'000};
            clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &t, nullptr);
            late.push_back(Nanoseconds() - due);
        }
    }
    std::atomic<bool> _stop{false};
    std::thread _thread;
};

// The machine's time at unit 0 of the clock, from the look that came soonest behind a unit's beginning.
int64_t TimeOfUnitZero() {
    int64_t earliest = INT64_MAX;
    for (int look = 0; look < 100; ++look) {
        const int32_t before = TimerClock::Now();
        int32_t unit = before;
        while (unit == before) unit = TimerClock::Now();
        earliest = std::min(earliest, Nanoseconds() - unit * kUnit);
    }
    return earliest;
}

// Ten seconds of real play: the lateness of each message against its tick.
void RealTimeLateness(benchmark::State& state) {
    StartUpForBench();
    const auto window = LargeScore(10, "DD", 8);
    std::vector<int32_t> due;
    DryPlay(window->GetDocument(),
            [&](std::string_view line) { due.push_back(std::atoi(std::string(line).c_str())); });
    const int64_t zero = TimeOfUnitZero();
    for (auto _ : state) {
        TimingPort port(due.size());
        BareTimer bare;
        TaskPlay task;
        task.Init(window->GetDocument(), [](int resolution, int length, ClockDealer* out) {
            return std::make_unique<TimerClock>(resolution, length, out);
        });
        const int32_t start = TimerClock::Now();
        task.Start();
        std::this_thread::sleep_for(std::chrono::seconds(10));
        const size_t played = port.sent.size();
        task.Stop();
        bare.Stop();
        std::vector<int64_t> late;
        for (size_t i = 0; i < played; ++i)
            late.push_back(port.sent[i] - zero - (int64_t{start} + due[i]) * kUnit);
        // The play may have begun a unit or two behind the look at the clock.
        for (const int64_t least = *std::min_element(late.begin(), late.end()); int64_t & each : late)
            each -= least / kUnit * kUnit;
        Report(state, "message", late);
        Report(state, "bare", bare.late);
        state.counters["messages"] = static_cast<double>(played);
    }
}
BENCHMARK(RealTimeLateness)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace
}  // namespace corvane
