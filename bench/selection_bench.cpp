// From a press to the painted note wherever it stands, and edits of very much at once.
#include <benchmark/benchmark.h>

#include "LargeScore.h"
#include "edit/Clipboard.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "model/Par.h"
#include "platform/qt/ImagePort.h"

namespace corvane {
namespace {

constexpr int32_t kDpi = 96;
constexpr int16_t kZoom = 105;

int PaintDirty(WindowTarn& window, ImagePort& port) {
    NewWindowSheet& sheet = window.Sheet();
    int painted = 0;
    for (int tile = 0; tile < sheet.TileCount(); ++tile)
        if (sheet.IsDirty(tile)) {
            sheet.Draw(port, sheet.TileRect(tile), DrawContext());
            sheet.ClearDirty(tile);
            ++painted;
        }
    return painted;
}

// An eighth note in the first or the last measure of a score of so many.
void PressToPainted(benchmark::State& state, bool last) {
    StartUpForBench();
    auto window = Reopened(*LargeScore(static_cast<int>(state.range(0)), "D", 4, true));
    const Document* document = window->GetDocument();
    Page* page = last ? documentPages.Last(document) : documentPages.First(document);
    window->SetCurrentPage(page);
    Measure* measure = last ? LastMeasure(document) : FirstMeasure(document);
    const StaffFrame staff = FrameOf(measureStaffs.First(measure)->_staff.Get());
    const Point at{FrameOf(measure).XOf(700), staff.YOfLine(4)};
    Tools() = ToolState();
    ImagePort port(PageRect(page), kZoom, kDpi);
    PaintDirty(*window, port);
    int tiles = 0;
    for (auto _ : state) {
        MouseDown(*window, at.x, at.y, 0);
        tiles = PaintDirty(*window, port);
        state.PauseTiming();
        window->Undo();
        PaintDirty(*window, port);
        state.ResumeTiming();
    }
    state.counters["tiles"] = tiles;
}
BENCHMARK_CAPTURE(PressToPainted, FirstMeasure, false)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PressToPainted, LastMeasure, true)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

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
