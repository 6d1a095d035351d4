// Beams: which notes share one, its direction and line, and what its markers connect.
#pragma once

#include <functional>

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// What the sheet must know of a change of beams: the patches of these records go off the sheet or come anew.
struct BeamSink {
    std::function<void(BeamMarker* first)> added, removed;
    std::function<void(ChordSymbol*)> changed;
};

// How two notes on beats (from 1; beat - before >= 1) connect: 0 not, 3 fully, 1 by the eighth-note level only, 2 at the
// larger value.
int BeatConnection(const Document* document, int beat, int before, int numerator);

// Re-beams one voice: dissolves its beams and builds those that grouping tells; single notes get flags. Leaves beams
// whose grouping is as before untouched.
void BeamVoice(Voice* voice, const BeamSink& sink);

// Computes direction, line and stem lengths of a beam and the stubs of its markers.
void RefitBeam(Beam* beam);
// Ends of the beam's primary line, absolute page units.
struct BeamLine {
    Point start, end;
    double slope = 0.0;
};
BeamLine ComputeBeam(const Beam* beam);
void SetMarkerStubs(Beam* beam);

// Takes a beam apart: every stem gets a flag and its preferred length; the beam and its markers are released.
// `dying` gets neither.
void DissolveBeam(Beam* beam, const BeamSymbol* dying, const BeamSink& sink);

}  // namespace corvane
