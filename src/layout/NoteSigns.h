// Signs on notes: articulations, bowings, fermatas, ornaments, fingerings, tremolo strokes. Where each stands
// follows from its chord: what belongs near the heads stands opposite the stem, the rest above, further out
// the looser it belongs to the note; a forced voice has its signs on its own side. The offsets of a record
// move it from there.
#pragma once

#include <vector>

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// A symbol with its ink's left edge at x and its origin at y.
struct SignPlace {
    const FontSymbol* symbol = nullptr;
    Point at;
    int32_t lineDistance = 0, percent = 100;

    Rect Ink() const;
};

// Of a sign that hangs on a note of a staff; without a symbol for one that does not.
SignPlace PlaceOf(const SymbolAttribute* sign);
// Across the stem, or where it would be.
SignPlace PlaceOf(const Tremolo* tremolo);

// A sign on a grace note is this large.
inline constexpr int32_t kGraceSignPercent = 80;

}  // namespace corvane
