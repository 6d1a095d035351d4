// Stems and flags.
#include "base/Rounding.h"
#include "layout/HeadShapes.h"
#include "layout/LineWeights.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kStemReach = 100;  // of a press beside a stem, page units

// The y from which a stem's length counts, upward or downward: the head nearest to its free end, or the
// bottom line of that head's staff where the heads stand on several.
int32_t LengthOrigin(const Column& column, const GenericNote* outer) {
    return IsMultiStaff(column.stem) ? FrameOf(StaffPar(outer)).Bottom() : PlaceOf(outer, column).stem.y;
}

int32_t DistanceAt(const GenericNote* note) { return FrameOf(StaffPar(note)).lineDistance; }

}  // namespace

StemLine LineOf(const Stem* stem) { return LineOf(Column(stem)); }

StemLine LineOf(const Column& column) {
    const Stem* stem = column.stem;
    const GenericNote* outer = NoteOuter(stem);
    if (!outer) return {column.x, 0, 0, 0};
    const int32_t length = Round(static_cast<double>(stem->_length) * DistanceAt(outer) / 100);
    const int32_t origin = LengthOrigin(column, outer), headsEnd = PlaceOf(outer, column).stem.y;
    const int32_t from = PlaceOf(NoteInner(stem), column).stem.y;
    const bool up = IsUp(stem->_direction);
    const int32_t told = up ? origin - length : origin + length;
    return {column.x, from, up ? std::min(told, headsEnd) : std::max(told, headsEnd), told};
}

void SetEnd(Stem* stem, int32_t y) {
    const GenericNote* outer = NoteOuter(stem);
    CORVANE_ASSERT_AS(outer, "note");
    const int32_t origin = LengthOrigin(Column(stem), outer), distance = DistanceAt(outer);
    const double beyond = IsUp(stem->_direction) ? origin - y : y - origin;
    const int32_t length = distance ? Round(beyond * 100 / distance) : 0;
    if (stem->_length != length) stem->_length = length;
}

bool HasStemInk(const Stem* stem) {
    const ChordSymbol* chordSymbol = ChordSymbolPar(stem);
    const int value = chordSymbol ? chordSymbol->_value.Get() : 0;
    return value != 1 && value != kDoubleWhole && !stemNotes.IsEmpty(stem);
}

Rect HitAreaOf(const Column& column) {
    if (!HasStemInk(column.stem)) return {};
    const StemLine line = LineOf(column);
    return Rect{line.x - kStemReach, line.from, line.x + kStemReach, line.end}.Normalised();
}

Rect StemInk(const Column& column) {
    const GenericNote* inner = NoteInner(column.stem);
    if (!inner) return {};
    const StemLine line = LineOf(column);
    const int32_t distance = DistanceAt(inner), weight = StemWeight(distance);
    const int32_t into = Round(ShapeOf(inner).stemPercent * 0.0001 * distance * inner->_size);
    if (IsUp(column.stem->_direction))
        return {line.x - weight, line.end, line.x, std::max(line.from - into, line.end)};
    return {line.x, std::min(line.from + into, line.end), line.x + weight, line.end};
}

Point PlaceOf(const Flag* flag, const Column& column) {
    const StemLine line = LineOf(column);
    const GenericNote* outer = NoteOuter(column.stem);
    const int32_t distance = outer ? DistanceAt(outer) : 0;
    const int32_t left = IsUp(column.stem->_direction) ? line.x - StemWeight(distance) : line.x;
    return {left + flag->_dx * distance / 1000, line.end};
}

Rect RectOf(const Flag* flag, const Column& column) {
    const GenericNote* outer = NoteOuter(column.stem);
    return outer ? InkOf(flag->_symbol, PlaceOf(flag, column), DistanceAt(outer), 100) : Rect{};
}

}  // namespace corvane
