// Tempo marks: what is read on the page and the Tempo among the measure's time elements that is played.
#include <algorithm>
#include <iterator>

#include "edit/Signs.h"
#include "edit/SystemRedraw.h"
#include "layout/AboveStaff.h"
#include "layout/Frames.h"
#include "layout/Spacing.h"
#include "layout/SpacingHeader.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// The figure code of a note value; the count of codes for what is none.
ptrdiff_t FigureCode(int value) {
    return std::find(std::begin(kFigureValues), std::end(kFigureValues), value) - std::begin(kFigureValues);
}

const char* FaultOf(const TempoValue& value, const Measure* measure) {
    if (value.beat < 1 || value.beat > measure->_num) return "The measure has no such beat";
    if (FigureCode(value.figure) == std::ssize(kFigureValues)) return "No note has that value";
    if (value.dots < 0 || value.dots > TempoValue::kMostDots) return "A note has at most three dots";
    if (value.bpm < 1 || value.bpm > TempoValue::kMostBpm) return "A tempo is 1 to 999 beats a minute";
    return nullptr;
}

Time* MarkAt(const Measure* measure, int beat) {
    for (MeasureSymbol* symbol : measureSymbols.Of(measure))
        if (auto* mark = As<Time>(symbol); mark && mark->_beat == beat) return mark;
    return nullptr;
}

// Over the time signature at the first beat, where there is one, over the beat's notes else.
int32_t WantedX(const Measure* measure, int beat) {
    const MeasureFrame frame = FrameOf(measure);
    const HeaderPlaces places = PlacesOf(measure);
    if (beat == 1 && places.repeat > places.time) return frame.left + places.time;
    const int32_t gap = GapsOf(DocumentPar(measure)).lastNote;
    return frame.XOf((1000 - gap) * (beat - 1) / std::max<int>(1, measure->_num));
}

}  // namespace

Time* MakeTempoMark(Measure* measure, int beat) {
    auto* mark = Make<Time>();
    measureSymbols.Add(measure, mark);
    mark->_beat = static_cast<int16_t>(beat);
    const auto* preferences = Preferences<TimeMeasurePref>(DocumentPar(measure));
    mark->_placement = preferences ? preferences->_tempoPlacement.Get() : uint8_t{34};
    mark->_tupletActual = int16_t{1};
    mark->_tupletNormal = int16_t{1};
    return mark;
}

void PlaceTempoMark(Time* mark) {
    const Measure* measure = MeasurePar(mark);
    const Staff* staff = TopStaffOf(measure);
    if (!staff || staff->_lineDistance <= 0) return;
    mark->_x = (WantedX(measure, mark->_beat) - BeatX(measure, mark->_beat)) * 100 / staff->_lineDistance;
    mark->_y = 0;
    mark->_y = -LiftOver(measure, InkOfMark(mark), mark);
}

Status InsertTempo(WindowTarn& window, Measure* measure, const TempoValue& value) {
    if (const char* fault = FaultOf(value, measure)) return {Fault::Refused, fault};
    const EditStep step(window);
    const SystemRedraw redraw(window, measure);
    Time* mark = MarkAt(measure, value.beat);
    const bool isNew = !mark;
    if (isNew) mark = MakeTempoMark(measure, value.beat);
    mark->_figure = static_cast<int16_t>(FigureCode(value.figure));
    mark->_dots = static_cast<int16_t>(value.dots);
    mark->_bpm = static_cast<int16_t>(value.bpm);
    InsertTempoAtBeat(measure, mark);
    if (isNew) PlaceTempoMark(mark);
    return Status::Ok();
}

void DeleteTempo(WindowTarn& window, Time* mark) {
    Measure* measure = MeasurePar(mark);
    const SystemRedraw redraw(window, measure);
    RemoveTempo(mark);
    measureSymbols.Remove(mark);
    Release(mark);
}

}  // namespace corvane
