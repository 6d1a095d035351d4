// Places of heads, stems, flags, accidentals, dots and rests, in absolute page units. Drawing, hit tests, beams and
// layout all ask here.
#pragma once

#include "layout/Frames.h"

namespace corvane {

struct HeadPlace {
    Point head;   // where the head is drawn: its reference x, and y by the shape of its symbol
    Point stem;   // where a stem attaches: same x, y by the shape
};
HeadPlace PlaceOf(const GenericNote* note);
// Ink of a head.
Rect RectOf(const GenericNote* note);
// Width of a stem's widest head in page units, at its size and staff.
int32_t HeadWidth(const Stem* stem);

struct StemLine {
    int32_t x = 0;
    int32_t from = 0;  // y at the head that it is drawn from
    int32_t end = 0;   // y of the free end
};
// Pulled to the heads' end where it would stop inside its chord.
StemLine LineOf(const Stem* stem);
// Length in hundredths of a line distance that puts the free end at y; stores it in the stem.
void SetEnd(Stem* stem, int32_t y);
// Absolute x of a stem's line, or the centre of a rest.
int32_t BeamXOf(const BeamSymbol* symbol);

Rect RectOf(const ChordSymbol* chordSymbol);  // heads, ledger lines, stem, flags
Rect RectOf(const Pause* pause);
Point PlaceOf(const Pause* pause);            // reference of its glyph
Rect RectOf(const Accident* accident);
Point PlaceOf(const Accident* accident);
Rect RectOf(const Dot* dot);
Rect RectOf(const BeamMarker* marker);        // of a beam's first marker: the whole beam; empty for the others

struct LedgerLines {
    int count = 0;        // 0 for none
    int32_t first = 0;    // y of the one nearest to the staff
    int32_t step = 0;     // to the next: positive downward
    int32_t left = 0, right = 0;
};
LedgerLines LedgerLinesOf(const GenericNote* note);
LedgerLines LedgerLinesOf(const Pause* pause);

// The head under a point: strictly between half a line distance above and below its centre; stem and note order.
GenericNote* HeadAt(const ChordSymbol* chordSymbol, Point p);

}  // namespace corvane
