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

// Takes messages and forgets them.
class NowherePort : public SoundPort {
public:
    int16_t Count() const override { return 16; }

protected:
    bool Send(int16_t, uint8_t, uint8_t, uint8_t) override { return true; }
    bool IsOpen(int16_t) const override { return true; }
};

// Every tick of ten minutes out of the middle of 10,000 measures on four staves.
void WalkerTick(benchmark::State& state) {
    StartUpForBench();
    const auto window = LargeScore(10000, "DD", 8);
    constexpr int32_t kTicks = 150'000;
    std::vector<int64_t> costs;
    for (auto _ : state) {
        NowherePort port;
        PlayFlags flags;
        flags.playing = true;
        TarnPlay play(flags);
        play.Init(window->GetDocument(), &port);
        play.Start(0);
        costs.clear();
        costs.reserve(kTicks);
        for (int32_t tick = 0; tick < kTicks; ++tick) {
            const int64_t begin = Nanoseconds();
            play.Tick(tick);
            costs.push_back(Nanoseconds() - begin);
        }
    }
    Report(state, "tick", costs);
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

// When a unit of the clock began, by the machine's time.
int64_t TimeOfUnit(int32_t& unit) {
    const int32_t before = TimerClock::Now();
    while ((unit = TimerClock::Now()) == before) {
    }
    return Nanoseconds();
}

// Ten seconds of real play: the lateness of each message against its tick.
void RealTimeLateness(benchmark::State& state) {
    StartUpForBench();
    const auto window = LargeScore(10, "DD", 8);
    std::vector<int32_t> due;
    DryPlay(window->GetDocument(),
            [&](std::string_view line) { due.push_back(std::atoi(std::string(line).c_str())); });
    int32_t unit = 0;
    const int64_t unitBegan = TimeOfUnit(unit);
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
            late.push_back(port.sent[i] - (unitBegan + (int64_t{start} + due[i] - unit) * kUnit));
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
