// The clock of an import: places and lengths that every note value and every tuplet divides evenly, so that
// nothing is ever rounded behind quantization.
#pragma once

#include <cstdint>

namespace corvane {

using FineTime = int64_t;

inline constexpr FineTime kShortest = 3 * 3 * 5 * 7 * 11;  // a 128th
inline constexpr FineTime kWholeNote = 128 * kShortest, kQuarter = kWholeNote / 4;

// Of a place in ticks.
inline FineTime FineOf(int64_t ticks, int ticksPerQuarter) { return ticks * kQuarter / ticksPerQuarter; }
inline FineTime RoundedTo(FineTime time, FineTime grid) { return (time + grid / 2) / grid * grid; }

}  // namespace corvane
