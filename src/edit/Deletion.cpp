#include "edit/Deletion.h"

#include <utility>

#include "base/Assert.h"
#include "edit/DeletionSteps.h"
#include "edit/Insertion.h"
#include "edit/MeasureRedraw.h"
#include "edit/Spanners.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"
#include "play/MIDIGrace.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

bool MayDelete(const VoiceSymbol* symbol, const DeletionChoice& choice) {
    return choice.allVoices || VoicePar(symbol)->_number == choice.voice;
}

// Takes a note's events before it goes. Its chord's duration goes with its last note, unless a rest takes it
// over.
void RemoveEvents(GenericNote* note, bool last, bool toRest) {
    if (!As<Note>(note)) return;
    if (last && !toRest)
        RemoveNoteEventsShifting(note);
    else
        RemoveNoteEvents(note);
}

void DestroyNote(WindowTarn& window, GenericNote* note) {
    Document* document = DocumentPar(note);
    for (NoteAttribute* attribute : noteAttributes.Of(note)) DeleteNoteAttribute(window, attribute);
    DropSymbol(document, note->_symbol);
    stemNotes.Remove(note);
    chordNotes.Remove(note);
    if (auto* grace = As<Grace>(note))
        Release(grace);
    else
        Release(As<Note>(note));
}

// A stem without heads: its flag and its mark under a beam go, and the stem.
void DeleteStem(Stem* stem) {
    if (Beam* beam = BeamOf(stem)) DissolveBeam(beam, stem);
    RemoveFlag(stem);
    chordSymbolStems.Remove(stem);
    Release(stem);
}

// The rest that takes over a chord's time, with the chord's tuplet marks.
void LeaveRest(Chords* chord, int32_t x) {
    Voice* voice = VoicePar(chord);
    Pause* pause = InsertPauseBehind(voice, chord, x, RestKindOf(ValueOf(chord)));
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(chord))
        if (As<MarkIrreg>(attribute)) {
            voiceSymbolAttributes.Remove(attribute);
            voiceSymbolAttributes.Add(pause, attribute);
        }
    SetDots(pause, DotCount(chord));
}

// True if its voice went with it.
bool DestroyChord(WindowTarn& window, Chords* chord) {
    Voice* voice = VoicePar(chord);
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(chord))
        DeleteVoiceSymbolAttribute(window, attribute);
    voiceSymbols.Remove(chord);
    chordSymbolChords.Remove(chord);
    if (auto* grace = As<GraceChord>(chord))
        Release(grace);
    else
        Release(chord);
    return DropEmptyVoice(voice);
}

void DestroyColumn(ChordSymbol* chordSymbol) {
    measureSymbols.Remove(chordSymbol);
    Release(chordSymbol);
}

}  // namespace

bool DropEmptyVoice(Voice* voice) {
    MeasureStaff* measureStaff = MeasureStaffPar(voice);
    const bool only = measureStaffVoices.First(measureStaff) == measureStaffVoices.Last(measureStaff);
    if (!voiceSymbols.IsEmpty(voice) || voice->_number == 1 || only) return false;
    measureStaffVoices.Remove(voice);
    Release(voice);
    return true;
}

bool DeleteNote(WindowTarn& window, GenericNote* note, const DeletionChoice& choice) {
    Chords* chord = ChordPar(note);
    Stem* stem = StemPar(note);
    CORVANE_ASSERT_AS(chord && stem, "ch && stem && doc");
    if (!MayDelete(chord, choice)) return false;

    MeasureStaff* measureStaff = MeasureStaffPar(chord);
    Voice* voice = VoicePar(chord);
    ChordSymbol* chordSymbol = ChordSymbolPar(chord);
    const MeasureRedraw redraw(window, measureStaff);
    const bool grace = IsGrace(chord);
    const bool toRest = choice.toRest && !grace;
    const bool last = chordNotes.First(chord) == chordNotes.Last(chord);
    const bool lastOfStem = stemNotes.First(stem) == stemNotes.Last(stem);
    const int32_t x = stem->_x;
    GenericNote* later = NoteBehind(note);
    VoiceSymbol* neighbour = voiceSymbols.Next(chord) ? voiceSymbols.Next(chord) : voiceSymbols.Prev(chord);

    // While the chord is whole: where their curves run is asked for once more.
    if (last) DeleteSlursAt(window, chord);
    DeleteTiesOf(window, note);
    if (grace)
        RemoveGraceEvents(static_cast<GraceChord*>(chord));
    else
        RemoveEvents(note, last, toRest);
    DestroyNote(window, note);
    if (lastOfStem) {
        DeleteStem(stem);
    } else {
        if (Beam* beam = BeamOf(stem))
            RefitBeam(beam);
        else
            RestemChord(chord);
        SetDirection(stem, stem->_direction);
    }
    bool voiceDropped = false;
    if (last) {
        if (toRest) LeaveRest(chord, x);
        voiceDropped = DestroyChord(window, chord);
        if (chordSymbolStems.IsEmpty(chordSymbol)) DestroyColumn(chordSymbol);
    }
    if (grace) {
        auto* rest = last ? As<GraceChord>(neighbour) : static_cast<GraceChord*>(chord);
        if (rest) MakeGraceEvents(rest);
    }
    if (!voiceDropped) RenewAroundGraceNotes(voice);
    if (later) UpdateAccidentals(later, UpdateNoteHeight);
    if (choice.space && !voiceDropped) SpaceVoice(voice);
    return last;
}

void DeletePause(WindowTarn& window, Pause* pause, const DeletionChoice& choice) {
    if (!MayDelete(pause, choice)) return;
    Voice* voice = VoicePar(pause);
    MeasureStaff* measureStaff = MeasureStaffPar(voice);
    Document* document = DocumentPar(pause);
    CORVANE_ASSERT_AS(document, "doc");
    const MeasureRedraw redraw(window, measureStaff);
    RemoveVoiceSymbolEvents(pause);
    DeleteSlursAt(window, pause);
    if (Beam* beam = BeamOf(pause)) DissolveBeam(beam, pause);
    DropSymbol(document, pause->_symbol);
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(pause))
        DeleteVoiceSymbolAttribute(window, attribute);
    voiceSymbols.Remove(pause);
    Release(pause);
    RenewAroundGraceNotes(voice);
    if (choice.space && !voiceSymbols.IsEmpty(voice)) SpaceVoice(voice);
    DropEmptyVoice(voice);
}

}  // namespace corvane
