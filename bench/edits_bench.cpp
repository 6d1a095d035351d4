// What each kind of edit of one measure costs as the score grows: the figures at 10,000 measures must be
// those at 100.
#include <benchmark/benchmark.h>

#include <string>

#include "LargeScore.h"
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"

namespace corvane {
namespace {

// A measure of four eighth notes in a score of two staffs, and what stands in it.
struct Site {
    WindowTarn& window;
    Measure* measure;

    MeasureStaff* Crossing() const { return measureStaffs.First(measure); }
    void CaretAt(int32_t perMille) const {
        window.caret = {measure, DocStaffPar(Crossing()), FrameOf(measure).XOf(perMille), true};
    }
    void Select() const {
        const MeasureFrame frame = FrameOf(measure);
        const StaffFrame staff = FrameOf(Crossing()->_staff.Get());
        window.TheSelection().Clear();
        window.TheSelection().Add({frame.XOf(-20), staff.YOfLine(14), frame.XOf(1000), staff.YOfLine(-4)});
    }
    void PressNote() const {
        Voice* voice = measureStaffVoices.First(Crossing());
        const auto* chord = As<Chords>(voiceSymbols.First(voice));
        const Rect head = RectOf(chordNotes.First(chord));
        MouseDown(window, (head.left + head.right) / 2, (head.top + head.bottom) / 2, 0);
    }
    void Hold(int32_t mode, uint8_t group = kNoteGroup, uint16_t item = 9) const {
        SetToolMode(mode);
        SetPaletteGroup(group);
        SetItem(item);
    }
};

template <int id>
void Command(const Site& site) {
    benchmark::DoNotOptimize(RunCommand(site.window, id).ok());
}
void PressHeldTool(const Site& site) { site.PressNote(); }
void Select(const Site& site) { site.Select(); }
void SelectAndCopy(const Site& site) {
    site.Select();
    Copy(site.window);
    site.CaretAt(990);
}
template <int32_t mode, uint8_t group, uint16_t item>
void Hold(const Site& site) {
    site.Hold(mode, group, item);
}

constexpr struct {
    const char* name;
    void (*prepare)(const Site& site);
    void (*run)(const Site& site);
} kEdits[] = {
    {"EraseNote", Hold<ModeEraser, kNoteGroup, 9>, PressHeldTool},
    {"AddSharp", Hold<ModePencil, kNoteGroup, 23>, PressHeldTool},
    {"AddDot", Hold<ModePencil, kNoteGroup, 20>, PressHeldTool},
    {"AddDynamic", Hold<ModePencil, 3, 4>, PressHeldTool},
    {"AddStaccato", Hold<ModePencil, 4, 4>, PressHeldTool},
    {"SelectWithArrow", Hold<ModeArrow, kNoteGroup, 9>, PressHeldTool},
    {"StepUp", Select, Command<40040>},
    {"WalkOn", Select, Command<40060>},
    {"Tie", Select, Command<32804>},
    {"Slur", Select, Command<40020>},
    {"Copy", Select, Command<57634>},
    {"Cut", Select, Command<57635>},
    {"Clear", Select, Command<32774>},
    {"Paste", SelectAndCopy, Command<57637>},
};

void OneEdit(benchmark::State& state, size_t edit, bool last) {
    StartUpForBench();
    auto window = Reopened(*LargeScore(static_cast<int>(state.range(0)), "D", 4, true));
    const Document* document = window->GetDocument();
    window->SetCurrentPage(last ? documentPages.Last(document) : documentPages.First(document));
    const Site site{*window, last ? LastMeasure(document) : FirstMeasure(document)};
    Tools() = ToolState();
    Switches() = EditSwitches();
    for (auto _ : state) {
        state.PauseTiming();
        kEdits[edit].prepare(site);
        state.ResumeTiming();
        kEdits[edit].run(site);
        state.PauseTiming();
        window->Undo();
        state.ResumeTiming();
    }
}

const bool kRegistered = [] {
    for (size_t i = 0; i < std::size(kEdits); ++i)
        for (const bool last : {false, true}) {
            const std::string name = std::string(kEdits[i].name) + (last ? "/LastMeasure" : "/FirstMeasure");
            benchmark::RegisterBenchmark(name.c_str(),
                                         [i, last](benchmark::State& state) { OneEdit(state, i, last); })
                ->Arg(100)
                ->Arg(10000)
                ->Unit(benchmark::kMicrosecond);
        }
    return true;
}();

}  // namespace
}  // namespace corvane
