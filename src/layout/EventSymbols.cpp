#include "layout/EventSymbols.h"

#include <algorithm>
#include <limits>

#include "layout/AccidentalColumns.h"
#include "layout/Frames.h"
#include "layout/MovingClefs.h"
#include "layout/NoteGeometry.h"
#include "layout/Spacing.h"
#include "layout/SpacingHeader.h"
#include "layout/SymbolInk.h"
#include "layout/VoicesTogether.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int32_t kGraceAirPercent = 60;  // of a line distance, behind each grace chord
constexpr int32_t kEnd = 1000;            // of the note area, per mille

int32_t WidthOf(const VoiceSymbol* symbol) {
    const auto* pause = As<Pause>(symbol);
    return pause ? RectOf(pause).Width() : RectOf(ChordSymbolPar(As<Chords>(symbol))).Width();
}

// Behind a grace chord, or before one.
int32_t RoomOf(const VoiceSymbol* symbol, const ListaEventi& list) {
    return WidthOf(symbol) + kGraceAirPercent * list.lineDistance / 100;
}

int32_t ReachOfGrace(const VoiceSymbol* grace, const ListaEventi& list) {
    return list.Room().accidents ? AccidentalReach(As<Chords>(grace)) : 0;
}

int32_t DotRoom(const VoiceSymbol* symbol, int32_t gap) {
    int32_t room = 0;
    for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
        if (const auto* dot = As<Dot>(attribute)) room += gap + RectOf(dot).Width();
    return room;
}

// Columns of accidentals from the heads outward; chords at one place have one set of them.
int32_t AccidentRoom(const std::vector<const Chords*>& chords, int32_t noteGap, int32_t columnGap) {
    std::vector<const GenericNote*> heads;
    for (const Chords* chord : chords)
        for (const GenericNote* note : chordNotes.Of(chord)) heads.push_back(note);
    std::stable_sort(heads.begin(), heads.end(),
                     [](const auto* a, const auto* b) { return a->_line > b->_line; });
    int32_t room = 0;
    const GenericNote* last = nullptr;
    for (const GenericNote* note : heads) {
        const Accident* accident = AccidentOf(note);
        if (!accident) continue;
        const int32_t width = RectOf(accident).Width();
        if (!last)
            room += noteGap + width;
        else if (std::abs(note->_line - last->_line) < kAccidentalColumnSteps)
            room += columnGap + width;
        last = note;
    }
    return room;
}

// Its ink, and a line distance around that.
int32_t ClefWidth(const MovingClaf* clef, int32_t lineDistance) {
    return InkOf(clef->_symbol, Point{}, lineDistance, kMovingClefPercent).Width() + lineDistance;
}

bool Put(Stored<int32_t>& field, int32_t x) {
    if (field == x) return false;
    field = x;
    return true;
}

}  // namespace

bool PutX(VoiceSymbol* symbol, int32_t x) {
    if (auto* pause = As<Pause>(symbol)) return Put(pause->_x, x);
    bool changed = false;
    if (const ChordSymbol* column = ChordSymbolPar(As<Chords>(symbol)))
        for (Stem* stem : chordSymbolStems.Of(column)) changed |= Put(stem->_x, x);
    return changed;
}

// It takes no part in the columns.
bool MusicSymbol::StandsInTheMiddle() const { return IsWholeRestAlone(_symbol); }

EventSymbol::Extents MusicSymbol::Measure(const ListaEventi& list, int32_t) const {
    if (StandsInTheMiddle()) return {};
    Extents extents{GraceRoom(list) + AccidentalRoom(list), RightOfColumn() + RoomOfDots(list)};
    for (const VoiceSymbol* grace : _trailing) extents.right += RoomOf(grace, list);
    return extents;
}

int32_t MusicSymbol::RightOfColumn() const {
    const auto* chord = As<Chords>(_symbol);
    const Stem* stem = chord ? StemOf(chord) : nullptr;
    return WidthOf(_symbol) + (stem && !_beside.empty() ? VoiceShift(stem, _beside) : 0);
}

int32_t MusicSymbol::Overhang() const {
    const auto* chord = As<Chords>(_symbol);
    const Stem* stem = chord ? StemOf(chord) : nullptr;
    if (!stem) return 0;
    const int32_t place = FrameOf(MeasurePar(_symbol)).XOf(corvane::XOf(_symbol)) + VoiceShift(stem);
    return std::max(place - RectOf(ChordSymbolPar(chord)).left, 0);
}

