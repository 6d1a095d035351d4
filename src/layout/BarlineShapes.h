// Measures of barlines and repeat signs, shared by what draws them and what keeps room for them. Page units.
#pragma once

#include "model/Relations.h"

namespace corvane {

struct BarlineWeights {
    int32_t thin = 0, thick = 0, gap = 0, lineDistance = 0;

    int32_t DotSize() const { return lineDistance * 2 / 5; }
    // From the thick bar's left edge to the dots' right edge.
    int32_t StartRepeatWidth() const { return thick + 2 * gap + thin + DotSize(); }
};
// By the score's preferences, for staves of that line distance.
BarlineWeights BarlineWeightsOf(const Measure* measure, int32_t lineDistance);

// How far the repeat sign at a measure's left reaches; 0 for a measure without one.
int32_t StartRepeatWidth(const Measure* measure);
// How far the barline or repeat sign at a measure's right reaches into it.
int32_t EndBarlineWidth(const Measure* measure);

}  // namespace corvane
