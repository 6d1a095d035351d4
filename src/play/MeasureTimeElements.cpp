#include "play/MeasureTimeElements.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "model/Relations.h"

namespace corvane {
namespace {

auto KeyOf(const TimeElement* element) {
    return std::tuple(element->_beat.Get(), element->_clock.Get(), RankOf(element->ClassNumber()));
}

template <class R>
R* GetOrMake(Measure* measure, int beat, int clock) {
    CORVANE_ASSERT(measure);
    CORVANE_ASSERT(beat);
    CORVANE_ASSERT(clock >= 0);
    beat = std::min<int>(beat, std::numeric_limits<int16_t>::max());
    const auto key = std::tuple(static_cast<int16_t>(beat), static_cast<int16_t>(clock), RankOf(R::kClass));
    TimeElement* behind = nullptr;
    if (TimeElement* last = measureTimeElements.Last(measure); last && KeyOf(last) < key) {
        behind = last;
    } else {
        for (TimeElement* other : measureTimeElements.Of(measure)) {
            const auto otherKey = KeyOf(other);
            if (otherKey == key) {
                other->_refCount += 1;
                return static_cast<R*>(other);
            }
            if (otherKey > key) break;
            behind = other;
        }
    }
    TimeElement* te = Make<R>();
    te->_beat = static_cast<int16_t>(beat);
    te->_clock = static_cast<int16_t>(clock);
    CORVANE_ASSERT(!(te->_refCount));
    // Insert takes null for "first".
    measureTimeElements.Insert(measure, te, behind);
    te->_refCount = 1;
    return static_cast<R*>(te);
}

}  // namespace

TimeOn* GetOrMakeTimeOn(Measure* measure, int beat, int clock) {
    return GetOrMake<TimeOn>(measure, beat, clock);
}
TimeOff* GetOrMakeTimeOff(Measure* measure, int beat, int clock) {
    return GetOrMake<TimeOff>(measure, beat, clock);
}
Tempo* GetOrMakeTempo(Measure* measure, int beat, int clock) {
    return GetOrMake<Tempo>(measure, beat, clock);
}

void ReleaseTimeElement(Measure* measure, TimeElement* te) {
    CORVANE_ASSERT_AS(te->_refCount, "te -> _refCount");
    te->_refCount -= 1;
    if (te->_refCount) return;
    measureTimeElements.Remove(measure, te);
    if (auto* on = As<TimeOn>(te)) return Release(on);
    if (auto* off = As<TimeOff>(te)) return Release(off);
    Release(As<Tempo>(te));
}

}  // namespace corvane
