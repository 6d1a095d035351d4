#include <algorithm>

#include "base/Rounding.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Ties.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// Whether `a` is played before `b`.
bool IsBefore(const GenericNote* a, const GenericNote* b) {
    const Measure *measure1 = MeasurePar(a), *measure2 = MeasurePar(b);
    CORVANE_ASSERT(measure1 && measure2);
    if (measure1 != measure2) return measure1->_number < measure2->_number;
    const Chords *ch1 = ChordPar(a), *ch2 = ChordPar(b);
    CORVANE_ASSERT(ch1 && ch2);
    if (VoicePar(a) != VoicePar(b)) return NotePosition(ch1) < NotePosition(ch2);
    for (const VoiceSymbol* s = voiceSymbols.Next(ch1); s; s = voiceSymbols.Next(s))
        if (s == ch2) return true;
    return false;
}

enum class End : bool { Before, After };
GenericNote* Tied(const GenericNote* note, End end) {
    for (const NoteAttribute* attribute : noteAttributes.Of(note)) {
        const auto* mark = As<MarkValue>(attribute);
        GenericNote* partner = mark ? TiePartnerOf(mark) : nullptr;
        if (partner && !MeasurePar(partner)) continue;  // it has been cut out
        if (partner && (end == End::Before ? IsBefore(partner, note) : IsBefore(note, partner)))
            return partner;
    }
    return nullptr;
}

// Where a note ends that was parted from its tie: on a grid of 32 clocks.
TimePlace CoarseEnd(const GenericNote* note) {
    const double span = EffectiveDenominator(MeasurePar(note)->_den) * Duration(ChordPar(note)) * 0.001;
    const int beats = Truncate(span);
    const TimePlace on = NotePosition(note);
    const int clocks = on.clock + Truncate((span - beats) * 1000) * 32;
    return {on.beat + beats + clocks / kClocksPerBeat, clocks % kClocksPerBeat};
}

}  // namespace

GenericNote* TiedFromBefore(const GenericNote* note) { return Tied(note, End::Before); }
GenericNote* TiedToAfter(const GenericNote* note) { return Tied(note, End::After); }

void TieNotes(GenericNote* first, GenericNote* second) {
    CORVANE_ASSERT_AS(first && second, "firstNote && secondNote");
    const int height1 = SoundingHeight(first), height2 = SoundingHeight(second);
    CORVANE_ASSERT(height1 == height2);
    if (NoteOff* off = NoteOffOf(first)) DestroyEvent(off);
    if (NoteOn* on = NoteOnOf(second)) DestroyEvent(on);
}

void UntieNotes(GenericNote* note1, GenericNote* note2) {
    CORVANE_ASSERT_AS(note1 && note2, "firstNote && secondNote");
    if (StandsBefore(note2, note1)) std::swap(note1, note2);
    if (NoteOffOf(note1) || NoteOnOf(note2)) return;
    // Over the barline notes of several voices may meet in one note: another tie may still hold either end.
    if (!TiedToAfter(note1)) MakeNoteOff(note1, CoarseEnd(note1));
    if (!TiedFromBefore(note2)) MakeNoteOn(note2, NotePosition(note2));
    UpdateNoteHeight(note2);
    // What gave time to grace notes does so again.
    for (const GenericNote* note : {note1, note2}) RenewAroundGraceNotes(VoicePar(note));
}

}  // namespace corvane
