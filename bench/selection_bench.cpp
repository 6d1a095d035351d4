// Edits of very much at once.
#include <benchmark/benchmark.h>

#include "LargeScore.h"
#include "edit/Clipboard.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Eight notes in each of so many measures; each leaves a rest.
void SelectAllAndDelete(benchmark::State& state) {
    StartUpForBench();
    auto window = LargeScore(static_cast<int>(state.range(0)) / 8, "S", 8, true);
    Tools() = ToolState();
    Switches() = EditSwitches();
    for (auto _ : state) {
        window->TheSelection().SelectAll();
        ClearSelection(*window);
        state.PauseTiming();
        window->Undo();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SelectAllAndDelete)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// So many measures of eight notes each into an empty score of that many.
void PasteMeasures(benchmark::State& state) {
    StartUpForBench();
    const int measures = static_cast<int>(state.range(0));
    auto source = LargeScore(measures, "S", 8, true),
         target = LargeScore(static_cast<int>(state.range(1)), "S", 0);
    Tools() = ToolState();
    Switches() = EditSwitches();
    source->TheSelection().SelectAll();
    Copy(*source);
    target->Activate();
    Measure* first = FirstMeasure(target->GetDocument());
    for (auto _ : state) {
        target->caret = {first, documentDocStaffs.First(target->GetDocument()), FrameOf(first).XOf(0), true};
        if (!Paste(*target)) state.SkipWithError("the paste was refused");
        state.PauseTiming();
        target->Undo();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * measures);
}
BENCHMARK(PasteMeasures)
    ->Args({100, 100})
    ->Args({1000, 1000})
    ->Args({1000, 10000})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane
