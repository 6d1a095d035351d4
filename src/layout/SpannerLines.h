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

// Where a line runs, as its record has it: from and to in per mille of the note areas of the first and the
// last measure, y in thousandths of the line distance below the top line.
struct LineRun {
    MeasureStaff *first = nullptr, *last = nullptr;
    int32_t from = 0, to = 0, y = 0;
    int32_t opening = 0;  // of a hairpin, thousandths of the line distance

    friend bool operator==(const LineRun&, const LineRun&) = default;
};
// Of a mark of such a spanner; without crossings for any other.
LineRun RunOf(const StaffMeasureSymbol* mark);
// Writes what differs, and moves the marks along.
void SetRun(StaffMeasureSymbol* mark, const LineRun& run);

LinePlace PlaceOf(const SpannerPart& part, const LineRun& run);

// y of a new spanner, in thousandths, that clears what its marks' parts run over. How far its ink reaches up
// and down from y is told in hundredths of the line distance.
enum class LineKind { Hairpin, OctaveAbove, OctaveBelow, Trill, Pedal };
int32_t ClearY(const StaffMeasureSymbol* mark, int32_t from, int32_t to, LineKind kind);

bool IsBelow(const Ottava* ottava);

}  // namespace corvane
