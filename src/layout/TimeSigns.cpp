#include "layout/TimeSigns.h"

#include <optional>

#include "layout/Glyphs.h"
#include "layout/SymbolInk.h"
#include "model/Meters.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

Rect InkOfNumerals(const TimeSignature& time, Point at, int32_t lineDistance) {
    return InkOf(time._symbol, at, lineDistance, 100);
}

std::optional<NoteFigure> NoteBelow(const TimeSignature& time, Point at, int32_t lineDistance) {
    if (static_cast<MeterKind>(time._kind.Get()) != MeterKind::NoteBelow) return {};
    const Measure* measure = MeasurePar(&time);
    if (!measure) return {};
    constexpr int32_t kPercent = 55, kDown = 195;  // of a note; below the middle line
    NoteFigure note{EffectiveDenominator(measure->_den), 0, {}, lineDistance * kPercent / 100};
    const Rect number = InkOfNumerals(time, at, lineDistance), own = InkOf(note);
    note.at = {(number.left + number.right - own.Width()) / 2, at.y + kDown * lineDistance / 100};
    return note;
}

}  // namespace

Rect InkOfTime(const TimeSignature& time, Point at, int32_t lineDistance) {
    const Rect ink = InkOfNumerals(time, at, lineDistance);
    const std::optional<NoteFigure> note = NoteBelow(time, at, lineDistance);
    return note ? Union(ink, InkOf(*note)) : ink;
}

void PaintTime(GraphicPort& port, const TimeSignature& time, Point at, int32_t lineDistance) {
    DrawSymbol(port, time._symbol, at.x, at.y, lineDistance, 100);
    if (const std::optional<NoteFigure> note = NoteBelow(time, at, lineDistance)) Paint(port, *note);
}

}  // namespace corvane
