// Clefs, key and time signatures at the head of a measure, and clefs within it.
#include "base/Rounding.h"
#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/SpacingHeader.h"
#include "layout/SymbolInk.h"
#include "model/Clefs.h"
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

// A clef within a measure is smaller than one at its head.
constexpr int32_t kMovingClefPercent = 75;

const Staff* StaffOf(const StaffMeasureSymbol& sign) {
    const MeasureStaff* crossing = MeasureStaffPar(&sign);
    return crossing ? crossing->_staff.Get() : nullptr;
}

template <class Sign>
SignPlace HeaderPlaceOf(const Sign& sign) {
    const Staff* staff = StaffOf(sign);
    return staff ? SignPlace{sign._symbol, PlaceOfSign(&sign), staff->_lineDistance} : SignPlace{};
}

SignPlace PlaceOf(const MovingClaf& clef) {
    const Staff* staff = StaffOf(clef);
    if (!staff) return {};
    const StaffFrame frame = FrameOf(staff);
    const Point at{FrameOf(MeasurePar(&clef)).XOf(clef._place), frame.YOfLine(ClefOf(clef._code).line)};
    const Point moved{clef._x * frame.lineDistance / 100, clef._y * frame.lineDistance / 100};
    return {clef._symbol, at + moved, frame.lineDistance, kMovingClefPercent};
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
Rect InkOf(const MovingClaf& clef) { return InkOf(PlaceOf(clef)); }
void Paint(GraphicPort& port, const MovingClaf& clef, const DrawContext&) { Paint(port, PlaceOf(clef)); }
Rect InkOf(const ClafSignature& key) { return InkOf(HeaderPlaceOf(key)); }
void Paint(GraphicPort& port, const ClafSignature& key, const DrawContext&) {
    Paint(port, HeaderPlaceOf(key));
}
Rect InkOf(const TimeSignature& time) { return InkOf(HeaderPlaceOf(time)); }
void Paint(GraphicPort& port, const TimeSignature& time, const DrawContext&) {
    Paint(port, HeaderPlaceOf(time));
}

}  // namespace corvane