// Dots begin behind the furthest head of all voices at the event.
int32_t MusicSymbol::RoomOfDots(const ListaEventi& list) const {
    if (!list.Room().dots || !DotOf(_symbol)) return 0;
    const auto* notes = Preferences<NotePref>(list.TheDocument());
    const int32_t own = RightOfColumn();
    int32_t right = own;
    for (const Chords* chord : _beside) {
        std::vector<const Chords*> others;
        for (const Chords* each : _beside)
            if (each != chord) others.push_back(each);
        if (const auto* mine = As<Chords>(_symbol)) others.push_back(mine);
        const Stem* stem = StemOf(chord);
        if (const int32_t shift = stem ? VoiceShift(stem, others) : 0)
            right = std::max(right, shift + HeadWidth(stem));
    }
    return right - own + DotRoom(_symbol, notes->_dotGap * list.lineDistance / 100);
}

int32_t MusicSymbol::AccidentalRoom(const ListaEventi& list) const {
    const auto* chord = As<Chords>(_symbol);
    if (!chord || !list.Room().accidents) return 0;
    const auto* notes = Preferences<NotePref>(list.TheDocument());
    std::vector<const Chords*> chords = _beside;
    chords.push_back(chord);
    return AccidentRoom(chords, notes->_accidentalGap * list.lineDistance / 100,
                        notes->_accidentalSpacing * list.lineDistance / 100);
}

int32_t MusicSymbol::GraceRoom(const ListaEventi& list) const {
    int32_t room = 0;
    for (const VoiceSymbol* grace : _graces) room += ReachOfGrace(grace, list) + RoomOf(grace, list);
    return room;
}

int32_t MusicSymbol::AccidentReach(const ListaEventi& list) const {
    const auto* chord = As<Chords>(_symbol);
    return chord && list.Room().accidents ? AccidentalReach(chord, _beside) : 0;
}

int32_t MusicSymbol::RoomAtStart(const ListaEventi& list) const {
    const int32_t free = GapsOf(list.TheDocument()).firstNote - list.lineDistance / 4;
    if (_graces.empty()) return std::max(AccidentReach(list) - free, 0);
    const int32_t first = ReachOfGrace(_graces.front(), list);
    return GraceRoom(list) + AccidentalRoom(list) - std::clamp(first, 0, std::max(free, 0));
}

EventSymbol::Extents MusicSymbol::Needs(const ListaEventi& list) const {
    if (StandsInTheMiddle()) return {};
    const int32_t right = Measure(list, 0).right - Overhang();
    if (!_graces.empty()) return {GraceRoom(list) + AccidentalRoom(list), right};
    return {std::max(AccidentReach(list), 0), right};
}

// Grace chords stand directly before the event and its accidentals, the last one next to it; where there is
// no room for that, not before what they follow. Those that nothing follows stand behind the event.
bool MusicSymbol::Put(const ListaEventi& list, const Event& event) const {
    if (StandsInTheMiddle()) return PutX(_symbol, kMiddleOfMeasure);
    bool changed = PutX(_symbol, event.x);
    int32_t room = GraceRoom(list) + AccidentalRoom(list);
    const VoiceSymbol* before = _graces.empty() ? nullptr : voiceSymbols.Prev(_graces.front());
    const int32_t least = before ? std::min(XOf(before), event.x) : std::numeric_limits<int32_t>::min();
    for (VoiceSymbol* grace : _graces) {
        room -= ReachOfGrace(grace, list);
        changed |= PutX(grace, std::max(event.x - list.InNoteArea(room) * 1000 / list.Usable(), least));
        room -= RoomOf(grace, list);
    }
    int32_t behind = RoomOf(_symbol, list);
    for (VoiceSymbol* grace : _trailing) {
        changed |= PutX(grace, std::max(event.x, std::min(event.x + behind * 1000 / list.Usable(), kEnd)));
        behind += RoomOf(grace, list);
    }
    return changed;
}

EventSymbol::Extents ClefSymbol::Measure(const ListaEventi& list, int32_t before) const {
    return {before + ClefWidth(_clef, list.lineDistance), 0};
}

// Its own width left of the event, but not left of the event before it, which it does not govern.
bool ClefSymbol::Put(const ListaEventi& list, const Event& event) const {
    const int32_t own = ClefWidth(_clef, list.lineDistance) * 1000 / list.measureWidth;
    int32_t before = std::min(event.x - 1, 0);
    for (const Event& each : list.events)
        if (each.x < event.x) before = std::max(before, each.x);
    return corvane::Put(_clef->_place, std::clamp(event.x - own, before, event.x - 1));
}

}  // namespace corvane
