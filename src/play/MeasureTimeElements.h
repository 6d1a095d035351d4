// The list of a measure's time elements: ordered by beat and clock, at one place off, on, tempo; an element
// of each kind at most once at a place, and there exactly while something uses it.
#pragma once

#include "model/EventRecords.h"

namespace corvane {

// The element of that kind at exactly this place, made where there is none; one more user is counted in both
// cases. `beat` is not 0, `clock` is 0 to 31999.
TimeOn* GetOrMakeTimeOn(Measure* measure, int beat, int clock);
TimeOff* GetOrMakeTimeOff(Measure* measure, int beat, int clock);
Tempo* GetOrMakeTempo(Measure* measure, int beat, int clock);

// One user less. The last one takes the element out of the list and destroys it; its sound events must be
// gone then.
void ReleaseTimeElement(Measure* measure, TimeElement* element);

}  // namespace corvane
