// Columns of accidentals left of a chord, from its heads outward.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

// Accidentals so many steps apart share a column.
inline constexpr int kAccidentalColumnSteps = 6;

// How far left of the column next to the heads an accidental stands, in page units: from the highest head
// down each takes the first column in which it meets no other.
int32_t AccidentalShift(const Accident* accident);
// The same if those chords of other voices stood at its chord's place.
int32_t AccidentalShift(const Accident* accident, std::vector<const Chords*> beside);

// How far left of a chord's place its accidentals reach, page units; 0 without any. The second as if those
// chords of other voices stood at its place.
int32_t AccidentalReach(const Chords* chord);
int32_t AccidentalReach(const Chords* chord, const std::vector<const Chords*>& beside);
// The same and the least that is kept free before them.
int32_t RoomOfAccidentals(const Chords* chord);

}  // namespace corvane
