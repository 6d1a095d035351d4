#include "play/PlayWalk.h"

#include <algorithm>

#include "base/Rounding.h"
#include "model/Par.h"

namespace corvane {
namespace {

bool IsFirstEnding(const Measure* measure) {
    for (const MeasureSymbol* symbol : measureSymbols.Of(measure)) {
        const auto* mark = As<MarkEndings>(symbol);
        const Endings* ending = mark ? endingsMarks.ParentOf(mark) : nullptr;
        if (ending && TextOf(ending->_text).find('1') != std::string_view::npos) return true;
    }
    return false;
}

}  // namespace

const Measure* PlayOrder::Next(bool& jumped) {
    jumped = false;
    if (!_at) return nullptr;
    const bool repeats = _at->_endRepeat && _repeatStart && !_route.IsReturning();
    if (repeats && _repeatPass < 1) {
        ++_repeatPass;
        jumped = true;
        return _at = _repeatStart;
    }
    const RepetitionRoute::Turn turn = _route.Behind(_at);
    if (turn.way != RepetitionRoute::Way::On) {
        Forget();
        jumped = turn.way == RepetitionRoute::Way::Jump;
        return _at = turn.to;
    }
    if (_route.IsReturning()) return _at = NextPastFirstEndings();
    if (repeats) Forget();
    if (_repeatStart && _repeatPass == 1) return _at = NextInRepeat();
    return _at = NextMeasure(_at);
}

const Measure* PlayOrder::NextPastFirstEndings() const {
    const Measure* next = NextMeasure(_at);
    while (next && IsFirstEnding(next)) next = NextMeasure(next);
    return next;
}

const Measure* PlayOrder::NextInRepeat() {
    const Measure* next = NextPastFirstEndings();
    if (next && next->_endRepeat) Forget();
    return next;
}

void PlayOrder::NoteStartRepeat(const Measure* measure) {
    if (!measure->_startRepeat || measure == _repeatStart) return;
    _repeatStart = measure;
    _repeatPass = 0;
}

const Measure* StartRepeatBefore(const Measure* measure) {
    while (measure && !measure->_startRepeat) measure = PrevMeasure(measure);
    return measure;
}

void Lane::Begin(int32_t time) {
    start = time;
    duration = ticks = carry = 0;
    factor = 1.0;
}

void Lane::Enter(const Measure* next) {
    measure = next;
    const PlayedMeter meter = PlayedMeterOf(next);
    num = meter.num;
    den = meter.den;
    start = std::min(start + duration, kFarthestTick);
    const MeasureLength length = LengthOf(next, resolution, carry, factor);
    duration = length.duration;
    ticks = length.ticks;
    carry = length.carry;
}

void Lane::ChangeResolution(int ticksOfQuarter, double now) {
    const double scale = static_cast<double>(ticksOfQuarter) / resolution;
    resolution = ticksOfQuarter;
    if (!measure) return;
    start = Truncate(now + (start - now) * scale);
    duration = std::max(1, Truncate(duration * scale));
    ticks = Truncate(ticks * scale);
}

}  // namespace corvane
