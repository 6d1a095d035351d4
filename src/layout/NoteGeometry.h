// Places of heads, stems, flags, accidentals, dots and rests, in absolute page units. Drawing, hit tests,
// beams and layout all ask here. A note, rest or stem that is asked for must hang in a measure and on a staff
// of a page.
#pragma once

#include <optional>
#include <vector>

#include "layout/Frames.h"

namespace corvane {

// ---- Heads and their stem

// A stem with what all that hangs on it is placed by, found once for many questions.
struct Column {
    explicit Column(const Stem* stem);
    Column(const Stem* stem, const MeasureFrame& measure);  // as if its measure stood there
    const Stem* stem;
    MeasureFrame measure;
    int32_t
        x;  // of the stem's line, absolute: right of the heads for a stem up, left of them for a stem down
};

struct HeadPlace {
    Point head;  // reference x; y by the shape of the head's symbol
    Point stem;  // where a stem attaches: same x, y by the shape
};
HeadPlace PlaceOf(const GenericNote* note);
HeadPlace PlaceOf(const GenericNote* note, const Column& column);
// Where the head's symbol is drawn: as its place, but for shapes whose ink is centred on their step.
Point DrawnPlaceOf(const GenericNote* note, const Column& column);
char SideLetterOf(const GenericNote* note);
// Ink of a head.
Rect RectOf(const GenericNote* note);
Rect RectOf(const GenericNote* note, const Column& column);
// Width of a stem's widest head in page units, at its size and staff.
int32_t HeadWidth(const Stem* stem);
// Ink of all heads of a stem.
Rect HeadsOf(const Column& column);

struct StemLine {
    int32_t x = 0;
    int32_t from = 0;  // y at the head that it is drawn from
    int32_t end = 0;   // y of the free end
    int32_t told = 0;  // the same as the stem's length tells, though that be among its heads
};
// Pulled to the heads' end where it would stop inside its chord. A stem without heads has no length.
StemLine LineOf(const Stem* stem);
StemLine LineOf(const Column& column);
// Length in hundredths of a line distance that puts the free end at y; stores it in the stem.
void SetEnd(Stem* stem, int32_t y);
// Ink of a stem: within the edge of the heads, shown or not.
Rect StemInk(const Column& column);
// Where a press is on a stem, though beside its thin line: 100 units to either side, strictly between its
// ends.
Rect HitAreaOf(const Column& column);
// Whether a stem is drawn at all: breves and whole notes have one that never is.
bool HasStemInk(const Stem* stem);

// Where a flag's symbol is drawn, with the side letter 'l', and its ink.
Point PlaceOf(const Flag* flag, const Column& column);
Rect RectOf(const Flag* flag, const Column& column);

struct LedgerLines {
    int count = 0;      // 0 for none
    int32_t first = 0;  // y of the one nearest to the staff
    int32_t step = 0;   // to the next: positive downward
    int32_t left = 0, right = 0;
    int32_t weight = 0;

    Rect Ink() const;  // empty for none
};
LedgerLines LedgerLinesOf(const GenericNote* note);
LedgerLines LedgerLinesOf(const GenericNote* note, const Column& column);
// What it would need on another staff step.
LedgerLines LedgerLinesOf(const GenericNote* note, const Column& column, int line);
LedgerLines LedgerLinesOf(const Pause* pause);

// The stroke through the stem of a grace note that has a flag and is told to have a slash; none else.
struct GraceSlash {
    Point from, to;
    int32_t weight = 0;

    Rect Ink() const;
};
std::optional<GraceSlash> SlashOf(const Column& column);

Rect RectOf(const ChordSymbol* chordSymbol);  // heads, ledger lines, stems, flags, slashes

// The head under a point: strictly between half a line distance above and below its centre; stem and note
// order.
GenericNote* HeadAt(const ChordSymbol* chordSymbol, Point p);

// ---- Rests

Point PlaceOf(const Pause* pause);  // where its symbol is drawn, with the side letter 'l'
Rect RectOf(const Pause* pause);    // with its ledger line

// ---- Signs

Point PlaceOf(const Accident* accident);  // where its symbol is drawn, with the side letter 'l'
Rect RectOf(const Accident* accident);
Rect RectOf(const Accident* accident, const MeasureFrame& measure);  // as if its measure stood there
// Where each single dot is drawn, with the side letter 'l': from the highest head down, each row from the
// left. An event with a Dot for each of its heads shows one row for each; a single Dot stands for all heads.
std::vector<Point> PlacesOf(const Dot* dot);
Rect RectOf(const Dot* dot);

// ---- Beams

// Absolute x of a stem's line, or the centre of a rest.
int32_t BeamXOf(const BeamSymbol* symbol);

// How far the outermost level of a marker lies from its beam's line, downward; 0 for an eighth.
int32_t LevelReach(const BeamMarker* marker);

// A straight stroke of a beam; its ends are upright.
struct BeamStroke {
    Point from, to;
    int32_t thickness = 0;
};
// What a beam paints, from its markers and the ends of their stems: the whole line, the pieces of the further
// levels from left to right, the strokes that reach a rest. None for a beam without stems.
std::vector<BeamStroke> StrokesOf(const Beam* beam);
Rect RectOf(const BeamMarker* marker);  // of a beam's first marker: the whole beam; empty for the others

}  // namespace corvane
