// Several voices on one staff: what stands at one place makes room for each other. All of it is worked out
// from what is there; nothing is stored. Page units.
#pragma once

#include <vector>

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// The chords of other voices of the same measure and staff that stand at a chord's place; no grace chords,
// and none beside one.
std::vector<const Chords*> ChordsBeside(const Chords* chord);

// The order in which chords at one place take it: stems up, then stems down, each from the voice of the
// lowest number, the outer one, inward. Both have a stem.
bool StandsBefore(const Chords* one, const Chords* other);

// Both heads of a unison are printed as one where they look the same.
bool ShareHeads(const Chords* one, const Chords* other);

// How far right a column stands because a chord before it has its place: their heads are a step apart or
// cross, or their stems point the same way and would be taken for one. 0 for one voice, and where two voices
// share a head.
int32_t VoiceShift(const Stem* stem);
// The same if those of other voices stood at its place, wherever they stand now.
int32_t VoiceShift(const Stem* stem, const std::vector<const Chords*>& beside);

// How far a rest that nobody has moved stands above `place`, the middle of its staff, in thousandths of a
// line distance: where another voice has events odd voices rest two spaces above, even ones below, and
// further out where chords or the rests of inner voices stand; beside a chord of an outer voice of its side
// further in, where there is room.
int32_t VoiceLift(const Pause* pause, Point place);

}  // namespace corvane
