#include "model/NoteOperations.h"

#include <cmath>
#include <cstdlib>
#include <vector>

#include "model/Par.h"

namespace corvane {
namespace {

// The side across the stem.
Side Opposite(Side side) { return side == Side::Left ? Side::Right : Side::Left; }

// A head directly beside the one before it on the same staff has to stand across the stem.
bool IsSecond(const GenericNote* a, const GenericNote* b) {
    return std::abs(a->_line - b->_line) < 2 && StaffPar(a) == StaffPar(b);
}

// By their staves where these differ, else by their lines.
bool StandsBelow(const GenericNote* note, const GenericNote* other) {
    const Staff *its = StaffPar(note), *others = StaffPar(other);
    if (its && others && its != others) return its->_top > others->_top;
    return note->_line < other->_line;
}

}  // namespace

bool IsNoteValue(uint8_t value) {
    return value == kDoubleWhole || (value && value <= 128 && (value & (value - 1)) == 0);
}

uint8_t ValueOf(const VoiceSymbol* symbol) {
    if (const auto* pause = As<Pause>(symbol)) return pause->_value;
    const ChordSymbol* chordSymbol = ChordSymbolPar(As<Chords>(symbol));
    CORVANE_ASSERT_AS(chordSymbol, "chSym");
    return chordSymbol->_value;
}

double BaseFraction(uint8_t value) {
    CORVANE_ASSERT_AS(IsNoteValue(value), "0");
    return value == kDoubleWhole ? 1.0 : 1.0 / value;
}

double SpacingFraction(uint8_t value) {
    CORVANE_ASSERT_AS(IsNoteValue(value), "0");
    return value == kDoubleWhole ? 2.0 : 1.0 / value;
}

Dot* DotOf(const VoiceSymbol* symbol) {
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
        if (Dot* dot = As<Dot>(attribute)) return dot;
    return nullptr;
}

int DotCount(const VoiceSymbol* symbol) {
    const Dot* dot = DotOf(symbol);
    return dot ? dot->_count : 0;
}

double TupletRatio(const VoiceSymbol* symbol) {
    double ratio = 1000.0;
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
        if (const MarkIrreg* mark = As<MarkIrreg>(attribute)) {
            const Irregular* irregular = irregularMarks.ParentOf(mark);
            if (irregular && irregular->_count) ratio = ratio * irregular->_inTimeOf / irregular->_count;
        }
    return ratio;
}

double Duration(const VoiceSymbol* symbol) {
    const int dots = DotCount(symbol);
    const double factor = dots == 0 ? 1.0 : 2.0 - 1.0 / (1 << dots);
    return BaseFraction(ValueOf(symbol)) * factor * TupletRatio(symbol);
}

double OnsetOf(const VoiceSymbol* symbol) {
    double onset = 0.0;
    for (const VoiceSymbol* before : voiceSymbols.Of(VoicePar(symbol))) {
        if (before == symbol) break;
        if (!IsGrace(before)) onset += Duration(before);
    }
    return onset;
}

int EffectiveDenominator(int denominator) {
    if (denominator < 1) return 1;
    const double log = std::log2(denominator);
    return log - std::trunc(log) < 0.01 ? denominator : 1 << static_cast<int>(log);
}

GenericNote* NoteOuter(const Stem* stem) {
    return IsUp(stem->_direction) ? stemNotes.First(stem) : stemNotes.Last(stem);
}

GenericNote* NoteInner(const Stem* stem) {
    return IsUp(stem->_direction) ? stemNotes.Last(stem) : stemNotes.First(stem);
}

bool IsMultiStaff(const Stem* stem) {
    const GenericNote* first = stemNotes.First(stem);
    if (!first) return false;
    const Staff* staff = StaffPar(first);
    for (const GenericNote* note : stemNotes.Of(stem))
        if (StaffPar(note) != staff) return true;
    return false;
}

void SetDirection(Stem* stem, StemDirection direction) {
    stem->_direction = direction;
    const bool up = IsUp(direction);
    const Side normal = up ? Side::Left : Side::Right;
    GenericNote* before = nullptr;
    // From the head at the closed end to the one at the free end.
    if (up) {
        std::vector<GenericNote*> heads;
        for (GenericNote* note : stemNotes.Of(stem)) heads.push_back(note);
        for (size_t i = heads.size(); i-- > 0; before = heads[i])
            heads[i]->_side = before && IsSecond(heads[i], before) ? Opposite(before->_side) : normal;
        return;
    }
    for (GenericNote* note : stemNotes.Of(stem)) {
        note->_side = before && IsSecond(note, before) ? Opposite(before->_side) : normal;
        before = note;
    }
}

void AddNoteToStem(Stem* stem, GenericNote* note) {
    GenericNote* behind = nullptr;
    for (GenericNote* other : stemNotes.Of(stem)) {
        if (StandsBelow(other, note)) break;
        behind = other;
    }
    stemNotes.Insert(stem, note, behind);
}

BeamMarker* MarkerOf(const BeamSymbol* symbol) {
    for (BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(symbol))
        if (BeamMarker* marker = As<BeamMarker>(attribute)) return marker;
    return nullptr;
}

Beam* BeamOf(const BeamSymbol* symbol) {
    const BeamMarker* marker = MarkerOf(symbol);
    return marker ? beamMarkers.ParentOf(marker) : nullptr;
}

Flag* FlagOf(const BeamSymbol* symbol) {
    for (BeamSymbolAttribute* attribute : beamSymbolAttributes.Of(symbol))
        if (Flag* flag = As<Flag>(attribute)) return flag;
    return nullptr;
}

bool IsGrace(const VoiceSymbol* symbol) { return As<GraceChord>(symbol) != nullptr; }
bool IsGrace(const Stem* stem) {
    const GenericNote* note = stemNotes.First(stem);
    return note && As<Grace>(note);
}

Stem* StemOf(const Chords* chord) {
    if (const GenericNote* note = chordNotes.First(chord))
        if (Stem* stem = stemNotes.ParentOf(note)) return stem;
    const ChordSymbol* chordSymbol = ChordSymbolPar(chord);
    return chordSymbol ? chordSymbolStems.First(chordSymbol) : nullptr;
}

Accident* AccidentOf(const GenericNote* note) {
    for (NoteAttribute* attribute : noteAttributes.Of(note))
        if (Accident* accident = As<Accident>(attribute)) return accident;
    return nullptr;
}

int32_t XOf(const VoiceSymbol* symbol) {
    if (const auto* pause = As<Pause>(symbol)) return pause->_x;
    const Stem* stem = StemOf(As<Chords>(symbol));
    CORVANE_ASSERT_AS(stem, "stem");
    return stem->_x;
}

Voice* FindVoice(const MeasureStaff* measureStaff, int number) {
    for (Voice* voice : measureStaffVoices.Of(measureStaff))
        if (voice->_number == number) return voice;
    return nullptr;
}

}  // namespace corvane
