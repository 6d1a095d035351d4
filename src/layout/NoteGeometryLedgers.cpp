// Ledger lines and rests.
#include "base/Rounding.h"
#include "layout/LineWeights.h"
#include "layout/NoteGeometry.h"
#include "layout/Spacing.h"
#include "layout/SymbolInk.h"
#include "layout/VoicesTogether.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// How ledger lines stand around the reference of a head of some value, in half line distances.
struct LedgerWidth {
    uint8_t value;
    double centre;  // from the reference into the head
    double reach;   // from there to either end
};
constexpr LedgerWidth kLedgerWidths[] = {{1, 1.5, 2.0}, {kDoubleWhole, 2.5, 3.2}, {0, 1.0, 2.0}};

const LedgerWidth& WidthFor(uint8_t value) {
    const LedgerWidth* row = kLedgerWidths;
    while (row->value && row->value != value) ++row;
    return *row;
}

// How much smaller the lines of a grace note are, as its head is.
constexpr double kGraceScale = 285.0 / 385.0;

// The lines between the staff and a step; count 0 where there are none.
LedgerLines Outward(const StaffFrame& staff, int line) {
    LedgerLines ledgers;
    if (line >= 0 && line <= 2 * staff.lineCount) return ledgers;
    const bool below = line < 0;
    ledgers.count = below ? -((line - 1) / 2) : (line - 2 * staff.lineCount + 1) / 2;
    ledgers.step = below ? staff.lineDistance : -staff.lineDistance;
    ledgers.first = (below ? staff.Bottom() : staff.top) + ledgers.step;
    ledgers.weight = LedgerLineWeight(staff.lineDistance);
    return ledgers;
}

// The rests that hang from a line or stand on one, and that line's height above the middle of their place, in
// line distances.
struct LineRest {
    uint8_t value;
    int32_t above;
};
constexpr LineRest kLineRests[] = {{1, 1}, {2, 0}};

}  // namespace

Rect LedgerLines::Ink() const {
    if (count == 0) return {};
    const int32_t last = first + (count - 1) * step;
    const int32_t up = weight / 2, down = weight - up;
    return {left, std::min(first, last) - up, right, std::max(first, last) + down};
}

LedgerLines LedgerLinesOf(const GenericNote* note) { return LedgerLinesOf(note, Column(StemPar(note))); }

LedgerLines LedgerLinesOf(const GenericNote* note, const Column& column) {
    return LedgerLinesOf(note, column, note->_line);
}

LedgerLines LedgerLinesOf(const GenericNote* note, const Column& column, int line) {
    const StaffFrame staff = FrameOf(StaffPar(note));
    LedgerLines ledgers = Outward(staff, line);
    if (ledgers.count == 0) return ledgers;
    const LedgerWidth& width = WidthFor(ValueOf(ChordPar(note)));
    const double half = Round(staff.lineDistance * 0.5) * (As<Grace>(note) ? kGraceScale : 1.0);
    const int32_t inward = Truncate(half * width.centre), reach = Truncate(half * width.reach);
    // A head centred on its reference was moved by half its width, and its symbol ends there.
    const int32_t middle = PlaceOf(note, column).head.x + (note->_side == Side::Right ? inward : -inward);
    ledgers.left = middle - reach;
    ledgers.right = middle + reach;
    return ledgers;
}

Point PlaceOf(const Pause* pause) {
    const StaffFrame staff = FrameOf(StaffPar(pause));
    const Voice* voice = VoicePar(pause);
    const auto y = [&staff](int32_t height) { return staff.top + height * staff.lineDistance / 1000; };
    Point place{FrameOf(MeasurePar(pause)).XOf(pause->_x), y(pause->_y)};
    // A rest that fills the measure stands with its middle in the middle.
    const bool fills = pause->_x == kMiddleOfMeasure &&
                       (pause->_value == 1 || pause->_value == kDoubleWhole) && voice &&
                       voiceSymbols.First(voice) == voiceSymbols.Last(voice);
    if (fills) place.x -= SymbolWidth(pause->_symbol, staff.lineDistance, 100) / 2;
    const bool beamed = MarkerOf(pause) && pause->_beamY != 0;
    place.y = y(beamed ? pause->_beamY.Get() : pause->_y - VoiceLift(pause, place));
    return place;
}

LedgerLines LedgerLinesOf(const Pause* pause) {
    const StaffFrame staff = FrameOf(StaffPar(pause));
    const Point place = PlaceOf(pause);
    for (const LineRest& row : kLineRests) {
        if (row.value != pause->_value) continue;
        const int32_t y = place.y - row.above * staff.lineDistance;
        if (y >= staff.top && y <= staff.Bottom()) return {};
        const Rect ink = InkOf(pause->_symbol, place, staff.lineDistance, 100);
        const int32_t beyond = staff.lineDistance * 2 / 5;
        return {1, y, 0, ink.left - beyond, ink.right + beyond, LedgerLineWeight(staff.lineDistance)};
    }
    return {};
}

Rect RectOf(const Pause* pause) {
    const StaffFrame staff = FrameOf(StaffPar(pause));
    return Union(InkOf(pause->_symbol, PlaceOf(pause), staff.lineDistance, 100), LedgerLinesOf(pause).Ink());
}

}  // namespace corvane
