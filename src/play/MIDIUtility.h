// Keeps the sound events of a voice in step with its notation. Who places a symbol adds its events
// afterwards, who takes one away removes them before. Nothing here is undone by itself: the callers' commands
// hold it.
//
// Spans: beats and clocks of a duration are cut off towards zero. "Shifting" moves the events of all later
// symbols of the same voice, in the same measure; grace chords have no duration for other symbols.
#pragma once

#include <cstdint>
#include <vector>

#include "model/Relations.h"

namespace corvane {

inline constexpr int16_t kEnteredVelocity = 64;

struct TimePlace {
    int beat = 1;   // from 1; may lie beyond the measure's meter
    int clock = 0;  // 0 to 31999
    friend bool operator==(const TimePlace&, const TimePlace&) = default;
    friend auto operator<=>(const TimePlace&, const TimePlace&) = default;
};
TimePlace TimePlaceOf(const TimeElement* element);

// Where a note or an event starts by the durations before it in its voice.
TimePlace NotePosition(const GenericNote* note);
TimePlace NotePosition(const VoiceSymbol* symbol);

// NoteOn and NoteOff of one Note, at its position and its end; a tie from before spares the NoteOn, one to
// after the NoteOff. The Forced kinds ignore ties.
void AddNoteEvents(GenericNote* note);
void AddNoteEventsForced(GenericNote* note);
// The same for the note that brings its chord's duration into the voice: later symbols move forward first.
void AddChordEventsShifting(GenericNote* note);
void AddChordEventsShiftingForced(GenericNote* note);
// All notes of a chord: the first brings the duration.
void AddChordEvents(Chords* chord);

void RemoveNoteEvents(GenericNote* note);
// Later symbols move back. Below the first beat a Note's event stays at beat 1, clock 0 and a Grace's goes.
void RemoveNoteEventsShifting(GenericNote* note);
// All notes of a chord: the last takes the duration with it.
void RemoveChordEvents(Chords* chord);

// An event of any kind that is no grace chord (MIDIGrace.h); a rest only shifts. Heights are those of the
// notation. What grace notes take is worked out anew when a symbol came; its owner does so when it has gone.
void InsertVoiceSymbolEvents(VoiceSymbol* symbol);
void RemoveVoiceSymbolEvents(VoiceSymbol* symbol);

// Removes all events of a voice and makes them from the notation, grace groups included; velocities are kept.
void RebuildVoiceEvents(Voice* voice);
// The same where the voice has grace notes: whom they take their time from may be another than before. After
// symbols were taken away.
void RenewAroundGraceNotes(Voice* voice);
// Removes and makes the events of one chord without a shift, keeping velocities.
void RenewChordEvents(Chords* chord);

// Moves one event of a note to another place of its measure.
void MoveEvent(SoundEvent* event, TimePlace place);
// Takes one event away from its note and its place, and destroys it.
void DestroyEvent(SoundEvent* event);
// The event of a note; null if a tie spares it.
NoteOn* NoteOnOf(const GenericNote* note);
NoteOff* NoteOffOf(const GenericNote* note);
// Where an event falls.
TimePlace TimePlaceOf(const SoundEvent* event);
// Adds a NoteOn or NoteOff of a note that has none, with the note's height.
NoteOn* MakeNoteOn(GenericNote* note, TimePlace place);
NoteOff* MakeNoteOff(GenericNote* note, TimePlace place);

// Stores the sounding height of a note in its events.
void UpdateNoteHeight(GenericNote* note);
// The same for all notes of a crossing that has clefs within, after events moved: one may stand on the other
// side of a clef. Writes only what has changed.
void RenewHeightsByClefs(const MeasureStaff* crossing);
void RenewHeightsByClefs(const Measure* measure);

// The note at the other end of a tie that comes to this note, or leaves it; null if there is none.
GenericNote* TiedFromBefore(const GenericNote* note);
GenericNote* TiedToAfter(const GenericNote* note);
// Takes the first's NoteOff and the second's NoteOn. Both sound at the same height.
void TieNotes(GenericNote* first, GenericNote* second);
// Puts them back but where another tie holds, the notes in either order; nothing where either is still there.
void UntieNotes(GenericNote* note1, GenericNote* note2);

// A Tempo at the mark's beat, clock 0, the two joined.
Tempo* InsertTempoAtBeat(Measure* measure, Time* mark);
// Gives the mark's Tempo back and parts the two; for a mark without one nothing.
void RemoveTempo(Time* mark);
Tempo* TempoOf(const Time* mark);

// Velocities of notes in score order, rising evenly in time from `start` to `end` (0 to 127) over their
// measures. A note without a NoteOn is left alone.
void SetVelocities(const std::vector<GenericNote*>& notes, int start, int end);

}  // namespace corvane
