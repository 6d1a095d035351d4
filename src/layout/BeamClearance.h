// What beams keep between their line and the heads under it.
#pragma once

#include <cstdint>

#include "model/Relations.h"

namespace corvane {

inline constexpr double kBeamSlope = 0.17;
// A slope over a way, flat enough that it rises by no more than two line distances.
double CappedSlope(double slope, int32_t way, int32_t lineDistance);
// From the middle of a head to the levels of its beam, hundredths of a line distance.
inline constexpr int32_t kHeadRoom = 100;

// The sizes of a beam's levels, hundredths of a line distance, and how near a head may come to them.
struct BeamClearance {
    int32_t thickness, step, preferred, least;

    explicit BeamClearance(const Stem* stem);
    // From the beam's line to the inner edge of the levels of a value.
    int32_t Depth(int value) const;
};

}  // namespace corvane
