// Sound events of grace notes. A group is the longest run of grace chords of a voice around one of them; it
// sounds in time taken from the chord before it or behind it, whose events give way.
#pragma once

#include "model/Relations.h"

namespace corvane {

// Makes the events of a chord's whole group anew with the score's present settings: after a member was placed
// or changed. A group without the neighbour that its mode wants sounds nothing.
void MakeGraceEvents(GraceChord* member);
// Deletes the events of a chord's whole group and lets the neighbours sound in full: before a member is taken
// away. What remains of the group is made again afterwards.
void RemoveGraceEvents(GraceChord* member);

// Makes the events of all groups of a voice whose notes have none, with the settings that they keep.
void AddAllGraceEvents(Voice* voice);

}  // namespace corvane
