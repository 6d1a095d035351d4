// One measure added or removed as the score grows. What a step costs beyond the numbers of the measures
// behind it must not grow; at the end of the score there are none, at its start the same step is compared
// with one that does nothing but number them.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "LargeScore.h"
#include "edit/Structure.h"
#include "layout/MeasureFlow.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int kOnPage = 20;  // measures

enum class Place { Start, End };
enum class Action { Add, Remove, Number };

Measure* MeasureAt(const WindowTarn& window, Place place) {
    if (place == Place::Start) {
        const System* first = pageSystems.First(documentPages.First(window.GetDocument()));
        return systemMeasures.Next(systemMeasures.First(first));
    }
    const System* last = pageSystems.Last(documentPages.Last(window.GetDocument()));
    return systemMeasures.Prev(systemMeasures.Last(last));
}

// Every measure behind gets another number and its own again: the writes of a step that moves numbers.
void Number(WindowTarn& window, Measure* measure) {
    const EditStep step(window);
    for (Measure* m = NextMeasure(measure); m; m = NextMeasure(m)) m->_number += 1;
}

double TimeOf(WindowTarn& window, Action action, Measure* measure) {
    const auto start = std::chrono::steady_clock::now();
    Status status;
    if (action == Action::Add) status = AddMeasures(window, 1, measure);
    if (action == Action::Remove) status = RemoveMeasures(window, {measure, measure});
    if (action == Action::Number) Number(window, measure);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    CORVANE_ASSERT_AS(status, "status");
    window.Undo();
    return time.count();
}

double MedianOf(std::vector<double>& times) {
    std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2), times.end());
    return times[times.size() / 2];
}

// Microseconds of the step, of the numbering alone, and of what remains.
void OneMeasure(benchmark::State& state, Action action, Place place) {
    StartUpForBench();
    auto window = Reopened(*LargeScore(static_cast<int>(state.range(0)) * kOnPage, "D", 4, true));
    if (place == Place::End) window->SetCurrentPage(documentPages.Last(window->GetDocument()));
    Measure* measure = MeasureAt(*window, place);
    std::vector<double> steps, numberings;
    for (auto _ : state) {
        numberings.push_back(TimeOf(*window, Action::Number, measure));
        steps.push_back(TimeOf(*window, action, measure));
        state.SetIterationTime(steps.back());
    }
    const double step = MedianOf(steps) * 1e6, numbering = MedianOf(numberings) * 1e6;
    state.counters["step_us"] = step;
    state.counters["numbers_us"] = numbering;
    state.counters["beyond_us"] = step - numbering;
}
BENCHMARK_CAPTURE(OneMeasure, AddAtStart, Action::Add, Place::Start)
    ->Arg(20)
    ->Arg(200)
    ->Iterations(200)
    ->UseManualTime();
BENCHMARK_CAPTURE(OneMeasure, RemoveAtStart, Action::Remove, Place::Start)
    ->Arg(20)
    ->Arg(200)
    ->Iterations(200)
    ->UseManualTime();
BENCHMARK_CAPTURE(OneMeasure, AddAtEnd, Action::Add, Place::End)
    ->Arg(20)
    ->Arg(200)
    ->Iterations(200)
    ->UseManualTime();
BENCHMARK_CAPTURE(OneMeasure, RemoveAtEnd, Action::Remove, Place::End)
    ->Arg(20)
    ->Arg(200)
    ->Iterations(200)
    ->UseManualTime();

}  // namespace
}  // namespace corvane
