#include "play/Simultaneity.h"

#include "play/MIDIUtility.h"
#include "play/MeasureClock.h"

namespace corvane {
namespace {

// No element stands there: it marks the end of a measure.
constexpr int kEndClock = kClocksPerBeat;

}  // namespace

bool Simultaneity::Holds(const Measure* m1, const TimeElement* e1, const Measure* m2, const TimeElement* e2) {
    const TimePlace p1 = TimePlaceOf(e1), p2 = TimePlaceOf(e2);
    CORVANE_ASSERT_AS(p1.beat, "beat1");
    CORVANE_ASSERT_AS(p2.beat, "beat2");
    if (m1->_number == m2->_number) {
        const bool beyond = p2.beat > PlayedMeterOf(m2).num;
        if (beyond && !As<TimeOff>(e2)) _overrun = true;
        if (beyond && _overrun) return true;
        return p1 == p2;
    }
    _overrun = false;
    if (m2->_number != m1->_number + 1 || p2 != TimePlace{1, 0}) return false;
    const int num = PlayedMeterOf(m1).num;
    return p1.beat > num || (p1.beat == num && p1.clock == kEndClock);
}

}  // namespace corvane
