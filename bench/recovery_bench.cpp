// What keeping unsaved work safe costs the main thread in a score of a million objects, and how long it takes
// until all is safe. No slice may reach 16 ms. `worst_cpu_ms` leaves out what other programs take of the
// machine.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <thread>

#include "LargeScore.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "model/Par.h"
#include "platform/files/PosixJournals.h"
#include "session/Journals.h"
#include "store/MemoryManager.h"

namespace corvane {
namespace {

constexpr int kMillionObjects = 14000;  // measures of four staves

double Seconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

class KeptScore {
public:
    KeptScore()
        : _folder(std::filesystem::temp_directory_path() / ("corvane-bench-" + std::to_string(::getpid()))) {
        StartUpForBench();
        window = LargeScore(kMillionObjects, "DD", 2);
        journals = std::make_unique<PosixJournals>(_folder.string());
        StartAnew();
    }
    ~KeptScore() {
        _keeper.reset();
        std::filesystem::remove_all(_folder);
    }
    void StartAnew() {
        _keeper = std::make_unique<Journals>(*journals);
        _keeper->Open(*window);
    }
    // As an idle window does: slice upon slice, a breath between them, until all is safe.
    void KeepSafe() {
        const double begin = Seconds(CLOCK_MONOTONIC);
        const uint64_t before = _keeper->Of(*window).Safe();
        while (_keeper->Of(*window).Safe() == before) {
            const double wall = Seconds(CLOCK_MONOTONIC), cpu = Seconds(CLOCK_THREAD_CPUTIME_ID);
            _keeper->Slice(std::chrono::steady_clock::now());
            _worstWall = std::max(_worstWall, Seconds(CLOCK_MONOTONIC) - wall);
            _worstCpu = std::max(_worstCpu, Seconds(CLOCK_THREAD_CPUTIME_ID) - cpu);
            _slices += 1;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        _longest = std::max(_longest, Seconds(CLOCK_MONOTONIC) - begin);
    }
    void Tell(benchmark::State& state) const {
        state.counters["worst_ms"] = 1000 * _worstWall;
        state.counters["worst_cpu_ms"] = 1000 * _worstCpu;
        state.counters["slices"] = _slices / static_cast<double>(state.iterations());
        state.counters["longest_until_safe_ms"] = 1000 * _longest;
        state.counters["MB"] = static_cast<double>(window->Pool()->Total()) / 1e6;
        if (_worstCpu >= 0.016) state.SkipWithError("a slice stalled the main thread");
    }

    std::unique_ptr<WindowTarn> window;
    std::unique_ptr<PosixJournals> journals;

private:
    std::filesystem::path _folder;
    std::unique_ptr<Journals> _keeper;
    double _worstWall = 0, _worstCpu = 0, _longest = 0, _slices = 0;
};

// From the opening of a score to its first safe state.
void KeepFirstImage(benchmark::State& state) {
    KeptScore score;
    for (auto _ : state) {
        score.KeepSafe();
        state.PauseTiming();
        score.StartAnew();
        state.ResumeTiming();
    }
    score.Tell(state);
}
BENCHMARK(KeepFirstImage)->Unit(benchmark::kMillisecond)->UseRealTime();

// After each entered note. The time holds what is left of the quarter of a second between two states.
void KeepOneNote(benchmark::State& state) {
    KeptScore score;
    Measure* measure = systemMeasures.First(pageSystems.First(score.window->CurrentPage()));
    const StaffFrame staff = FrameOf(measureStaffs.First(measure)->_staff.Get());
    Tools() = ToolState();
    int x = 500;
    score.KeepSafe();
    for (auto _ : state) {
        MouseDown(*score.window, FrameOf(measure).XOf(x), staff.YOfLine(4), 0);
        x = 500 + (x * 7) % 450;
        score.KeepSafe();
    }
    score.Tell(state);
}
BENCHMARK(KeepOneNote)->Unit(benchmark::kMillisecond)->UseRealTime();

void ChangeLine(Note* note) { note->_line = static_cast<decltype(note->_line.Get())>(9 - note->_line); }

// After a command that changes every note of the score.
void KeepWholeScore(benchmark::State& state) {
    KeptScore score;
    score.KeepSafe();
    for (auto _ : state) {
        state.PauseTiming();
        score.window->Activate();
        {
            const CommandScope command;
            const NewMemoryPool& pool = *score.window->Pool();
            for (void* object = pool.FirstObject(); object; object = pool.NextObject(object))
                if (ClassNumberOf(object) == Note::kClass) ChangeLine(static_cast<Note*>(object));
        }
        state.ResumeTiming();
        score.KeepSafe();
    }
    score.Tell(state);
}
BENCHMARK(KeepWholeScore)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace corvane
