// Fermatas stand outside slurs: which ones a slur runs under, and how far out it reaches there.
#pragma once

#include <optional>
#include <vector>

#include "model/Relations.h"

namespace corvane {

// On the notes under what a mark of a slur draws; none for any other mark.
std::vector<Corona*> FermatasUnder(const StaffMeasureSymbol* mark);

// The outermost y, above or below, of the slurs on that side over a chord between two places; none without
// one. Absolute page units. Cost: the slurs of the chord's staff in its system.
std::optional<int32_t> SlurEdgeOver(const Chords* chord, bool above, int32_t left, int32_t right);

}  // namespace corvane
