// Beams as a person wants them, over chosen events of one voice. What is made so is kept when its voice is
// beamed anew (BeamVoice).
#pragma once

#include "layout/BeamGroups.h"

namespace corvane {

// A change of a voice's beams, and whether there is anything to change.
struct HandBeams {
    bool (*can)(const Voice* voice, const ChosenEvents& chosen);
    void (*act)(const Voice* voice, const ChosenEvents& chosen);
};

// The groups of the chosen events, and of all that stands under a beam with one, by their beats; what a
// person has said of them counts no more.
extern const HandBeams kBeamOnBeats;

// One beam over each run of at least two chosen notes. What is left of beams that it takes notes from stays
// beamed.
extern const HandBeams kBeamTogether;

// Each run of chosen events joins the beams that it touches into one. A single note, or a beam that is chosen
// alone, takes in what stands before it, or else behind it; a note beside which nothing can be beamed gets a
// beam for its flag.
extern const HandBeams kExtendBeams;

// Chosen notes stand under no beam and keep that; what is left on either side of them stays beamed. Stems
// over several staves are parted.
extern const HandBeams kTakeFromBeams;

// The partial beams at chosen notes point the other way.
extern const HandBeams kTurnStubs;

// How the first note of each chosen run connects to the note before it.
extern const HandBeams kJoinInnerBeams, kJoinByEighthBeam, kJoinByLargerValue;

}  // namespace corvane
