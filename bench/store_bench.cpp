// The object store: allocation, the barrier, saving and loading beside a plain copy of the same bytes.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "LargeScore.h"
#include "model/NoteRecords.h"
#include "model/ScoreCheck.h"
#include "platform/files/PosixFiles.h"
#include "store/MemoryManager.h"
#include "store/ObjectFile.h"

namespace corvane {
namespace {

// One allocation and release in a pool of that many full blocks.
void AllocateAndRelease(benchmark::State& state) {
    StartUpForBench();
    NewMemoryPool* pool = MemoryManager::Instance().NewPool();
    do pool->Allocate(Note::kClass, sizeof(Note));
    while (static_cast<int>(pool->BlockCount()) < state.range(0));
    for (auto _ : state) {
        void* note = pool->Allocate(Note::kClass, sizeof(Note));
        benchmark::DoNotOptimize(note);
        pool->Release(note);
    }
    MemoryManager::Instance().DeletePool(pool);
}
BENCHMARK(AllocateAndRelease)->Arg(1)->Arg(10)->Arg(100)->Arg(1000);

// The barrier on a block that is touched already.
void TouchAgain(benchmark::State& state) {
    StartUpForBench();
    NewMemoryPool* pool = MemoryManager::Instance().NewPool();
    void* note = nullptr;
    do note = pool->Allocate(Note::kClass, sizeof(Note));
    while (static_cast<int>(pool->BlockCount()) < state.range(0));
    pool->EnableUndo();
    pool->BeginCommand();
    for (auto _ : state) pool->Touch(note, 4);
    pool->EndCommand();
    MemoryManager::Instance().DeletePool(pool);
}
BENCHMARK(TouchAgain)->Arg(1)->Arg(1000);

// 14,000 measures of four staves hold about a million objects, 140 about ten thousand.
std::unique_ptr<WindowTarn> ScoreOf(const benchmark::State& state) {
    StartUpForBench();
    return LargeScore(static_cast<int>(state.range(0)), "DD", 2);
}

void Count(benchmark::State& state, const NewMemoryPool& pool, size_t bytes) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes));
    state.counters["objects"] = static_cast<double>(ObjectCount(pool));
}

// Seconds that each step of replacing a file has taken.
class TimedFiles : public PosixFiles {
public:
    Status Read(const std::string& path, std::vector<uint8_t>& bytes) override {
        return Timed(read, [&] { return PosixFiles::Read(path, bytes); });
    }
    Status Write(const std::string& path, std::span<const uint8_t> bytes) override {
        return Timed(write, [&] { return PosixFiles::Write(path, bytes); });
    }
    Status Flush(const std::string& path) override {
        return Timed(flush, [&] { return PosixFiles::Flush(path); });
    }
    Status Rename(const std::string& from, const std::string& to) override {
        return Timed(rename, [&] { return PosixFiles::Rename(from, to); });
    }
    double read = 0, write = 0, flush = 0, rename = 0;

private:
    template <class Step>
    static Status Timed(double& seconds, Step step) {
        const auto start = std::chrono::steady_clock::now();
        const Status status = step();
        seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return status;
    }
};

void Save(benchmark::State& state) {
    const auto window = ScoreOf(state);
    std::vector<uint8_t> bytes;
    for (auto _ : state) {
        const Status status = EncodeScore(*window->Pool(), bytes);
        benchmark::DoNotOptimize(status.ok());
    }
    Count(state, *window->Pool(), bytes.size());
}
BENCHMARK(Save)->Arg(140)->Arg(1400)->Arg(14000)->Unit(benchmark::kMillisecond);

void LoadWithProof(benchmark::State& state) {
    const auto window = ScoreOf(state);
    std::vector<uint8_t> bytes;
    if (!EncodeScore(*window->Pool(), bytes)) state.SkipWithError("not saved");
    for (auto _ : state) {
        NewMemoryPool pool;
        const PoolScope scope(&pool);
        const Status status = ReadScore(pool, bytes);
        if (!status) state.SkipWithError(status.message().c_str());
    }
    Count(state, *window->Pool(), bytes.size());
}
BENCHMARK(LoadWithProof)->Arg(140)->Arg(1400)->Arg(14000)->Unit(benchmark::kMillisecond);

// What a save does with the bytes: written, flushed, read back and compared, put in the target's place.
void ReplaceFileByStep(benchmark::State& state) {
    const auto window = ScoreOf(state);
    std::vector<uint8_t> bytes;
    if (!EncodeScore(*window->Pool(), bytes)) state.SkipWithError("not saved");
    const std::string path =
        (std::filesystem::temp_directory_path() / ("corvane-bench-" + std::to_string(::getpid()) + ".cvm"))
            .string();
    TimedFiles files;
    for (auto _ : state)
        if (const Status status = ReplaceFile(files, path, bytes); !status)
            state.SkipWithError(status.message().c_str());
    std::filesystem::remove(path);
    const auto runs = static_cast<double>(state.iterations());
    state.counters["write_ms"] = 1000 * files.write / runs;
    state.counters["flush_ms"] = 1000 * files.flush / runs;
    state.counters["read_back_ms"] = 1000 * files.read / runs;
    state.counters["rename_ms"] = 1000 * files.rename / runs;
    Count(state, *window->Pool(), bytes.size());
}
BENCHMARK(ReplaceFileByStep)->Arg(140)->Arg(14000)->Unit(benchmark::kMillisecond)->UseRealTime();

// Kilobytes of a line of the system's account of this process; 0 where it has none.
double Kilobytes(const std::string& line) {
    std::ifstream account("/proc/self/status");
    for (std::string word; account >> word;)
        if (word == line + ":" && account >> word) return std::stod(word);
    return 0;
}

// Resident memory of an open score, and the most while it was read and proven, beside the size of its file.
void MemoryOfLoad(benchmark::State& state) {
    std::vector<uint8_t> saved;
    if (const auto window = ScoreOf(state); !EncodeScore(*window->Pool(), saved))
        state.SkipWithError("not saved");
    const double file = static_cast<double>(saved.size()) / 1024;
    double open = 0, most = 0;
    for (auto _ : state) {
        NewMemoryPool pool;
        const PoolScope scope(&pool);
        std::ofstream("/proc/self/clear_refs") << 5;  // the peak counts from here
        const double before = Kilobytes("VmRSS");
        {
            const std::vector<uint8_t> bytes = saved;
            if (const Status status = ReadScore(pool, bytes); !status)
                state.SkipWithError(status.message().c_str());
        }
        most = std::max(most, (Kilobytes("VmHWM") - before) / file);
        open = std::max(open, (Kilobytes("VmRSS") - before) / file);
    }
    state.counters["open_to_file"] = open;
    state.counters["most_to_file"] = most;
    if (most > 2.5) state.SkipWithError("a load takes more than 2.5 times the file");
}
BENCHMARK(MemoryOfLoad)->Arg(14000)->Unit(benchmark::kMillisecond);

void PlainCopy(benchmark::State& state) {
    const auto window = ScoreOf(state);
    std::vector<uint8_t> bytes;
    if (!EncodeScore(*window->Pool(), bytes)) state.SkipWithError("not saved");
    std::vector<uint8_t> copy(bytes.size());
    for (auto _ : state) {
        std::memcpy(copy.data(), bytes.data(), bytes.size());
        benchmark::ClobberMemory();
    }
    Count(state, *window->Pool(), bytes.size());
}
BENCHMARK(PlainCopy)->Arg(140)->Arg(14000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane
