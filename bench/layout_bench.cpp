// What engraving costs: spacing and beaming of a measure, whole scores, pages of real music, a press on them.
#include <benchmark/benchmark.h>

#include <QPainter>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>

#include "LargeScore.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Beaming.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/PageLayout.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "platform/qt/ImagePort.h"
#include "session/ScriptRunner.h"
#include "session/Session.h"
#include "shell/TileCache.h"
#include "shell/ViewScale.h"

namespace corvane {
namespace {

template <class Visit>
void ForEachVoice(const Measure* measure, Visit visit) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (Voice* voice : measureStaffVoices.Of(crossing)) visit(voice);
}

template <class Visit>
void ForEachMeasure(const Document* document, Visit visit) {
    for (const Page* page : documentPages.Of(document))
        for (const System* system : pageSystems.Of(page))
            for (Measure* measure : systemMeasures.Of(system)) visit(measure);
}

// One measure of four staves with eight eighths each.
template <class Work>
void OnOneMeasure(benchmark::State& state, Work work) {
    StartUpForBench();
    auto window = LargeScore(20, "DD", 8, true);
    window->Pool()->DisableUndo();
    Measure* measure = systemMeasures.First(pageSystems.First(window->CurrentPage()));
    for (auto _ : state) work(measure);
}
void SpaceByTheEngraversRule(benchmark::State& state) {
    OnOneMeasure(state, [](Measure* measure) { benchmark::DoNotOptimize(SpaceMeasure(measure, {})); });
}
BENCHMARK(SpaceByTheEngraversRule)->Unit(benchmark::kMicrosecond);
void SpaceByMathematics(benchmark::State& state) {
    OnOneMeasure(state,
                 [](Measure* measure) { ForEachVoice(measure, [](Voice* voice) { SpaceVoice(voice); }); });
}
BENCHMARK(SpaceByMathematics)->Unit(benchmark::kMicrosecond);
void BeamOneMeasure(benchmark::State& state) {
    OnOneMeasure(state,
                 [](Measure* measure) { ForEachVoice(measure, [](Voice* voice) { BeamVoice(voice); }); });
}
BENCHMARK(BeamOneMeasure)->Unit(benchmark::kMicrosecond);

// Pages, beams and both spacings of a whole score of four staves with eight eighths a measure: each rule
// moves every note from where the other one has put it.
void LayOutScore(benchmark::State& state) {
    StartUpForBench();
    const int measures = static_cast<int>(state.range(0));
    auto window = LargeScore(measures, "DD", 8, true);
    window->Pool()->DisableUndo();
    for (auto _ : state) {
        LayOutPages(window->GetDocument());
        ForEachMeasure(window->GetDocument(), [](Measure* measure) {
            ForEachVoice(measure, [](Voice* voice) {
                SpaceVoice(voice);
                BeamVoice(voice);
            });
            SpaceMeasure(measure, {});
        });
    }
    const double notes = 4.0 * 8.0 * measures;
    state.counters["ns_per_note"] = benchmark::Counter(
        notes * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(LayOutScore)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// A page of real music as its script enters it.
class MusicPage {
public:
    explicit MusicPage(const char* name) : _session({}) {
        StartUpForBench();
        std::ifstream file(std::string(CORVANE_SOURCE_DIR "/tests/layout/golden/music_") + name + ".script");
        std::ostringstream text;
        text << file.rdbuf();
        Tools() = ToolState();
        std::string out;
        ScriptRunner runner(
            _session, [](WindowTarn&, const std::string&, int, int) { return Status::Ok(); }, out);
        if (!runner.Run(text.str())) std::abort();
        Tools() = ToolState();
    }
    WindowTarn& Window() { return *_session.Windows().back(); }

private:
    Session _session;
};

constexpr const char* kPages[] = {"invention", "song", "chorale"};
constexpr int32_t kDpi = 96;
constexpr int16_t kFullSize = 100;

void PaintMusic(benchmark::State& state) {
    MusicPage music(kPages[state.range(0)]);
    const Rect page = PageRect(music.Window().CurrentPage());
    ImagePort port(page, kFullSize, kDpi);
    for (auto _ : state) music.Window().Sheet().Draw(port, page, DrawContext());
    state.SetLabel(kPages[state.range(0)]);
}
BENCHMARK(PaintMusic)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

// The pencil's item for notes of a value up to 128.
uint16_t ItemOf(uint8_t value) {
    uint16_t item = 3;
    for (int each = 1; each < value; each *= 2) item += 2;
    return item;
}

// The first chord of a measure in the middle of the page gets a head more, a third above the one that it has.
void EnterThird(WindowTarn& window) {
    const System* system = pageSystems.Next(pageSystems.First(window.CurrentPage()));
    const Voice* voice = measureStaffVoices.First(measureStaffs.First(systemMeasures.First(system)));
    auto* chord = static_cast<Chords*>(voiceSymbols.First(voice));
    const GenericNote* head = chordNotes.First(chord);
    const Rect ink = RectOf(head);
    SetItem(ItemOf(ValueOf(chord)));
    MouseDown(window, (ink.left + ink.right) / 2, FrameOf(StaffPar(head)).YOfLine(head->_line + 2), 0);
}

// The paint that follows one note, as a view makes it: its whole sight from pictures, of which those that the
// note has touched are made anew. Undo and the paint after it are not timed.
void PaintDirtyMusic(benchmark::State& state) {
    MusicPage music(kPages[state.range(0)]);
    WindowTarn& window = music.Window();
    const Rect page = PageRect(window.CurrentPage());
    ViewScale scale;
    scale.Set(kFullSize, kDpi, 1);
    const Rect pixels = scale.Pixels(page);
    QImage screen(pixels.Width(), pixels.Height(), QImage::Format_RGB32);
    QPainter painter(&screen);
    TileCache cache;
    const auto paint = [&] { cache.Paint(painter, window.Sheet(), page, scale, {}, screen.rect()); };
    std::vector<double> seconds;
    int made = 0;
    for (auto _ : state) {
        paint();
        EnterThird(window);
        made = -cache.MadeCount();
        const auto start = std::chrono::steady_clock::now();
        paint();
        seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        state.SetIterationTime(seconds.back());
        made += cache.MadeCount();
        window.Undo();
    }
    if (!made) return state.SkipWithError("no note was entered");
    std::nth_element(seconds.begin(), seconds.begin() + static_cast<ptrdiff_t>(seconds.size() / 2),
                     seconds.end());
    state.counters["median_ms"] = 1000 * seconds[seconds.size() / 2];
    state.counters["tiles"] = made;
    state.SetLabel(kPages[state.range(0)]);
}
BENCHMARK(PaintDirtyMusic)->DenseRange(0, 2)->UseManualTime()->Iterations(400)->Unit(benchmark::kMillisecond);

// What stands under a point, over a grid of points.
void HitTest(benchmark::State& state) {
    MusicPage music(kPages[state.range(0)]);
    const Rect page = PageRect(music.Window().CurrentPage());
    constexpr int32_t kStep = 97;
    Point p{page.left, page.top};
    for (auto _ : state) {
        benchmark::DoNotOptimize(music.Window().Sheet().HitSymbol(p));
        p.x += kStep;
        if (p.x >= page.right) p = {page.left, p.y + kStep < page.bottom ? p.y + kStep : page.top};
    }
    state.SetLabel(kPages[state.range(0)]);
}
BENCHMARK(HitTest)->DenseRange(0, 2)->Unit(benchmark::kNanosecond);

}  // namespace
}  // namespace corvane
