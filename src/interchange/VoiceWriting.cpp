#include "interchange/VoiceWriting.h"

#include "edit/Insertion.h"
#include "interchange/Spelling.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/Frames.h"
#include "layout/NotePitches.h"
#include "layout/Spacing.h"
#include "layout/SpacingHeader.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

constexpr int32_t kBehindAll = 1000;  // per mille; spacing puts everything at its place afterwards

NoteKind KindOf(int figure) {
    return {static_cast<uint8_t>(figure), figure == 1 ? "Intero" : figure == 2 ? "Meta" : "Quarto", false};
}

int HeldVoices(const MeasureStaff* crossing) {
    int held = 0;
    for (const Voice* voice : measureStaffVoices.Of(crossing)) held += !voiceSymbols.IsEmpty(voice);
    return held;
}

bool IsWholeRest(const Voice* voice) {
    const auto* rest = As<Pause>(voiceSymbols.First(voice));
    return rest && rest->_value == 1 && rest == voiceSymbols.Last(voice);
}

// Whether each event of a list that is laid out has room for what stands there. Its places are per mille of
// its usable width, and will count of the note area.
bool HasRoom(const ListaEventi& list, int32_t noteArea) {
    for (size_t i = 0; i < list.events.size(); ++i) {
        const Event& event = list.events[i];
        const int32_t end = i + 1 < list.events.size() ? list.events[i + 1].x : 1000;
        const int32_t width = event.rightExtent - event.leftExtent;
        if (int64_t{end - event.x} * noteArea < int64_t{width} * list.Usable()) return false;
    }
    return true;
}

}  // namespace

void VoiceWriting::Write() {
    for (const PlannedSymbol& symbol : _plan.symbols) WriteSymbol(symbol);
}

void VoiceWriting::WriteSymbol(const PlannedSymbol& symbol) {
    MeasureStaff* crossing = _column.crossings[static_cast<size_t>(symbol.bar)];
    Voice* voice = FindOrMakeVoice(crossing, _plan.voice);
    if (symbol.noteCount)
        WriteChord(voice, symbol);
    else
        WriteRest(voice, symbol);
}

void VoiceWriting::WriteRest(Voice* voice, const PlannedSymbol& symbol) {
    Pause* rest = InsertPauseBehind(voice, voiceSymbols.Last(voice), kBehindAll, RestKindOf(symbol.figure));
    Decorate(rest, symbol);
}

void VoiceWriting::WriteChord(Voice* voice, const PlannedSymbol& symbol) {
    const MeasureStaff* crossing = MeasureStaffPar(voice);
    const int clef = ClefInForce(crossing, 0), key = _keys[static_cast<size_t>(symbol.bar)];
    Chords* chord = nullptr;
    for (uint32_t i = symbol.firstNote; i < symbol.firstNote + symbol.noteCount; ++i) {
        const Spelling spelling = SpellingOf(_plan.notes[i].key, key);
        const int line = LineOfStep(clef, spelling.step);
        GenericNote* note = chord ? AddNoteToChord(chord, line, KindOf(symbol.figure))
                                  : InsertNewChord(voice, kBehindAll, line, KindOf(symbol.figure));
        note->_alteration = spelling.alteration;
        chord = ChordPar(note);
        _notes[i] = note;
    }
    RestemChord(chord);
    Decorate(chord, symbol);
    AddChordEvents(chord);
    for (uint32_t i = symbol.firstNote; i < symbol.firstNote + symbol.noteCount; ++i)
        TieBack(_plan.notes[i], _notes[i]);
}

void VoiceWriting::Decorate(VoiceSymbol* written, const PlannedSymbol& symbol) {
    if (symbol.dots) SetDots(written, symbol.dots);
    if (!symbol.tupletCount) return;
    if (symbol.startsTuplet) {
        _tuplet = Make<Irregular>();
        _tuplet->_count = symbol.tupletCount;
        _tuplet->_inTimeOf = symbol.inTimeOf;
    }
    auto* mark = Make<MarkIrreg>();
    voiceSymbolAttributes.Add(written, mark);
    irregularMarks.Add(_tuplet, mark);
}

// The parts of a note that was cut sound as one.
void VoiceWriting::TieBack(const PlannedNote& note, GenericNote* written) {
    GenericNote* before = note.previous >= 0 ? _notes[static_cast<size_t>(note.previous)] : nullptr;
    if (!before || SoundingHeight(before) != SoundingHeight(written)) return;
    auto* tie = Make<TieValue>();
    for (GenericNote* end : {before, written}) {
        auto* mark = Make<MarkValue>();
        noteAttributes.Add(end, mark);
        tieMarks.Add(tie, mark);
    }
    TieNotes(before, written);
}

void SettleCrossing(MeasureStaff* crossing) {
    if (HeldVoices(crossing) == 0)
        InsertPauseBehind(measureStaffVoices.First(crossing), nullptr, kBehindAll, RestKindOf(1));
    if (HeldVoices(crossing) > 1)
        for (Voice* voice : measureStaffVoices.Of(crossing))
            if (!voiceSymbols.IsEmpty(voice)) RestemVoice(voice);
    // An accidental holds for what stands behind it, so all need a place before any is judged.
    for (Voice* voice : measureStaffVoices.Of(crossing))
        if (!voiceSymbols.IsEmpty(voice)) SpaceVoice(voice);
    RedoAccidentals(crossing);
}

void RespaceMeasure(Measure* measure) {
    const HeadersAtRest headers;
    ListaEventi list(measure, SpacingRoom());
    const int32_t noteArea = FrameOf(measure).NoteArea();
    // A full measure has room for what stands there, and the rest by duration.
    constexpr SpacingTable kNoMoreThanNeeded = {{}};
    bool fits = false;
    if (list.CanBeSpaced())
        for (const SpacingTable& table : {spacingTable, kNoMoreThanNeeded}) {
            list.LayOut(table);
            fits = HasRoom(list, noteArea);
            if (fits) break;
        }
    if (fits) list.Put();
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        for (Voice* voice : measureStaffVoices.Of(crossing))
            if (!voiceSymbols.IsEmpty(voice) && (!fits || IsWholeRest(voice))) SpaceVoice(voice);
}

void BeamCrossing(MeasureStaff* crossing) {
    for (Voice* voice : measureStaffVoices.Of(crossing))
        if (!voiceSymbols.IsEmpty(voice)) BeamVoice(voice);
}

}  // namespace corvane
