// Beams: which notes share one, its direction and line, and what its markers connect. Nothing here knows the sheet:
// who edits takes the patches of the measure off it before and files them anew after.
#pragma once

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// How two notes on beats (from 1; beat - before >= 1) connect: 0 not, 3 fully, 1 by the eighth-note level only, 2 at the
// larger value.
int BeatConnection(const Document* document, int beat, int before, int numerator);

// Re-beams one voice: dissolves its beams and builds those that grouping tells; single notes get flags. Leaves beams
// whose grouping is as before untouched.
void BeamVoice(Voice* voice);

// The global switch "Angled Beam"; off makes every beam horizontal.
bool AngledBeams();
void SetAngledBeams(bool angled);

// Computes direction, line and stem lengths of a beam and the stubs of its markers.
void RefitBeam(Beam* beam);
// Ends of the beam's primary line, absolute page units.
struct BeamLine {
    Point start, end;
    double slope = 0.0, b = 0.0;  // y = x * slope + b
};
BeamLine ComputeBeam(const Beam* beam);
void SetMarkerStubs(Beam* beam);

// Takes a beam apart: every stem gets a flag and its preferred length; the beam and its markers are released.
// `dying` gets neither.
void DissolveBeam(Beam* beam, const BeamSymbol* dying);

}  // namespace corvane
