// The selection goes from event to event.
#include <algorithm>
#include <cstdlib>

#include "edit/EventStops.h"
#include "edit/KeyWalk.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

// An event, or a measure that holds none.
struct Stop {
    MeasureStaff* crossing = nullptr;
    VoiceSymbol* event = nullptr;
};

std::vector<VoiceSymbol*> EventsOf(const MeasureStaff* crossing) {
    return EventsFromLeft(crossing, Tools().currentVoice);
}

Stop NearestIn(MeasureStaff* crossing, int32_t x) {
    Stop stop{crossing, nullptr};
    for (VoiceSymbol* event : EventsOf(crossing))
        if (!stop.event || std::abs(MiddleOf(event) - x) < std::abs(MiddleOf(stop.event) - x))
            stop.event = event;
    return stop;
}

// At one end of a measure.
Stop EndOf(MeasureStaff* crossing, bool last) {
    const std::vector<VoiceSymbol*> events = EventsOf(crossing);
    if (events.empty()) return {crossing, nullptr};
    return {crossing, last ? events.back() : events.front()};
}

Stop EndOfSelection(WindowTarn& window, bool last) {
    SetSelectionAnchors(window);
    const std::vector<VoiceSymbol*> selected = SelectedVoiceSymbols(Tools().OneVoice());
    ClearSelectionAnchors();
    if (selected.empty()) return {};
    VoiceSymbol* event = last ? selected.back() : selected.front();
    return {MeasureStaffPar(event), event};
}

Stop Beside(const Stop& from, bool behind) {
    const std::vector<VoiceSymbol*> events = EventsOf(from.crossing);
    const auto own = std::find(events.begin(), events.end(), from.event);
    if (own != events.end() && behind && own + 1 != events.end()) return {from.crossing, own[1]};
    if (own != events.end() && !behind && own != events.begin()) return {from.crossing, own[-1]};
    MeasureStaff* crossing = ShownBeside(from.crossing, behind);
    return crossing ? EndOf(crossing, !behind) : Stop{};
}

Stop BesideMeasure(const Stop& from, bool behind) {
    MeasureStaff* crossing = ShownBeside(from.crossing, behind);
    return crossing ? EndOf(crossing, false) : Stop{};
}

Stop BesideStaff(const Stop& from, bool above) {
    MeasureStaff* crossing = ShownAbove(from.crossing, above);
    if (!crossing) return {};
    return NearestIn(crossing, from.event ? MiddleOf(from.event) : FrameOf(MeasurePar(crossing)).XOf(0));
}

// What a walk does, and what stands at its end.
constexpr struct {
    Walk walk;
    Stop (*go)(const Stop& from, bool onward);
    bool onward;  // behind, or above
    const char* end;
} kWalks[] = {
    {Walk::Next, Beside, true, "This is the last event of its staff"},
    {Walk::Previous, Beside, false, "This is the first event of its staff"},
    {Walk::NextMeasure, BesideMeasure, true, "This is the last measure"},
    {Walk::PreviousMeasure, BesideMeasure, false, "This is the first measure"},
    {Walk::StaffAbove, BesideStaff, true, "There is no staff above"},
    {Walk::StaffBelow, BesideStaff, false, "There is no staff below"},
};

Stop AtCaret(const WindowTarn& window) {
    const Caret& caret = window.caret;
    if (!caret.measure || !caret.staff || PagePar(caret.measure) != window.CurrentPage()) return {};
    MeasureStaff* crossing = MeasureStaffAt(caret.measure, caret.staff);
    return crossing && crossing->_staff.Get() ? NearestIn(crossing, caret.x) : Stop{};
}

Rect InkOf(const Stop& stop) {
    if (const auto* chord = As<Chords>(stop.event)) return RectOf(ChordSymbolPar(chord));
    if (const auto* pause = As<Pause>(stop.event)) return RectOf(pause);
    const MeasureFrame measure = FrameOf(MeasurePar(stop.crossing));
    const StaffFrame staff = FrameOf(stop.crossing->_staff.Get());
    return {measure.left, staff.top, measure.left + measure.width, staff.Bottom()};
}

void GoTo(WindowTarn& window, const Stop& stop, bool adding) {
    Page* page = PagePar(MeasurePar(stop.crossing));
    if (page != window.CurrentPage()) window.SetCurrentPage(page);
    Selection& selection = window.TheSelection();
    if (!adding) selection.Clear();
    if (const auto* chord = As<Chords>(stop.event))
        for (GenericNote* note : chordNotes.Of(chord)) selection.Pick(note);
    else if (stop.event)
        selection.Pick(As<Pause>(stop.event));
    Measure* measure = MeasurePar(stop.crossing);
    const int32_t x = stop.event ? MiddleOf(stop.event) : FrameOf(measure).XOf(0);
    window.caret = {measure, DocStaffPar(stop.crossing), x, true};
    window.Shell().ScrollTo(window, InkOf(stop));
    window.SelectionChanged();
}

}  // namespace

Status WalkSelection(WindowTarn& window, Walk walk, bool adding) {
    const auto& row = *std::find_if(std::begin(kWalks), std::end(kWalks),
                                    [&](const auto& each) { return each.walk == walk; });
    Stop from = EndOfSelection(window, row.onward);
    if (!from.crossing) {
        from = AtCaret(window);
        // The first step with nothing selected takes what is there.
        if (from.event && !adding) return GoTo(window, from, false), Status::Ok();
    }
    if (!from.crossing) {
        MeasureStaff* first = window.CurrentPage() ? FirstShown(window.CurrentPage()) : nullptr;
        if (!first) return {Fault::Refused, "There is no staff on this page"};
        return GoTo(window, EndOf(first, false), false), Status::Ok();
    }
    const Stop to = row.go(from, row.onward);
    if (!to.crossing) return {Fault::Refused, row.end};
    if (adding && PagePar(MeasurePar(to.crossing)) != window.CurrentPage())
        return {Fault::Refused, "A selection ends with its page; Select All takes the whole score"};
    GoTo(window, to, adding);
    return Status::Ok();
}

}  // namespace corvane
