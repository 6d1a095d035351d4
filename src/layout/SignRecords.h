// The signs of a crossing: clefs, key and time signatures. Each function leaves the sheet, the spacing and
// the notes to its caller.
#pragma once

#include "model/Meters.h"
#include "model/Relations.h"

namespace corvane {

// The first sign of a class that a crossing holds; null for none.
template <class Sign>
Sign* SignOf(const MeasureStaff* crossing) {
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        if (auto* sign = As<Sign>(symbol)) return sign;
    return nullptr;
}

// Gives a clef another code, with its line and symbol.
void SetClef(Claf* clef, int code);
// A clef within a measure, in front of those that stand right of it.
MovingClaf* AddMovingClaf(MeasureStaff* crossing, int code, int32_t place);

// The key signature of a crossing, made where it has none. Naturals take back what the key before had.
void SetKey(MeasureStaff* crossing, int key);
// The symbols of a crossing's key signature by the clef and the key before it; true if it changed.
bool RenewKeySymbol(MeasureStaff* crossing);

// The time signature of a crossing, made where it has none. The measure's own numbers are the caller's.
void SetTime(MeasureStaff* crossing, const Meter& meter);

// Takes a clef, key, time signature or placed symbol out of its crossing and releases it.
void ReleaseSign(StaffMeasureSymbol* sign);

}  // namespace corvane
