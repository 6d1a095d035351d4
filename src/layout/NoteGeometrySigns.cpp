// Accidentals and dots.
#include <algorithm>

#include "base/Rounding.h"
#include "layout/AccidentalColumns.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "layout/VoicesTogether.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// The preferred gaps count from what an accidental and a head usually measure, so that what is wider or
// narrower keeps the same distance. Hundredths of a line distance.
constexpr int32_t kUsualAccidental = 90, kUsualHalfHead = 57;
constexpr int32_t kLeastAccidentalGap = 15, kLeastDotGap = 20;
constexpr int32_t kDefaultAccidentalGap = 110, kDefaultDotGap = 100;
// From a dot to the next of its row, and from a ledger line to an accidental.
constexpr int32_t kDotToDot = 65, kLedgerGap = 8;

int32_t AccidentalGap(const Document* document) {
    const auto* preferences = document ? Preferences<NotePref>(document) : nullptr;
    const int32_t gap = preferences ? preferences->_accidentalGap.Get() : kDefaultAccidentalGap;
    return std::max(kLeastAccidentalGap, gap - kUsualAccidental);
}

int32_t DotGap(const Document* document) {
    const auto* preferences = document ? Preferences<NotePref>(document) : nullptr;
    const int32_t gap = preferences ? preferences->_dotGap.Get() : kDefaultDotGap;
    return std::max(kLeastDotGap, gap - kUsualHalfHead);
}

// How far up the dot of a head or rest stands from a step: a line has none.
int32_t DotHeight(const StaffFrame& staff, int32_t line) {
    const int32_t y = staff.YOfLine(line);
    return line % 2 != 0 ? y - staff.lineDistance / 2 : y;
}

// Rows of dots of an event, each at the left edge of its first dot.
std::vector<Point> RowsOf(const Chords* chord) {
    std::vector<Point> rows;
    const Stem* stem = StemOf(chord);
    if (!stem) return rows;
    const Column column(stem);
    int32_t right = HeadsOf(column).right;
    for (const Chords* beside : ChordsBeside(chord))
        if (const Stem* other = StemOf(beside); other && VoiceShift(other))
            right = std::max(right, HeadsOf(Column(other)).right);
    for (const GenericNote* note : stemNotes.Of(stem)) {
        if (ChordPar(note) != chord) continue;
        const StaffFrame staff = FrameOf(StaffPar(note));
        int32_t y = DotHeight(staff, note->_line);
        if (!rows.empty() && y <= rows.back().y) y = rows.back().y + staff.lineDistance;
        rows.push_back({right + DotGap(DocumentPar(note)) * staff.lineDistance / 100, y});
    }
    return rows;
}

std::vector<Point> RowsOf(const Pause* pause) {
    const StaffFrame staff = FrameOf(StaffPar(pause));
    const Point place = PlaceOf(pause);
    const int32_t right = InkOf(pause->_symbol, place, staff.lineDistance, 100).right;
    const int32_t gap = DotGap(DocumentPar(pause)) * staff.lineDistance / 100;
    return {{right + gap, place.y - staff.lineDistance / 2}};
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

}  // namespace

Point PlaceOf(const Accident* accident) {
    const GenericNote* note = noteAttributes.ParentOf(accident);
    CORVANE_ASSERT_AS(note, "note");
    const Column column(StemPar(note));
    const StaffFrame staff = FrameOf(StaffPar(note));
    const int32_t distance = staff.lineDistance;
    int32_t right = HeadsOf(column).left;
    for (const Chords* beside : ChordsBeside(ChordPar(note)))
        if (const Stem* stem = StemOf(beside)) right = std::min(right, HeadsOf(Column(stem)).left);
    right -= AccidentalGap(DocumentPar(note)) * distance / 100;
    const LedgerLines ledgers = LedgerLinesOf(note, column);
    if (ledgers.count) right = std::min(right, ledgers.left - kLedgerGap * distance / 100);
    const int32_t width = InkOf(accident->_symbol, {}, distance, 100).right;
    return {right - width - AccidentalShift(accident) + accident->_dx * distance / 1000,
            staff.YOfLine(note->_line) + accident->_dy * distance / 1000};
}

Rect RectOf(const Accident* accident) {
    const GenericNote* note = noteAttributes.ParentOf(accident);
    return InkOf(accident->_symbol, PlaceOf(accident), FrameOf(StaffPar(note)).lineDistance, 100);
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
