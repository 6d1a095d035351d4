// Clefs, key and time signatures at the head of a measure, and clefs within it.
#include "layout/DrawFamilies.h"
#include "layout/MovingClefs.h"
#include "layout/SpacingHeader.h"
#include "layout/SymbolInk.h"
#include "layout/TimeSigns.h"
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

SignPlace TimePlaceOf(const TimeSignature& time) {
    const bool shown = ShowsTimeSignatures(DocumentPar(MeasureStaffPar(&time)));
    return shown ? HeaderPlaceOf(time) : SignPlace{};
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
    const SignPlace place = TimePlaceOf(time);
    return place.symbol ? InkOfTime(time, place.at, place.lineDistance) : Rect{};
}
void Paint(GraphicPort& port, const TimeSignature& time, const DrawContext&) {
    const SignPlace place = TimePlaceOf(time);
    if (place.symbol) PaintTime(port, time, place.at, place.lineDistance);
}

}  // namespace corvane
