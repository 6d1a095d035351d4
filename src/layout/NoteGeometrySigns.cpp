// Accidentals and dots.
#include <algorithm>

#include "base/Rounding.h"
#include "layout/AccidentalColumns.h"
#include "layout/DotRows.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "layout/VoicesTogether.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// The preferred gap counts from what an accidental usually measures, so that what is wider or narrower keeps
// the same distance. Hundredths of a line distance.
constexpr int32_t kUsualAccidental = 90;
constexpr int32_t kLeastAccidentalGap = 15;
constexpr int32_t kDefaultAccidentalGap = 110;
// From a dot to the next of its row, and from a ledger line to an accidental.
constexpr int32_t kDotToDot = 65, kLedgerGap = 8;

int32_t AccidentalGap(const Document* document) {
    const auto* preferences = document ? Preferences<NotePref>(document) : nullptr;
    const int32_t gap = preferences ? preferences->_accidentalGap.Get() : kDefaultAccidentalGap;
    return std::max(kLeastAccidentalGap, gap - kUsualAccidental);
}

// The place of a Dot among those of its event, and how many there are.
struct DotOrder {
    size_t place = 0, count = 0;
};
DotOrder OrderOf(const VoiceSymbol* symbol, const Dot* dot) {
    DotOrder order;
    for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol)) {
        const Dot* other = As<Dot>(attribute);
        if (other == dot) order.place = order.count;
        if (other) ++order.count;
    }
    return order;
}

int32_t DistanceOf(const Dot* dot) {
    const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(dot);
    const Staff* staff = symbol ? StaffPar(symbol) : nullptr;
    CORVANE_ASSERT_AS(staff, "ch_sym");
    return staff->_lineDistance;
}

Point PlaceIn(const MeasureFrame& measure, const Accident* accident, const GenericNote* note) {
    const Column column(StemPar(note), measure);
    const StaffFrame staff = FrameOf(StaffPar(note));
    const int32_t distance = staff.lineDistance;
    int32_t right = HeadsOf(column).left;
    for (const Chords* beside : ChordsBeside(ChordPar(note)))
        if (const Stem* stem = StemOf(beside)) right = std::min(right, HeadsOf(Column(stem, measure)).left);
    right -= AccidentalGap(DocumentPar(note)) * distance / 100;
    const LedgerLines ledgers = LedgerLinesOf(note, column);
    if (ledgers.count) right = std::min(right, ledgers.left - kLedgerGap * distance / 100);
    const int32_t width = InkOf(accident->_symbol, {}, distance, 100).right;
    return {right - width - AccidentalShift(accident) + accident->_dx * distance / 1000,
            staff.YOfLine(note->_line) + accident->_dy * distance / 1000};
}

}  // namespace

Point PlaceOf(const Accident* accident) {
    const GenericNote* note = noteAttributes.ParentOf(accident);
    CORVANE_ASSERT_AS(note, "note");
    return PlaceIn(FrameOf(MeasurePar(StemPar(note))), accident, note);
}
Rect RectOf(const Accident* accident) {
    return RectOf(accident, FrameOf(MeasurePar(StemPar(noteAttributes.ParentOf(accident)))));
}

Rect RectOf(const Accident* accident, const MeasureFrame& measure) {
    const GenericNote* note = noteAttributes.ParentOf(accident);
    const int32_t distance = FrameOf(StaffPar(note)).lineDistance;
    return InkOf(accident->_symbol, PlaceIn(measure, accident, note), distance, 100);
}

std::vector<Point> PlacesOf(const Dot* dot) {
    const VoiceSymbol* symbol = voiceSymbolAttributes.ParentOf(dot);
    const int32_t distance = DistanceOf(dot);
    const auto* pause = As<Pause>(symbol);
    const std::vector<Point> rows = pause ? RowsOf(pause) : RowsOf(As<Chords>(symbol));
    const DotOrder order = OrderOf(symbol, dot);

    std::vector<Point> places;
    const Point moved{dot->_dx * distance / 1000, dot->_dy * distance / 1000};
    const int32_t step = kDotToDot * distance / 100 + dot->_gap * distance / 1000;
    for (size_t row = 0; row < rows.size(); ++row) {
        if (std::min(row, order.count - 1) != order.place) continue;
        for (int32_t i = 0; i < dot->_count; ++i) places.push_back(rows[row] + moved + Point{i * step, 0});
    }
    return places;
}

Rect RectOf(const Dot* dot) {
    Rect all;
    for (const Point place : PlacesOf(dot))
        all = Union(all, InkOf(dot->_symbol, place, DistanceOf(dot), 100));
    return all;
}

}  // namespace corvane
