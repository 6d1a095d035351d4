#include "layout/NoteGeometry.h"

#include "base/Rounding.h"
#include "layout/HeadShapes.h"
#include "layout/LineWeights.h"
#include "layout/SymbolInk.h"
#include "layout/VoicesTogether.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

StaffFrame StaffOf(const GenericNote* note) {
    const Staff* staff = StaffPar(note);
    CORVANE_ASSERT_AS(staff, "ret");
    return FrameOf(staff);
}

int32_t WidthOf(const GenericNote* note) {
    return SymbolWidth(note->_symbol, StaffOf(note).lineDistance, note->_size);
}

int32_t StemX(const Stem* stem, const MeasureFrame& measure) {
    const int32_t width = IsUp(stem->_direction) ? measure.PerMille(HeadWidth(stem)) : 0;
    return measure.XOf(stem->_x + width);
}

// Height above the bottom line of a step, `halves` half line distances beside it.
int32_t HeightOf(const StaffFrame& staff, int32_t line, int halves) {
    const double half = staff.lineDistance * 0.5;
    return Truncate(Round(half * line) + halves * half);
}

int32_t HeadX(const GenericNote* note, const Column& column, const StaffFrame& staff) {
    int32_t x = column.x;
    const int32_t slant = column.stem->_slant;
    if (slant != kVerticalStem && slant != 0) x = (note->_line * staff.lineDistance / 2 - x) / slant;
    return note->_side == Side::Centre ? x + WidthOf(note) / 2 : x;
}

}  // namespace

Column::Column(const Stem* theStem) : Column(theStem, FrameOf(MeasurePar(theStem))) {}

Column::Column(const Stem* theStem, const MeasureFrame& theMeasure)
    : stem(theStem), measure(theMeasure), x(StemX(theStem, measure) + VoiceShift(theStem)) {}

HeadPlace PlaceOf(const GenericNote* note) { return PlaceOf(note, Column(StemPar(note))); }

HeadPlace PlaceOf(const GenericNote* note, const Column& column) {
    const StaffFrame staff = StaffOf(note);
    const HeadShape& shape = ShapeOf(note);
    const int stemHalves = IsUp(column.stem->_direction) ? shape.stemUp : shape.stemDown;
    const int32_t x = HeadX(note, column, staff), bottom = staff.Bottom();
    return {{x, bottom - HeightOf(staff, note->_line, shape.head)},
            {x, bottom - HeightOf(staff, note->_line, stemHalves)}};
}

Point DrawnPlaceOf(const GenericNote* note, const Column& column) {
    const Point head = PlaceOf(note, column).head;
    if (!ShapeOf(note).centred) return head;
    const StaffFrame staff = StaffOf(note);
    const Rect ink = SymbolRect(note->_symbol, staff.lineDistance, note->_size);
    return {head.x, staff.YOfLine(note->_line) - (ink.top + ink.bottom) / 2};
}

char SideLetterOf(const GenericNote* note) { return note->_side == Side::Right ? 'l' : 'r'; }

Rect RectOf(const GenericNote* note) { return RectOf(note, Column(StemPar(note))); }

Rect RectOf(const GenericNote* note, const Column& column) {
    return InkOf(note->_symbol, DrawnPlaceOf(note, column), StaffOf(note).lineDistance, note->_size,
                 SideLetterOf(note));
}

int32_t HeadWidth(const Stem* stem) {
    int32_t width = 0;
    for (const GenericNote* note : stemNotes.Of(stem)) width = std::max(width, WidthOf(note));
    return width;
}

Rect HeadsOf(const Column& column) {
    Rect all;
    for (const GenericNote* note : stemNotes.Of(column.stem)) all = Union(all, RectOf(note, column));
    return all;
}

GenericNote* HeadAt(const ChordSymbol* chordSymbol, Point p) {
    for (const Stem* stem : chordSymbolStems.Of(chordSymbol))
        for (GenericNote* note : stemNotes.Of(stem)) {
            const StaffFrame staff = StaffOf(note);
            const int32_t centre = staff.YOfLine(note->_line), reach = staff.lineDistance / 2;
            if (centre - reach < p.y && p.y < centre + reach) return note;
        }
    return nullptr;
}

std::optional<GraceSlash> SlashOf(const Column& column) {
    const GenericNote* outer = NoteOuter(column.stem);
    const auto* grace = outer ? As<GraceChord>(ChordPar(outer)) : nullptr;
    if (!grace || !grace->_slash) return {};
    for (const BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(column.stem)) {
        if (!As<Flag>(attribute)) continue;
        const StemLine line = LineOf(column);
        const int32_t distance = StaffOf(outer).lineDistance, half = distance / 2;
        const int32_t down = IsUp(column.stem->_direction) ? 2 * half : -2 * half;
        return GraceSlash{{line.x - half, line.end + down}, {line.x + half, line.end}, StemWeight(distance)};
    }
    return {};
}

Rect GraceSlash::Ink() const {
    return Rect{from.x, std::min(from.y, to.y), to.x, std::max(from.y, to.y)}.GrownBy(weight);
}

Rect RectOf(const ChordSymbol* chordSymbol) {
    Rect all;
    for (const Stem* stem : chordSymbolStems.Of(chordSymbol)) {
        const Column column(stem);
        for (const GenericNote* note : stemNotes.Of(stem))
            all = Union(Union(all, RectOf(note, column)), LedgerLinesOf(note, column).Ink());
        if (HasStemInk(stem)) all = Union(all, StemInk(column));
        for (const BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(stem))
            if (const Flag* flag = As<Flag>(attribute)) all = Union(all, RectOf(flag, column));
        if (const std::optional<GraceSlash> slash = SlashOf(column)) all = Union(all, slash->Ink());
    }
    return all;
}

}  // namespace corvane
