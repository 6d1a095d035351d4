// The timed events of measures and of notes.
#include <tuple>

#include "model/Par.h"
#include "model/ScoreCheckRules.h"

namespace corvane {
namespace {

void CheckElements(ScoreProof& proof, Measure* measure) {
    std::tuple<int, int, int> before{0, 0, 0};
    for (const TimeElement* element : measureTimeElements.Of(measure)) {
        proof.Expect(element->_beat >= 1 && element->_clock >= 0 && element->_clock < kClocksPerBeat, element,
                     "no time of a measure is that");
        const std::tuple<int, int, int> place{element->_beat, element->_clock,
                                              RankOf(element->ClassNumber())};
        proof.Expect(before < place, element, "the times of the measure are not in order");
        before = place;
    }
}

template <class Element>
void CheckMarkUp(ScoreProof& proof, Element* element) {
    constexpr int16_t kind = Element::kClass == TimeOn::kClass ? NoteOn::kClass : NoteOff::kClass;
    int events = 0;
    for (const SoundEvent* event : markUpEvents.Of(element)) {
        ++events;
        proof.Expect(event->ClassNumber() == kind, event,
                     "a beginning at the time of an end, or the other way");
    }
    proof.Expect(events > 0, element, "nothing begins or ends at the time");
    proof.ExpectNumber(element->_refCount, events, "use count of a time");
}

void CheckTempo(ScoreProof& proof, Tempo* tempo) {
    if (tempo->_refCount <= 0) proof.ExpectNumber(tempo->_refCount, 1, "use count of a tempo");
}

void CheckEvent(ScoreProof& proof, SoundEvent* event) {
    const GenericNote* note = noteEvents.ParentOf(event);
    const Voice* voice = VoicePar(note);
    const DocStaff* docStaff = DocStaffPar(note);
    proof.Expect(event->_docStaff == docStaff, event, "the event names another part than its note's");
    const VoiceRecord* record = event->_voiceRecord;
    const bool own =
        docStaff && record >= docStaff->_voices && record < docStaff->_voices + DocStaff::kVoices;
    proof.Expect(own, event, "the event's voice is not one of its part");
    if (own)
        proof.Expect(record - docStaff->_voices + 1 == voice->_number, event, "the event names another voice",
                     Weight::Slight);
    for (const SoundEvent* other : noteEvents.Of(note))
        proof.Expect(other->_height == event->_height, event, "the events of a note have different heights",
                     Weight::Slight);
}

template <class Element>
void CheckMeasureOfEvents(ScoreProof& proof, Element* element) {
    CheckMarkUp(proof, element);
    const Measure* measure = measureTimeElements.ParentOf(element);
    for (const SoundEvent* event : markUpEvents.Of(element))
        proof.Expect(MeasurePar(noteEvents.ParentOf(event)) == measure, event,
                     "the event stands in another measure than its note");
}

}  // namespace

std::span<const ScoreRule> TimeRules() {
    static constexpr ScoreRule rules[] = {
        RuleFor<Measure, CheckElements>(10),
        RuleFor<Measure, CheckElements>(105),
        RuleFor<TimeOn, CheckMeasureOfEvents<TimeOn>>(),
        RuleFor<TimeOff, CheckMeasureOfEvents<TimeOff>>(),
        RuleFor<Tempo, CheckTempo>(),
        RuleFor<SoundEvent, CheckEvent>(NoteOn::kClass),
        RuleFor<SoundEvent, CheckEvent>(NoteOff::kClass),
    };
    return rules;
}

}  // namespace corvane
