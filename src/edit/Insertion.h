// What the pencil does with an item: notes, rests, dots, accidentals. Each handler runs inside an EditStep
// and refuses silently; points are absolute page units.
#pragma once

#include <string_view>

#include "edit/WindowTarn.h"

namespace corvane {

// What a palette item enters, read from its descriptor ("_Ottavo_", "_Pausa8_", with "_Grace_" behind it).
struct NoteKind {
    uint8_t value = 0;     // 1 to 128 or 11
    std::string headName;  // "Quarto", "GraceQuarto"
    bool grace = false;
};
// An unknown descriptor is an assertion ("descriptor").
NoteKind NoteKindOf(std::string_view descriptor);
struct RestKind {
    uint8_t value = 0;
    const char* name = nullptr;  // "Pausa4"
};
RestKind RestKindOf(std::string_view descriptor);
RestKind RestKindOf(uint8_t value);

// Where a press asks for an event.
struct InsertionPlace {
    WindowTarn& window;
    EditStep& step;
    System* system;
    Point point;
    int voice;       // 1 to 8
    bool allVoices;  // the person edits all voices
};

void NoteInsertion(const InsertionPlace& place, std::string_view descriptor);
void PauseInsertion(const InsertionPlace& place, std::string_view descriptor);
// Of the event and, for a chord, of what follows from its length; 0 to 3. Within the caller's step.
void ChangeDots(WindowTarn& window, VoiceSymbol* symbol, int count);
// All dots of an event, and of the other voices that share its heads. Within the caller's step.
void DropDots(WindowTarn& window, VoiceSymbol* event);
void DotInsertion(const InsertionPlace& place, int count);
// Takes a note's accidental away: it is read and sounds as what is in force there, a tied one as before.
// Within the caller's step.
void DropAccidental(WindowTarn& window, GenericNote* note);
void AccInsertion(const InsertionPlace& place, std::string_view descriptor);
// A clef for what stands right of the point: left of the notes of a system's first measure the system's own,
// left of those of a later measure before its barline, else within the measure.
void ClafInsertion(const InsertionPlace& place, std::string_view descriptor);
// The tie of the note under the point to the one behind it, which goes again where it stands already.
void TieInsertion(const InsertionPlace& place);
void SimboliVariInsertion(const InsertionPlace& place, std::string_view descriptor);
// Before the chord under the press; one that is there goes.
void ArpeggioInsertion(const InsertionPlace& place, std::string_view descriptor);
// A sign of a class on the note under the point: instead of the one of its class, gone where it is the same.
void NoteSignInsertion(const InsertionPlace& place, int16_t classNumber, std::string_view descriptor);
// A sign of a class on a note; no such sign any more. The caller keeps the note off the sheet.
void AddNoteSign(GenericNote* note, int16_t classNumber, std::string_view descriptor);
void ClearNoteSign(WindowTarn& window, const GenericNote* note, int16_t classNumber);
void TremoloInsertion(const InsertionPlace& place, std::string_view descriptor);
// The name is the symbol's: "D" and letters.
void DinamicheInsertion(const InsertionPlace& place, std::string_view name);

// The note, or the column or rest, under a press; null or an empty patch for none.
GenericNote* NoteUnder(WindowTarn& window, Point p);
// The same for a handler that needs one: without a note the person is told so.
GenericNote* NoteFor(const InsertionPlace& place);
DrawPatch EventUnder(WindowTarn& window, Point p);
// For what belongs to a chord: the note under the press, else one of the chord whose stem is.
GenericNote* ChordNoteFor(const InsertionPlace& place);

// A chord with one note, linked in voice, column and stem, its flag attached; x in per mille decides its
// place among the voice's events. Makes no timed events and does not space.
GenericNote* InsertNewChord(Voice* voice, int32_t x, int line, const NoteKind& kind);
// A further head on a stem of the chord.
GenericNote* AddNoteToChord(Chords* chord, int line, const NoteKind& kind);
Pause* InsertNewPause(Voice* voice, int32_t x, const RestKind& kind);
// The event of a voice behind which a new one at x per mille stands; null for the front.
VoiceSymbol* EventBefore(const Voice* voice, int32_t x);
// A rest directly behind an event; null for the front of the voice.
Pause* InsertPauseBehind(Voice* voice, VoiceSymbol* before, int32_t x, const RestKind& kind);
// The voice of that number, made where there is none.
Voice* FindOrMakeVoice(MeasureStaff* measureStaff, int number);

// The chord of a voice in a crossing whose stem a press falls on; null for none.
Chords* ChordAt(const MeasureStaff* measureStaff, int32_t x, int voice);

// The work after an inserted note, in its fixed order. `joined`: the note came to a chord that was there;
// `beamed`: its stem stands under a beam.
void FollowUp(GenericNote* note, bool joined, bool beamed);

}  // namespace corvane
