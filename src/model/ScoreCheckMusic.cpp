// Chords, rests, stems, heads, beams and spanners.
#include <limits>

#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/ScoreCheckRules.h"

namespace corvane {
namespace {

void CheckChords(ScoreProof& proof, Chords* chord) {
    proof.Expect(!chordNotes.IsEmpty(chord), chord, "the chord has no note");
    proof.Expect(MeasurePar(chordSymbolChords.ParentOf(chord)) == MeasurePar(chord), chord,
                 "the chord and its column stand in different measures");
    for (const GenericNote* note : chordNotes.Of(chord))
        proof.Expect(note->ClassNumber() != Grace::kClass || chord->ClassNumber() == GraceChord::kClass, note,
                     "a grace note in a chord that is none");
}

void CheckChordSymbol(ScoreProof& proof, ChordSymbol* column) {
    proof.Expect(IsNoteValue(column->_value), column, "no note has that value");
    proof.Expect(!chordSymbolStems.IsEmpty(column), column, "the column has no stem");
    proof.Expect(!chordSymbolChords.IsEmpty(column), column, "the column has no chord");
}

void CheckPause(ScoreProof& proof, Pause* rest) {
    proof.Expect(IsNoteValue(rest->_value), rest, "no rest has that value");
}

void CheckStem(ScoreProof& proof, Stem* stem) {
    proof.Expect(!stemNotes.IsEmpty(stem), stem, "the stem has no head");
    proof.Expect(stem->_direction.Get() <= StemDirection::HiddenUp, stem, "no stem has that direction");
    const GenericNote* above = nullptr;
    for (const GenericNote* note : stemNotes.Of(stem)) {
        // Heads on different staves have no common lines.
        if (above && MeasureStaffPar(above) == MeasureStaffPar(note))
            proof.Expect(above->_line >= note->_line, note, "the heads do not stand from the highest down",
                         Weight::Slight);
        above = note;
    }
}

void CheckNote(ScoreProof& proof, GenericNote* note) {
    const Stem* stem = stemNotes.ParentOf(note);
    const Chords* chord = chordNotes.ParentOf(note);
    proof.Expect(chordSymbolStems.ParentOf(stem) == chordSymbolChords.ParentOf(chord), note,
                 "the note's stem and chord belong to different columns");
    proof.Expect(note->_side.Get() <= Side::Centre, note, "no head has that side");
    proof.Expect(note->_alteration.Get() <= Alteration::NaturalDown, note, "no note has that alteration");
    proof.Expect(note->_symbol.Get() != nullptr, note, "the head has no symbol");
    for (const uint16_t kind : {NoteOn::kClass, NoteOff::kClass}) {
        int events = 0;
        for (const SoundEvent* event : noteEvents.Of(note)) events += event->ClassNumber() == kind;
        proof.Expect(events <= 1, note, "the note begins or ends more than once");
    }
}

// Durations are worked out of these.
void CheckDot(ScoreProof& proof, Dot* dot) {
    constexpr int kMostDots = 8;
    proof.Expect(dot->_count >= 0 && dot->_count <= kMostDots, dot, "no note has so many dots");
}

void CheckIrregular(ScoreProof& proof, Irregular* tuplet) {
    proof.Expect(tuplet->_count >= 0 && tuplet->_inTimeOf >= 0, tuplet, "no tuplet has that figure");
}

void CheckTie(ScoreProof& proof, TieValue* tie) {
    proof.Expect(tieMarks.Count(tie) == 2, tie, "the tie has not two ends");
}

template <class Spanner, const auto& marks>
void CheckSpanner(ScoreProof& proof, Spanner* spanner) {
    proof.Expect(marks.First(spanner) != marks.Last(spanner), spanner, "the spanner has not two ends", Weight::Slight);
}

// A slur may name no events, and is not drawn then.
void CheckSlur(ScoreProof& proof, Slur* slur) {
    CheckSpanner<Slur, slurMarks>(proof, slur);
    const auto isIn = [](const void* event, const MarkSlur* mark) {
        return !event || (VoiceSymbol::IsHeir(ClassNumberOf(event)) &&
                          MeasureStaffPar(static_cast<const VoiceSymbol*>(event)) == staffSymbols.ParentOf(mark));
    };
    proof.Expect(isIn(slur->_first.Get(), slurMarks.First(slur)) && isIn(slur->_last.Get(), slurMarks.Last(slur)),
                 slur, "the slur's ends are no events where its marks hang", Weight::Slight);
}

void CheckVoice(ScoreProof& proof, Voice* voice) {
    int32_t before = std::numeric_limits<int32_t>::min();
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        const Stem* stem =
            symbol->ClassNumber() == Pause::kClass
                ? nullptr
                : chordSymbolStems.First(chordSymbolChords.ParentOf(static_cast<const Chords*>(symbol)));
        if (!stem && symbol->ClassNumber() != Pause::kClass) continue;  // told of the column
        const int32_t x = stem ? stem->_x : static_cast<const Pause*>(symbol)->_x;
        proof.Expect(x >= before, symbol, "the events of the voice do not stand from left to right",
                     Weight::Slight);
        before = x;
    }
}

constexpr ScoreRule kRules[] = {
    RuleFor<Voice, CheckVoice>(),
    RuleFor<Chords, CheckChords>(Chords::kClass),
    RuleFor<Chords, CheckChords>(GraceChord::kClass),
    RuleFor<ChordSymbol, CheckChordSymbol>(),
    RuleFor<Pause, CheckPause>(),
    RuleFor<Stem, CheckStem>(),
    RuleFor<GenericNote, CheckNote>(Note::kClass),
    RuleFor<GenericNote, CheckNote>(Grace::kClass),
    RuleFor<TieValue, CheckTie>(),
    RuleFor<Dot, CheckDot>(),
    RuleFor<Irregular, CheckIrregular>(),
    RuleFor<Slur, CheckSlur>(),
    RuleFor<Hairpin, CheckSpanner<Hairpin, hairpinMarks>>(),
    RuleFor<Ottava, CheckSpanner<Ottava, ottavaMarks>>(),
    RuleFor<Trillo, CheckSpanner<Trillo, trilloMarks>>(),
    RuleFor<Pedale, CheckSpanner<Pedale, pedaleMarks>>(),
};

}  // namespace

std::span<const ScoreRule> MusicRules() { return kRules; }

}  // namespace corvane
