// The records of a new chord, of a further head and of a rest, linked but neither spaced nor sounding.
#include <algorithm>

#include "base/Assert.h"
#include "base/Rounding.h"
#include "edit/Insertion.h"
#include "layout/Engraving.h"
#include "layout/NoteGeometry.h"
#include "layout/ScoreBuilder.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

Chords* MakeChords(const Voice* voice, bool grace) {
    if (!grace) return Make<Chords>();
    auto* chord = Make<GraceChord>();
    chord->_slash = Preferences<GracePref>(DocumentPar(voice))->_type == GracePref::kSlashed;
    return chord;
}

GenericNote* MakeNote(Document* document, int line, const NoteKind& kind) {
    GenericNote* note = kind.grace ? static_cast<GenericNote*>(Make<Grace>()) : Make<Note>();
    note->_symbol = LookupSymbol(document, kind.headName);
    note->_line = static_cast<int16_t>(line);
    note->_size = 100;
    return note;
}

}  // namespace

VoiceSymbol* EventBefore(const Voice* voice, int32_t x) {
    VoiceSymbol* before = nullptr;
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        if (XOf(symbol) > x) break;
        before = symbol;
    }
    return before;
}

Voice* FindOrMakeVoice(MeasureStaff* measureStaff, int number) {
    if (Voice* voice = FindVoice(measureStaff, number)) return voice;
    return MakeVoice(measureStaff, number);
}

GenericNote* InsertNewChord(Voice* voice, int32_t x, int line, const NoteKind& kind) {
    Document* document = DocumentPar(voice);
    VoiceSymbol* before = EventBefore(voice, x);
    Chords* chord = MakeChords(voice, kind.grace);
    auto* chordSymbol = Make<ChordSymbol>();
    auto* stem = Make<Stem>();
    GenericNote* note = MakeNote(document, line, kind);

    chordSymbol->_value = kind.value;
    measureSymbols.Add(MeasurePar(voice), chordSymbol);
    voiceSymbols.Insert(voice, chord, before);
    chordSymbolChords.Add(chordSymbol, chord);
    chordSymbolStems.Add(chordSymbol, stem);
    chordNotes.Add(chord, note);
    stemNotes.Add(stem, note);
    stem->_slant = kVerticalStem;
    stem->_x = std::max(x, 0);
    RestemChord(chord);
    AttachFlag(stem, kind.value);
    return note;
}

GenericNote* AddNoteToChord(Chords* chord, int line, const NoteKind& kind) {
    Stem* stem = StemOf(chord);
    CORVANE_ASSERT_AS(stem, "!(Stem*)sc");
    GenericNote* note = MakeNote(DocumentPar(chord), line, kind);
    chordNotes.Add(chord, note);
    AddNoteToStem(stem, note);
    return note;
}

Pause* InsertNewPause(Voice* voice, int32_t x, const RestKind& kind) {
    return InsertPauseBehind(voice, EventBefore(voice, x), x, kind);
}

Pause* InsertPauseBehind(Voice* voice, VoiceSymbol* before, int32_t x, const RestKind& kind) {
    auto* pause = Make<Pause>();
    const Staff* staff = MeasureStaffPar(voice)->_staff;
    pause->_value = kind.value;
    pause->_symbol = LookupSymbol(DocumentPar(voice), kind.name);
    pause->_x = std::max(x, 0);
    const int32_t distance = staff ? staff->_lineDistance : 0;
    pause->_y = distance ? Round(staff->LinesHeight() * 0.5) * 1000 / distance : 0;
    pause->_beamY = pause->_y;
    voiceSymbols.Insert(voice, pause, before);
    return pause;
}

Chords* ChordAt(const MeasureStaff* measureStaff, int32_t x, int voice) {
    const Measure* measure = MeasurePar(measureStaff);
    for (MeasureSymbol* symbol : measureSymbols.Of(measure)) {
        auto* chordSymbol = As<ChordSymbol>(symbol);
        if (!chordSymbol) continue;
        const Rect rect = RectOf(chordSymbol);
        if (x <= rect.left || x >= rect.right) continue;
        for (Chords* chord : chordSymbolChords.Of(chordSymbol))
            if (MeasureStaffPar(chord) == measureStaff && VoicePar(chord)->_number == voice) return chord;
    }
    return nullptr;
}

}  // namespace corvane
