// The line of a beam as a person moves it; on one staff or over several.
#pragma once

#include "model/Relations.h"

namespace corvane {

// How far the line goes at the beam's first and at its last stem, page units downward.
struct BeamMove {
    int32_t first = 0, last = 0;

    friend bool operator==(const BeamMove&, const BeamMove&) = default;
};
// What that is at a place between, or beyond.
int32_t MoveAt(const Beam* beam, const BeamMove& move, int32_t x);
// As much of a move as keeps the levels off the heads; a head that is nearer already stops it.
BeamMove WithinReach(const Beam* beam, const BeamMove& move);
// Moves the line and all stems with it. It keeps its distances from the notes at its ends through later
// edits; where it comes to lie as the rules would have it, it follows these again.
void TellBeam(Beam* beam, const BeamMove& move);

// ---- For those who fit beams.

// A stem with heads under a beam.
struct BeamPost {
    Stem* stem;
    const BeamMarker* marker;
    int32_t x, y;  // of the beam's line there
};
std::vector<BeamPost> PostsOf(const Beam* beam);
// How near the line may come to a head of a post that lies below it, or above; page units.
int32_t LeastRoom(const Beam* beam, const BeamPost& post, const GenericNote* note, bool below);

}  // namespace corvane
