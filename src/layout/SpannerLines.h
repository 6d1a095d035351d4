// Straight spanners at a staff: hairpins, octave lines, trill lines and pedal lines. Absolute page units.
#pragma once

#include <vector>

#include "layout/SpannerMarks.h"

namespace corvane {

// One system's part of a straight spanner.
struct LinePlace {
    int32_t left = 0, right = 0, y = 0;

    bool IsEmpty() const { return right <= left; }
};

// `from` and `to` are per mille of the end measures' note areas, y thousandths of the line distance.
LinePlace PlaceOf(const SpannerPart& part, int32_t from, int32_t to, int32_t y);

// y of a new spanner, in thousandths, that clears what its marks' parts run over. How far its ink reaches up
// and down from y is told in hundredths of the line distance.
enum class LineKind { Hairpin, OctaveAbove, OctaveBelow, Trill, Pedal };
int32_t ClearY(const StaffMeasureSymbol* mark, int32_t from, int32_t to, LineKind kind);

bool IsBelow(const Ottava* ottava);

}  // namespace corvane
