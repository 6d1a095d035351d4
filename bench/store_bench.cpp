// The object store: allocation, the barrier, saving and loading beside a plain copy of the same bytes.
#include <benchmark/benchmark.h>

#include <cstring>

#include "LargeScore.h"
#include "model/NoteRecords.h"
#include "model/ScoreCheck.h"
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
    for (auto _ : state) pool->Touch(note);
    pool->EndCommand();
    MemoryManager::Instance().DeletePool(pool);
}
BENCHMARK(TouchAgain)->Arg(1)->Arg(1000);

// 14,000 measures of four staves hold about a million objects; 140 about ten thousand.
std::unique_ptr<WindowTarn> ScoreOf(const benchmark::State& state) {
    StartUpForBench();
    return LargeScore(static_cast<int>(state.range(0)), "DD", 2);
}

void Count(benchmark::State& state, const NewMemoryPool& pool, size_t bytes) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes));
    state.counters["objects"] = static_cast<double>(ObjectCount(pool));
}

void Save(benchmark::State& state) {
    const auto window = ScoreOf(state);
    std::vector<uint8_t> bytes;
    for (auto _ : state) {
        const Status status = EncodeScore(*window->Pool(), bytes);
        benchmark::DoNotOptimize(status.ok());
    }
    Count(state, *window->Pool(), bytes.size());
}
BENCHMARK(Save)->Arg(140)->Arg(14000)->Unit(benchmark::kMillisecond);

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
BENCHMARK(LoadWithProof)->Arg(140)->Arg(14000)->Unit(benchmark::kMillisecond);

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
