// Several voices on one staff: what stands at one place makes room for each other. All of it is worked out
// from what is there; nothing is stored. Page units.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

// The chords of other voices of the same measure and staff that stand at a chord's place; no grace chords,
// and none beside one.
std::vector<const Chords*> ChordsBeside(const Chords* chord);

// How far right a column stands because heads of a voice with stems up are at its place: theirs and its own
// are a step apart or cross. 0 for stems up, for one voice, and where two voices share a head.
int32_t VoiceShift(const Stem* stem);

// How far a rest that nobody has moved stands above the middle of its staff, in thousandths of a line
// distance: odd voices rest above, even ones below, where another voice has events.
int32_t VoiceLift(const Pause* pause);

}  // namespace corvane
