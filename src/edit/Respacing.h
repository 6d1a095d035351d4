// Spacing within an edit, with what follows from it.
#pragma once

#include "model/Relations.h"

namespace corvane {

// Spaces a voice. Its notes may come to the other side of a clef within the measure that stands by the notes of
// another voice: all sound, and have accidentals, as they are read then. Cost: the crossing.
void Respace(Voice* voice);
// The same after any other spacing of a crossing.
void HearAsRead(MeasureStaff* crossing);

}  // namespace corvane
