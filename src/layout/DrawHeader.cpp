// Clefs, key and time signatures at the head of a measure, and clefs within it.
#include <optional>

#include "base/Rounding.h"
#include "layout/DrawFamilies.h"
#include "layout/Glyphs.h"
#include "layout/MovingClefs.h"
#include "layout/SpacingHeader.h"
#include "layout/SymbolInk.h"
#include "model/Clefs.h"
#include "model/Meters.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// Where a sign of a staff is drawn, and how large.
struct SignPlace {
    const FontSymbol* symbol = nullptr;
    Point at;
    int32_t lineDistance = 0;
    int32_t percent = 100;
};

const Staff* StaffOf(const StaffMeasureSymbol& sign) {
    const MeasureStaff* crossing = MeasureStaffPar(&sign);
    return crossing ? crossing->_staff.Get() : nullptr;
}

template <class Sign>
SignPlace HeaderPlaceOf(const Sign& sign) {
    const Staff* staff = StaffOf(sign);
    return staff ? SignPlace{sign._symbol, PlaceOfSign(&sign), staff->_lineDistance} : SignPlace{};
}

SignPlace SignPlaceOf(const MovingClaf& clef) {
    const Staff* staff = StaffOf(clef);
    if (!staff) return {};
    return {clef._symbol, PlaceOf(&clef), staff->_lineDistance, kMovingClefPercent};
}

Rect InkOf(const SignPlace& place) {
    return place.symbol ? InkOf(place.symbol, place.at, place.lineDistance, place.percent) : Rect{};
}

void Paint(GraphicPort& port, const SignPlace& place) {
    if (place.symbol)
        DrawSymbol(port, place.symbol, place.at.x, place.at.y, place.lineDistance, place.percent);
}

// The denominator of a meter that shows it as a note, under the middle of its numerator.
std::optional<NoteFigure> NoteBelow(const TimeSignature& time) {
    if (static_cast<MeterKind>(time._kind.Get()) != MeterKind::NoteBelow) return {};
    const SignPlace place = HeaderPlaceOf(time);
    const Staff* staff = StaffOf(time);
    const Measure* measure = MeasurePar(&time);
    if (!staff || !measure) return {};
    constexpr int32_t kPercent = 55, kDown = 195;  // of a note; below the middle line
    NoteFigure note{EffectiveDenominator(measure->_den), 0, {}, place.lineDistance * kPercent / 100};
    const Rect number = InkOf(place), own = InkOf(note);
    note.at = {(number.left + number.right - own.Width()) / 2, place.at.y + kDown * place.lineDistance / 100};
    return note;
}

}  // namespace

Rect InkOf(const StaticClaf& clef) { return InkOf(HeaderPlaceOf(clef)); }
void Paint(GraphicPort& port, const StaticClaf& clef, const DrawContext&) {
    Paint(port, HeaderPlaceOf(clef));
}
Rect InkOf(const MovingClaf& clef) { return InkOf(SignPlaceOf(clef)); }
void Paint(GraphicPort& port, const MovingClaf& clef, const DrawContext&) { Paint(port, SignPlaceOf(clef)); }
Rect InkOf(const ClafSignature& key) { return InkOf(HeaderPlaceOf(key)); }
void Paint(GraphicPort& port, const ClafSignature& key, const DrawContext&) {
    Paint(port, HeaderPlaceOf(key));
}
Rect InkOf(const TimeSignature& time) {
    const Rect ink = InkOf(HeaderPlaceOf(time));
    const std::optional<NoteFigure> note = NoteBelow(time);
    return note ? Union(ink, InkOf(*note)) : ink;
}
void Paint(GraphicPort& port, const TimeSignature& time, const DrawContext&) {
    Paint(port, HeaderPlaceOf(time));
    if (const std::optional<NoteFigure> note = NoteBelow(time)) Paint(port, *note);
}

}  // namespace corvane
