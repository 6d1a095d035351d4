// Meters over measures: a sign where a meter begins, the numbers in every measure, the music spaced and
// beamed by it.
#include <algorithm>

#include "edit/Signs.h"
#include "edit/SystemRedraw.h"
#include "edit/ToolState.h"
#include "layout/Beaming.h"
#include "layout/SignRecords.h"
#include "layout/Spacing.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

TimeSignature* SignIn(const Measure* measure) {
    const MeasureStaff* crossing = measureStaffs.First(measure);
    return crossing ? SignOf<TimeSignature>(crossing) : nullptr;
}

bool HaveSameNumbers(const Measure* a, const Measure* b) { return a->_num == b->_num && a->_den == b->_den; }

// The last measure before the next time signature.
Measure* EndOfMeter(Measure* first) {
    Measure* last = first;
    for (Measure* next = NextMeasure(first); next && !SignIn(next) && HaveSameNumbers(next, first);
         next = NextMeasure(next))
        last = next;
    return last;
}

// The meter of a measure as it is written where it begins.
Meter MeterAt(const Measure* measure) {
    for (const Measure* m = measure; m && HaveSameNumbers(m, measure); m = PrevMeasure(m))
        if (const TimeSignature* sign = SignIn(m)) return MeterOf(sign);
    return {{measure->_num}, measure->_den, MeterKind::Normal};
}

void SetSigns(Measure* measure, const Meter& meter) {
    for (MeasureStaff* crossing : measureStaffs.Of(measure)) SetTime(crossing, meter);
}

void ReleaseSigns(Measure* measure) {
    for (MeasureStaff* crossing : measureStaffs.Of(measure))
        if (auto* sign = SignOf<TimeSignature>(crossing)) ReleaseSign(sign);
}

// Tempo marks keep their place in time, within the beats that there are.
void MoveTempoMarks(Measure* measure, int oldDen) {
    for (MeasureSymbol* symbol : measureSymbols.Of(measure))
        if (auto* mark = As<Time>(symbol)) {
            const int beat = 1 + (mark->_beat - 1) * measure->_den / std::max(oldDen, 1);
            mark->_beat = static_cast<int16_t>(std::clamp<int>(beat, 1, measure->_num));
            InsertTempoAtBeat(measure, mark);
        }
}

// The music of one measure by its new numbers.
void SetMeter(Measure* measure, const Meter& meter) {
    const int oldDen = measure->_den;
    if (measure->_num == meter.Num() && oldDen == meter.den) return;
    measure->_num = static_cast<int16_t>(meter.Num());
    measure->_den = static_cast<int16_t>(meter.den);
    MoveTempoMarks(measure, oldDen);
    for (MeasureStaff* crossing : measureStaffs.Of(measure))
        for (Voice* voice : measureStaffVoices.Of(crossing)) {
            if (oldDen != meter.den) RebuildVoiceEvents(voice);
            if (Switches().autoSpace) SpaceVoice(voice);
            if (Switches().autoBeam) BeamVoice(voice);
        }
}

// What stands behind the range goes on as before: its sign is there, is made, or says nothing any more.
void Resume(Measure* measure, const Meter& was, const Meter& before) {
    if (was == before)
        ReleaseSigns(measure);
    else if (!SignIn(measure))
        SetSigns(measure, was);
}

}  // namespace

Status ChangeMeter(WindowTarn& window, MeasureRange range, const Meter& meter) {
    if (const char* fault = FaultOf(meter)) return {Fault::Refused, fault};
    if (!range.last) range.last = EndOfMeter(range.first);
    Measure* behind = NextMeasure(range.last);
    const Measure* before = PrevMeasure(range.first);
    const EditStep step(window);
    const SystemRedraw redraw(window, range.first, behind ? behind : range.last);
    const Meter after = behind ? MeterAt(behind) : meter;
    for (Measure* measure = range.first; measure != behind; measure = NextMeasure(measure)) {
        ReleaseSigns(measure);
        SetMeter(measure, meter);
    }
    if (!before || !(MeterAt(before) == meter)) SetSigns(range.first, meter);
    if (behind) Resume(behind, after, meter);
    return Status::Ok();
}

}  // namespace corvane
