// Beams: which notes share one, its direction and line, and what its markers connect. Nothing here knows the
// sheet: who edits takes the patches of the measure off it before and files them anew after.
#pragma once

#include "base/Geometry.h"
#include "layout/BeamGroups.h"

namespace corvane {

// How two notes on beats (from 1; beat - before >= 1) connect, a code of BeamGroups.h.
int BeatConnection(const Document* document, int beat, int before, int numerator);

// Re-beams one voice: dissolves its beams and builds those that grouping tells; single notes get flags. A
// beam whose grouping is as before is kept and refitted; a fixed one (BeamGroups.h) stays, as long as its
// events follow each other.
void BeamVoice(Voice* voice);
// The same for the groups in which something is chosen, and only them.
void BeamByBeats(const Voice* voice, const ChosenEvents& chosen);
// Makes a beam over events that stand under none.
Beam* BuildBeam(const BeamGroup& group, const Document* document);
// Dissolves the beams over a voice's events between which something has come.
void EndPartedBeams(const Voice* voice);
// The shortest value that a connection lets through between two neighbours; 255 for all.
uint8_t CutOf(int connection, uint8_t value, uint8_t next);
// Whether the level of a value runs from a marker to the next.
bool LevelConnects(const BeamMarker* left, const BeamMarker* right, int value);
// Whether a stem's marker carries a partial beam.
bool HasStub(const BeamMarker* marker);

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
// For a beam on one staff whose stems point its way; all zero for one without heads.
BeamLine ComputeBeam(const Beam* beam);
void SetMarkerStubs(Beam* beam);

// Takes a beam apart: its stems get flags, their default directions and preferred lengths; the beam and its
// markers are released. `dying`, which may be null, gets nothing.
void DissolveBeam(Beam* beam, const BeamSymbol* dying);

}  // namespace corvane
