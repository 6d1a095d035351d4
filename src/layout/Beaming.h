// Beams: which notes share one, its direction and line, and what its markers connect. Nothing here knows the
// sheet: who edits takes the patches of the measure off it before and files them anew after.
#pragma once

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// How two notes on beats (from 1; beat - before >= 1) connect, a code of BeamGroups.h.
int BeatConnection(const Document* document, int beat, int before, int numerator);

// Re-beams one voice: dissolves its beams and builds those that grouping tells; single notes get flags. A
// beam whose grouping is as before is kept and refitted; one over several staves is left alone.
void BeamVoice(Voice* voice);

// The global switch "Angled Beam"; off makes every beam horizontal.
bool AngledBeams();
void SetAngledBeams(bool angled);

// Computes direction, line and stem lengths of a beam, the stubs of its markers, and the heights of its
// rests.
void RefitBeam(Beam* beam);
// The same for every beam over a voice's events, where their places have changed.
void RefitBeamsOf(const Voice* voice);
// What a person says of a beam and all its stems (PointChord); refits it.
void PointBeam(Beam* beam, bool up);
// The beam's primary line, absolute page units: from its first event to its last.
struct BeamLine {
    Point start, end;
    double slope = 0.0, b = 0.0;

    int32_t YAt(int32_t x) const;  // x * slope + b, rounded
};
// For a beam whose stems point its way; all zero for one without heads.
BeamLine ComputeBeam(const Beam* beam);
void SetMarkerStubs(Beam* beam);

// Takes a beam apart: its stems get flags, their default directions and preferred lengths; the beam and its
// markers are released. `dying`, which may be null, gets nothing.
void DissolveBeam(Beam* beam, const BeamSymbol* dying);

}  // namespace corvane
