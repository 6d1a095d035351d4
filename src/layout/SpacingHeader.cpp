#include "layout/SpacingHeader.h"

#include <algorithm>
#include <unordered_map>

#include "layout/BarlineShapes.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/Spacing.h"
#include "layout/SymbolInk.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int kColumns = 3;             // clefs, keys, time signatures
constexpr int32_t kAccidentalAir = 20;  // hundredths of a line distance, between header and accidentals
constexpr int32_t kMostPush = 4;        // accidentals take at most such a part of the note area

constexpr int kMostHeads = 32;  // beyond, a chord comes from a bad file and is not measured

struct Sign {
    int column = -1;  // -1 for a symbol that belongs to no header
    const FontSymbol* symbol = nullptr;
    int32_t dx = 0, dy = 0;
};

template <class Record>
Sign SignIn(int column, const Record* record) {
    return {column, record->_symbol, record->_x, record->_y};
}

Sign SignOf(const StaffMeasureSymbol* symbol) {
    if (const auto* clef = As<StaticClaf>(symbol)) return SignIn(0, clef);
    if (const auto* key = As<ClafSignature>(symbol)) return SignIn(1, key);
    if (const auto* time = As<TimeSignature>(symbol)) return SignIn(2, time);
    return {};
}

// Around the point at which the sign is drawn.
Rect InkOf(const Sign& sign, const Staff* staff) {
    return sign.symbol ? InkOf(sign.symbol, Point{}, staff ? staff->_lineDistance.Get() : 100, 100) : Rect{};
}

// Headers are also asked for while records come and go.
bool IsPlaced(const GenericNote* note) {
    const Stem* stem = StemPar(note);
    if (!stem) return false;
    for (const GenericNote* head : stemNotes.Of(stem))
        if (!StaffPar(head)) return false;
    return true;
}

// How far the accidentals of the first events reach left of the note area, where it would begin behind
// `header`. What a hand has moved one by does not count.
int64_t ReachOfFirstAccidentals(const Measure* measure, int32_t header) {
    const MeasureFrame frame{-header, measure->Width(), header};
    int64_t reach = 0;
    const auto add = [&](const Chords* chord) {
        if (chordNotes.Count(chord) > kMostHeads) return;
        for (const GenericNote* note : chordNotes.Of(chord))
            if (const Accident* accident = AccidentOf(note); accident && IsPlaced(note)) {
                const int64_t distance = StaffPar(note)->_lineDistance;
                const int64_t left = RectOf(accident, frame).left - accident->_dx * distance / 1000;
                reach = std::max(reach, kAccidentalAir * distance / 100 - left);
            }
    };
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (const Voice* voice : measureStaffVoices.Of(crossing))
            for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
                if (const auto* chord = As<Chords>(symbol)) add(chord);
                if (!IsGrace(symbol)) break;
            }
    return reach;
}

// Widest ink of each column; 0 for a column without any, such as the keys of C.
void MeasureColumns(const Measure* measure, int32_t (&widths)[kColumns]) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing)) {
            const Sign sign = SignOf(symbol);
            if (sign.column >= 0)
                widths[sign.column] = std::max(widths[sign.column], InkOf(sign, crossing->_staff).Width());
        }
}

HeaderPlaces WorkOutPlaces(const Measure* measure) {
    const Document* document = DocumentPar(measure);
    const SpacingGaps gaps = GapsOf(document);
    int32_t widths[kColumns] = {};
    MeasureColumns(measure, widths);
    if (widths[2] && !ShowsTimeSignatures(document)) widths[2] = 0;

    const int32_t before[kColumns] = {gaps.barlineClef, gaps.clefKey, gaps.keyTime};
    int32_t places[kColumns], x = 0;
    for (int i = 0; i < kColumns; ++i) {
        places[i] = x += widths[i] ? before[i] : 0;
        x += widths[i];
    }
    const int32_t repeatWidth = StartRepeatWidth(measure);
    const int32_t repeat = x += x && repeatWidth ? gaps.keyTime : 0;
    const int32_t signs = x + repeatWidth, usual = signs + gaps.firstNote;
    const int64_t most = (int64_t{measure->Width()} - usual) / kMostPush;
    if (most <= 0) return {places[0], places[1], places[2], repeat, usual};
    const int64_t push = ReachOfFirstAccidentals(measure, usual) - gaps.firstNote;
    return {places[0], places[1], places[2], repeat,
            usual + static_cast<int32_t>(std::clamp(push, int64_t{0}, most))};
}

// Headers worked out while nothing is written.
struct KnownHeaders {
    int passes = 0;
    std::unordered_map<const Measure*, HeaderPlaces> places;
};
KnownHeaders& Known() {
    thread_local KnownHeaders known;
    return known;
}

}  // namespace

HeadersAtRest::HeadersAtRest() { ++Known().passes; }

HeadersAtRest::~HeadersAtRest() {
    if (--Known().passes == 0) Known().places.clear();
}

SpacingGaps GapsOf(const Document* document) {
    const auto* page = document ? Preferences<PagePref>(document) : nullptr;
    if (!page) return {};
    return {page->_barlineClefGap, page->_clefKeyGap, page->_keyTimeGap, page->_firstNoteGap,
            page->_lastNoteGap};
}

bool ShowsTimeSignatures(const Document* document) {
    const auto* preferences = document ? Preferences<TimeMeasurePref>(document) : nullptr;
    return !preferences || preferences->_showTimeSignature;
}

HeaderPlaces PlacesOf(const Measure* measure) {
    KnownHeaders& known = Known();
    if (!known.passes) return WorkOutPlaces(measure);
    const auto found = known.places.find(measure);
    if (found != known.places.end()) return found->second;
    return known.places.emplace(measure, WorkOutPlaces(measure)).first->second;
}

int32_t NoteAreaLeft(const Measure* measure) { return PlacesOf(measure).noteArea; }

Point PlaceOfSign(const StaffMeasureSymbol* sign) {
    const MeasureStaff* crossing = MeasureStaffPar(sign);
    const Measure* measure = MeasurePar(crossing);
    const Staff* staff = crossing->_staff;
    if (!measure || !staff) return {};
    const HeaderPlaces places = PlacesOf(measure);
    const int32_t columns[kColumns] = {places.clef, places.key, places.time};
    const Sign kind = SignOf(sign);
    CORVANE_ASSERT_AS(kind.column >= 0, "sign");

    const StaffFrame frame = FrameOf(staff);
    const auto* clef = As<StaticClaf>(sign);
    const Point reference{OriginOf(SystemPar(measure)).x + measure->_left + columns[kind.column],
                          frame.YOfLine(clef ? ClefLine(clef->_code, frame.lineCount) : frame.lineCount)};
    const Point moved{kind.dx * frame.lineDistance / 100, kind.dy * frame.lineDistance / 100};
    return reference + moved - Point{InkOf(kind, staff).left, 0};
}

}  // namespace corvane
