#include "play/MIDIUtility.h"

#include <algorithm>
#include <utility>

#include "base/Rounding.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "play/MIDIGrace.h"
#include "play/MeasureTimeElements.h"

namespace corvane {
namespace {

enum class Ties : bool { Ignored, Heeded };

constexpr int kMostBeats = 32767;

// A duration as it counts in a measure.
struct Span {
    int beats, clocks;
};
Span SpanOf(double duration, int denominator) {
    const double beats = denominator * duration * 0.001;
    const int whole = std::min(Truncate(beats), kMostBeats);
    return {whole, std::min(Truncate((beats - whole) * kClocksPerBeat), kClocksPerBeat - 1)};
}

TimePlace Forward(TimePlace place, Span span) {
    const int clocks = place.clock + span.clocks;
    return {place.beat + span.beats + clocks / kClocksPerBeat, clocks % kClocksPerBeat};
}

TimePlace Backward(TimePlace place, Span span) {
    TimePlace back{place.beat - span.beats, place.clock - span.clocks};
    if (back.clock < 0) {
        back.clock += kClocksPerBeat;
        --back.beat;
    }
    return back;
}

Measure* MeasureOf(const GenericNote* note) {
    Measure* measure = MeasurePar(note);
    CORVANE_ASSERT(measure);
    return measure;
}

int EffectiveOf(const GenericNote* note) { return EffectiveDenominator(MeasureOf(note)->_den); }

void Place(GenericNote* note, int denominator, Ties ties) {
    CORVANE_ASSERT_AS(As<Note>(note), "dynamic_cast<Note*>((GenericNote*)noteCrd)");
    const TimePlace on = NotePosition(note);
    const bool heeded = ties == Ties::Heeded;
    if (!heeded || !TiedFromBefore(note)) MakeNoteOn(note, on);
    if (!heeded || !TiedToAfter(note))
        MakeNoteOff(note, Forward(on, SpanOf(Duration(ChordPar(note)), denominator)));
}

// Gives the event's place in the measure back.
void LeaveElement(SoundEvent* event) {
    MarkUp* markUp = markUpEvents.ParentOf(event);
    TimeElement* element = nullptr;
    if (As<NoteOn>(event))
        element = static_cast<TimeOn*>(markUp);
    else
        element = static_cast<TimeOff*>(markUp);
    Measure* measure = MeasurePar(element);
    markUpEvents.Remove(event);
    ReleaseTimeElement(measure, element);
}

void EnterElement(SoundEvent* event, Measure* measure, TimePlace place) {
    if (As<NoteOn>(event)) {
        TimeOn* timeOn = GetOrMakeTimeOn(measure, place.beat, place.clock);
        CORVANE_ASSERT(timeOn);
        markUpEvents.Add(timeOn, event);
    } else {
        TimeOff* timeOff = GetOrMakeTimeOff(measure, place.beat, place.clock);
        CORVANE_ASSERT(timeOff);
        markUpEvents.Add(timeOff, event);
    }
}

void Join(SoundEvent* event, GenericNote* note, TimePlace place) {
    DocStaff* docStaff = DocStaffPar(note);
    const Voice* voice = VoicePar(note);
    CORVANE_ASSERT(docStaff && voice);
    CORVANE_ASSERT_AS(voice->_number >= 1 && voice->_number <= DocStaff::kVoices, "voice");
    event->_docStaff = docStaff;
    event->_voiceRecord = &docStaff->_voices[voice->_number - 1];
    event->_height = SoundingHeight(note);
    noteEvents.Add(note, event);
    EnterElement(event, MeasureOf(note), place);
}

void ShiftBack(GenericNote* note, SoundEvent* event, Span span) {
    TimePlace place = Backward(TimePlaceOf(event), span);
    const bool isNote = As<Note>(note), isGrace = As<Grace>(note);
    CORVANE_ASSERT_AS(isNote || isGrace, "isNote");
    if (place.beat < 1) {
        if (isGrace) return DestroyEvent(event);
        place = {1, 0};
    }
    const int newBeat = place.beat;
    CORVANE_ASSERT(newBeat > 0);
    MoveEvent(event, place);
}

// Moves the events of all chords behind a symbol by its duration.
enum class Direction : bool { Forward, Back };
void ShiftBehind(const VoiceSymbol* symbol, Direction direction) {
    const Measure* measure = MeasurePar(symbol);
    CORVANE_ASSERT(measure);
    const Span span = SpanOf(Duration(symbol), EffectiveDenominator(measure->_den));
    for (VoiceSymbol* later = voiceSymbols.Next(symbol); later; later = voiceSymbols.Next(later)) {
        const Chords* chord = As<Chords>(later);
        if (!chord) continue;
        for (GenericNote* note : chordNotes.Of(chord))
            for (SoundEvent* event : noteEvents.Of(note)) {
                if (direction == Direction::Back)
                    ShiftBack(note, event, span);
                else
                    MoveEvent(event, Forward(TimePlaceOf(event), span));
            }
    }
}

// Makes a chord's events where it stands: the first note's end counts with the effective denominator.
void PlaceChord(Chords* chord) {
    bool first = true;
    for (GenericNote* note : chordNotes.Of(chord)) {
        if (first)
            Place(note, EffectiveOf(note), Ties::Heeded);
        else
            AddNoteEvents(note);
        first = false;
    }
}

using Velocities = std::vector<std::pair<GenericNote*, int16_t>>;

// Removes the events of a chord, noting the velocities that are not those of entered notes.
void ClearChord(const Chords* chord, Velocities& velocities) {
    for (GenericNote* note : chordNotes.Of(chord)) {
        if (const NoteOn* on = NoteOnOf(note); on && on->_velocity != kEnteredVelocity)
            velocities.emplace_back(note, on->_velocity);
        RemoveNoteEvents(note);
    }
}

void Restore(const Velocities& velocities) {
    for (const auto& [note, velocity] : velocities)
        if (NoteOn* on = NoteOnOf(note)) on->_velocity = velocity;
}

}  // namespace

TimePlace TimePlaceOf(const TimeElement* element) { return {element->_beat, element->_clock}; }

TimePlace TimePlaceOf(const SoundEvent* event) {
    const MarkUp* markUp = markUpEvents.ParentOf(event);
    if (As<NoteOn>(event)) return TimePlaceOf(static_cast<const TimeOn*>(markUp));
    return TimePlaceOf(static_cast<const TimeOff*>(markUp));
}

TimePlace NotePosition(const GenericNote* note) {
    const Chords* chord = ChordPar(note);
    CORVANE_ASSERT(chord);
    return NotePosition(chord);
}

TimePlace NotePosition(const VoiceSymbol* symbol) {
    const Voice* voice = VoicePar(symbol);
    const Measure* measure = MeasurePar(voice);
    CORVANE_ASSERT(voice);
    CORVANE_ASSERT(measure);
    double sum = 0;
    for (const VoiceSymbol* before : voiceSymbols.Of(voice)) {
        if (before == symbol) break;
        if (!IsGrace(before)) sum += Duration(before);
    }
    const int denominator = EffectiveDenominator(measure->_den);
    return {std::min(Truncate(denominator * sum * 0.001), kMostBeats) + 1,
            Truncate(denominator * sum * 32.0) % kClocksPerBeat};
}

NoteOn* NoteOnOf(const GenericNote* note) {
    for (SoundEvent* event : noteEvents.Of(note))
        if (auto* on = As<NoteOn>(event)) return on;
    return nullptr;
}

NoteOff* NoteOffOf(const GenericNote* note) {
    for (SoundEvent* event : noteEvents.Of(note))
        if (auto* off = As<NoteOff>(event)) return off;
    return nullptr;
}

NoteOn* MakeNoteOn(GenericNote* note, TimePlace place) {
    NoteOn* on = Make<NoteOn>();
    on->_velocity = kEnteredVelocity;
    Join(on, note, place);
    return on;
}

NoteOff* MakeNoteOff(GenericNote* note, TimePlace place) {
    NoteOff* off = Make<NoteOff>();
    Join(off, note, place);
    return off;
}

void MoveEvent(SoundEvent* event, TimePlace place) {
    Measure* measure = MeasureOf(noteEvents.ParentOf(event));
    LeaveElement(event);
    EnterElement(event, measure, place);
}

void DestroyEvent(SoundEvent* event) {
    LeaveElement(event);
    noteEvents.Remove(event);
    event->_voiceRecord = nullptr;
    event->_docStaff = nullptr;
    if (auto* on = As<NoteOn>(event))
        Release(on);
    else
        Release(As<NoteOff>(event));
}

void AddNoteEvents(GenericNote* note) { Place(note, MeasureOf(note)->_den, Ties::Heeded); }
void AddNoteEventsForced(GenericNote* note) { Place(note, MeasureOf(note)->_den, Ties::Ignored); }

void AddChordEventsShifting(GenericNote* note) {
    ShiftBehind(ChordPar(note), Direction::Forward);
    Place(note, EffectiveOf(note), Ties::Heeded);
}

void AddChordEventsShiftingForced(GenericNote* note) {
    ShiftBehind(ChordPar(note), Direction::Forward);
    Place(note, EffectiveOf(note), Ties::Ignored);
}

void AddChordEvents(Chords* chord) {
    CORVANE_ASSERT(chord);
    ShiftBehind(chord, Direction::Forward);
    PlaceChord(chord);
    RenewAroundGraceNotes(VoicePar(chord));
}

void RemoveNoteEvents(GenericNote* note) {
    while (SoundEvent* event = noteEvents.Last(note)) DestroyEvent(event);
}

void RemoveNoteEventsShifting(GenericNote* note) {
    RemoveNoteEvents(note);
    ShiftBehind(ChordPar(note), Direction::Back);
}

void RemoveChordEvents(Chords* chord) {
    CORVANE_ASSERT(chord);
    GenericNote* lastNote = chordNotes.Last(chord);
    CORVANE_ASSERT(lastNote);
    for (GenericNote* note : chordNotes.Of(chord))
        if (note != lastNote) RemoveNoteEvents(note);
    RemoveNoteEventsShifting(lastNote);
}

void InsertVoiceSymbolEvents(VoiceSymbol* symbol) {
    if (auto* chord = As<Chords>(symbol)) return AddChordEvents(chord);
    ShiftBehind(symbol, Direction::Forward);
    RenewAroundGraceNotes(VoicePar(symbol));
}

void RemoveVoiceSymbolEvents(VoiceSymbol* symbol) {
    if (auto* chord = As<Chords>(symbol))
        RemoveChordEvents(chord);
    else
        ShiftBehind(symbol, Direction::Back);
}

void RenewChordEvents(Chords* chord) {
    Velocities velocities;
    ClearChord(chord, velocities);
    PlaceChord(chord);
    Restore(velocities);
}

void RebuildVoiceEvents(Voice* voice) {
    Velocities velocities;
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
        if (const auto* chord = As<Chords>(symbol)) ClearChord(chord, velocities);
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice))
        if (auto* chord = As<Chords>(symbol); chord && !IsGrace(chord)) PlaceChord(chord);
    AddAllGraceEvents(voice);
    Restore(velocities);
}

void RenewAroundGraceNotes(Voice* voice) {
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
        if (IsGrace(symbol)) return RebuildVoiceEvents(voice);
}

void UpdateNoteHeight(GenericNote* note) {
    const int height = SoundingHeight(note);
    for (SoundEvent* event : noteEvents.Of(note))
        if (event->_height != height) event->_height = height;
}

void RenewHeightsByClefs(const MeasureStaff* crossing) {
    bool hasClefs = false;
    for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
        hasClefs = hasClefs || As<MovingClaf>(symbol);
    if (!hasClefs) return;
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
            if (const auto* chord = As<Chords>(symbol))
                for (GenericNote* note : chordNotes.Of(chord)) UpdateNoteHeight(note);
}

void RenewHeightsByClefs(const Measure* measure) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure)) RenewHeightsByClefs(crossing);
}

}  // namespace corvane
