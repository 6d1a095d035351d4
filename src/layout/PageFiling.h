// The walk over what a page shows: each drawable object once, in the order in which it is filed and painted.
#pragma once

#include <functional>

#include "layout/DrawPatch.h"

namespace corvane {

// Called with a patch and the number of its voice, 0 for none.
using PatchVisitor = std::function<void(const DrawPatch& patch, int voice)>;

// System by system: staff lines, barlines, braces and brackets; then measure by measure and staff by staff
// the clefs and other signs, the events of the voices, what spans the measure. Last the texts of the page.
void ForEachPatch(const Page* page, const PatchVisitor& visit);

// What one page shows of one system.
void ForEachPatch(const System* system, const PatchVisitor& visit);

// The signs and events of one staff in one measure with all that hangs on them. A column that several of its
// chords share is given with each of them.
void ForEachPatch(const MeasureStaff* measureStaff, const PatchVisitor& visit);

// What hangs elsewhere in the same system but is drawn by what stands in this crossing: spanners that run
// over it, ties that reach it. Cost: the marks of that staff in the system.
void ForEachSpannerOver(const MeasureStaff* measureStaff, const PatchVisitor& visit);

// One event with all that hangs on it: of a chord its column, beam markers, signs and dots.
void ForEachPatch(const VoiceSymbol* symbol, const PatchVisitor& visit);

}  // namespace corvane
