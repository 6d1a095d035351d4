// How long measures and tempos are. Ticks are units of 4 ms; a factor of 1.0 is a quarter at 60.
#pragma once

#include <cstdint>

#include "model/Relations.h"

namespace corvane {

// A measure's meter as it is played: both numbers at least 1, whatever is stored.
struct PlayedMeter {
    int num = 4, den = 4;
};
PlayedMeter PlayedMeterOf(const Measure* measure);

// What a Tempo says; `figure` as a note value, 0 for a code that is none.
struct TempoValues {
    int bpm = 60;
    int figure = 4;
    int dots = 0;
    int tupletActual = 1, tupletNormal = 1;
};
TempoValues ValuesOf(const Tempo* tempo);

// Share of a whole note that the figure counts, dots and tuplet included; 0 without a figure.
double FigureFraction(const TempoValues& values);
// 0 where the values give none.
double FactorOf(const TempoValues& values);

// The last Tempo before a measure, or in it at beat 1, clock 0; null if there is none.
const Tempo* TempoInForce(const Measure* measure);

// Beyond any music, short of where ticks would run over.
inline constexpr int32_t kLongestMeasure = 1 << 22, kFarthestTick = 1 << 30;

struct MeasureLength {
    int32_t ticks = 0;     // at factor 1.0
    int32_t duration = 0;  // tempo changes inside included; 1 to kLongestMeasure
    int32_t carry = 0;     // what rounding left over, for the next measure
};
// `factor` is the one in force as the measure begins; `carry` comes from the measure before.
MeasureLength LengthOf(const Measure* measure, int resolution, int32_t carry, double factor);

}  // namespace corvane
