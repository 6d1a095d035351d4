// The header of a measure: its clefs, key and time signatures, each kind in a column of its own over all
// staves, from left to right with the gaps of the score's page preferences.
//
// A StaticClaf, ClafSignature or TimeSignature stands at the place that is computed here. Its own x and y are
// what it was moved from there, in hundredths of the line distance, y downward; 0 when made.
#pragma once

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// Gaps of a score in page units, but for the last.
struct SpacingGaps {
    int32_t barlineClef = 100, clefKey = 100, keyTime = 100;
    int32_t firstNote = 200;  // between the header, or the barline where there is none, and the note area
    int32_t lastNote = 50;    // between the last note and the barline, per mille of the note area
};
SpacingGaps GapsOf(const Document* document);

// Left edges of the columns' ink, counted from the measure's left; where a column is empty, where it would
// end.
struct HeaderPlaces {
    int32_t clef = 0, key = 0, time = 0;
    int32_t repeat =
        0;  // of a repeat that starts: behind the signs, or the barline itself where there are none
    // Where the note area begins: the preferred gap behind all that, further where accidentals of the first
    // events would reach into it.
    int32_t noteArea = 0;
};
HeaderPlaces PlacesOf(const Measure* measure);

// While one of these lives on a thread, each header is worked out once there, however many objects ask for
// it: for passes that write nothing to headers. They may nest.
class HeadersAtRest {
public:
    HeadersAtRest();
    ~HeadersAtRest();
    HeadersAtRest(const HeadersAtRest&) = delete;
};

// Whether a score shows its time signatures; those that are not shown take no room.
bool ShowsTimeSignatures(const Document* document);

// Absolute point at which the symbol of a clef, key or time signature of a header is drawn, with the side
// letter 'l': a clef on its own line, the others and percussion clefs in the middle of the staff.
Point PlaceOfSign(const StaffMeasureSymbol* sign);

}  // namespace corvane
