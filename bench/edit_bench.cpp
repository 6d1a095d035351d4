// What one edit costs as the score grows: the figures must not.
#include <benchmark/benchmark.h>

#include "LargeScore.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "model/Par.h"
#include "platform/qt/ImagePort.h"

namespace corvane {
namespace {

// A press that enters an eighth note in the last measure, and its undo.
void InsertOneNote(benchmark::State& state) {
    StartUpForBench();
    auto window = Reopened(*LargeScore(static_cast<int>(state.range(0)), "D", 4, true));
    Page* page = documentPages.Last(window->GetDocument());
    window->SetCurrentPage(page);
    Measure* measure = systemMeasures.Last(pageSystems.Last(page));
    const StaffFrame staff = FrameOf(measureStaffs.First(measure)->_staff.Get());
    const int32_t x = FrameOf(measure).XOf(700), y = staff.YOfLine(4);
    Tools() = ToolState();
    for (auto _ : state) {
        MouseDown(*window, x, y, 0);
        state.PauseTiming();
        window->Undo();
        state.ResumeTiming();
    }
}
BENCHMARK(InsertOneNote)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

void UndoOneNote(benchmark::State& state) {
    StartUpForBench();
    auto window = LargeScore(static_cast<int>(state.range(0)), "D", 4, true);
    Measure* measure = systemMeasures.First(pageSystems.First(window->CurrentPage()));
    const StaffFrame staff = FrameOf(measureStaffs.First(measure)->_staff.Get());
    Tools() = ToolState();
    MouseDown(*window, FrameOf(measure).XOf(700), staff.YOfLine(4), 0);
    for (auto _ : state) {
        window->Undo();
        window->Redo();
    }
}
BENCHMARK(UndoOneNote)->Arg(10)->Arg(10000)->Unit(benchmark::kMicrosecond);

constexpr int32_t kDpi = 96;
constexpr int16_t kZoom = 105;

// All tiles of a page of 20 measures with 640 notes.
void PaintFullPage(benchmark::State& state) {
    StartUpForBench();
    auto window = LargeScore(20, "DD", 8, true);
    const Rect page = PageRect(window->CurrentPage());
    ImagePort port(page, kZoom, kDpi);
    for (auto _ : state) window->Sheet().Draw(port, page, DrawContext());
}
BENCHMARK(PaintFullPage)->Unit(benchmark::kMillisecond);

// The tiles that one entered note makes dirty.
void PaintDirtyTiles(benchmark::State& state) {
    StartUpForBench();
    auto window = LargeScore(20, "DD", 7, true);
    const Rect page = PageRect(window->CurrentPage());
    Measure* measure = systemMeasures.First(pageSystems.First(window->CurrentPage()));
    const StaffFrame staff = FrameOf(measureStaffs.First(measure)->_staff.Get());
    for (int tile = 0; tile < window->Sheet().TileCount(); ++tile) window->Sheet().ClearDirty(tile);
    Tools() = ToolState();
    MouseDown(*window, FrameOf(measure).XOf(990), staff.YOfLine(4), 0);
    ImagePort port(page, kZoom, kDpi);
    int dirty = 0;
    for (int tile = 0; tile < window->Sheet().TileCount(); ++tile) dirty += window->Sheet().IsDirty(tile);
    for (auto _ : state)
        for (int tile = 0; tile < window->Sheet().TileCount(); ++tile)
            if (window->Sheet().IsDirty(tile))
                window->Sheet().Draw(port, window->Sheet().TileRect(tile), DrawContext());
    state.counters["tiles"] = dirty;
}
BENCHMARK(PaintDirtyTiles)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane

BENCHMARK_MAIN();
