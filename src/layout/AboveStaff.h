// Places of what stands above the top staff of a measure: tempo marks, endings, repetition texts; and how far
// it must be lifted to clear what is there.
#pragma once

#include <optional>

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// The staff on which the signs of a measure as a whole are shown; null for a measure without staves.
Staff* TopStaffOf(const Measure* measure);

// How far up a rectangle must go, in hundredths of the staff's line distance, so that half a line distance
// lies between it and what the top staff and the measure show under it; 0 where it is free. What `own` draws
// does not count.
int32_t LiftOver(const Measure* measure, const Rect& ink, const void* own);

// Parts of these signs that editing asks for, absolute page units.
Rect InkOfMark(const Time* mark);
Rect InkOfMark(const MarkEndings* mark);
Rect InkOfMark(const Coda* coda);

// Where in the measure a tempo mark stands without its own offset: its beat's share of the measure.
int32_t BeatX(const Measure* measure, int beat);

}  // namespace corvane
