// Joining and parting the columns of several staves, and the beams over them.
#include "layout/CrossBeams.h"

#include <cmath>

#include "base/Assert.h"
#include "layout/Engraving.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

void MoveHeads(const Chords* chord, Stem* to) {
    for (GenericNote* note : chordNotes.Of(chord)) {
        stemNotes.Remove(note);
        AddNoteToStem(to, note);
    }
}

// All that stands in a column goes over into another one.
void Absorb(ChordSymbol* column, Stem* into) {
    ChordSymbol* target = ChordSymbolPar(into);
    while (Chords* chord = chordSymbolChords.First(column)) {
        MoveHeads(chord, into);
        chordSymbolChords.Remove(chord);
        chordSymbolChords.Add(target, chord);
    }
    while (Stem* stem = chordSymbolStems.First(column)) {
        CORVANE_ASSERT_AS(!BeamOf(stem), "!getBeam(beamSymbol)");
        RemoveFlag(stem);
        chordSymbolStems.Remove(stem);
        Release(stem);
    }
    measureSymbols.Remove(column);
    Release(column);
}

// A column of its own for chords of one staff, with a stem as the old one.
void PartFrom(ChordSymbol* column, const std::vector<Chords*>& chords) {
    const Stem* old = chordSymbolStems.First(column);
    auto* own = Make<ChordSymbol>();
    own->_value = column->_value;
    measureSymbols.Add(MeasurePar(static_cast<const MeasureSymbol*>(column)), own);
    auto* stem = Make<Stem>();
    chordSymbolStems.Add(own, stem);
    stem->_slant = kVerticalStem;
    stem->_x = old->_x;
    stem->_direction = old->_direction;
    for (Chords* chord : chords) {
        chordSymbolChords.Remove(chord);
        chordSymbolChords.Add(own, chord);
        MoveHeads(chord, stem);
    }
    RestemChord(chords.front());
    AttachFlag(stem, own->_value);
}

std::vector<Chords*> ChordsOnOtherStaffs(const ChordSymbol* column) {
    std::vector<Chords*> chords;
    const DocStaff* first = DocStaffPar(chordSymbolChords.First(column));
    const DocStaff* other = nullptr;
    for (Chords* chord : chordSymbolChords.Of(column)) {
        const DocStaff* its = DocStaffPar(chord);
        if (its == first || (other && its != other)) continue;
        other = its;
        chords.push_back(chord);
    }
    return chords;
}

bool IsParted(const ChordSymbol* column) {
    constexpr double kSameTime = 0.001;
    const Chords* first = chordSymbolChords.First(column);
    if (first == chordSymbolChords.Last(column)) return false;
    const double onset = OnsetOf(first);
    for (const Chords* chord : chordSymbolChords.Of(column))
        if (std::fabs(OnsetOf(chord) - onset) > kSameTime) return true;
    return false;
}

}  // namespace

Stem* JoinColumns(const std::vector<Chords*>& chords) {
    Stem* stem = StemOf(chords.front());
    for (const Chords* chord : chords)
        if (ChordSymbol* column = ChordSymbolPar(chord); column != ChordSymbolPar(stem)) Absorb(column, stem);
    Say(stem, kSaidDirection | kSaidLength, false);
    RestemChord(chords.front());
    return stem;
}

void SplitCrossChord(ChordSymbol* column) {
    for (auto others = ChordsOnOtherStaffs(column); !others.empty(); others = ChordsOnOtherStaffs(column))
        PartFrom(column, others);
    Chords* chord = chordSymbolChords.First(column);
    Stem* stem = StemOf(chord);
    Say(stem, kSaidLength, false);  // it counted from another place
    RestemChord(chord);
    if (!FlagOf(stem)) AttachFlag(stem, column->_value);
}

void SplitPartedColumns(const Voice* voice) {
    for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        const auto* chord = As<Chords>(symbol);
        ChordSymbol* column = chord ? ChordSymbolPar(chord) : nullptr;
        if (!column || !IsParted(column)) continue;
        Beam* beam = BeamOf(StemOf(chord));
        if (beam)
            DissolveBeam(beam, nullptr);  // its columns go with it
        else
            SplitCrossChord(column);
    }
}

CrossBeam* BuildCrossBeam(const std::vector<Stem*>& stems) {
    auto* beam = Make<CrossBeam>();
    beam->_direction = 'U';
    measureSymbols.Add(MeasurePar(stems.front()), beam);
    for (Stem* stem : stems) {
        CORVANE_ASSERT_AS(!BeamOf(stem), "!getBeam(beamSymbol)");
        auto* marker = Make<BeamMarker>();
        marker->_leftValue = ChordSymbolPar(stem)->_value;
        marker->_rightValue = kNotCut;
        marker->_level = static_cast<uint8_t>(stem == stems.back() ? kNotConnected : kFullConnection);
        RemoveFlag(stem);
        Say(stem, kSaidDirection | kSaidAlone | kSaidLength, false);
        beamSymbolAttributes.Add(stem, marker);
        beamMarkers.Add(beam, marker);
    }
    RefitCrossBeam(beam);
    return beam;
}

void RefitCrossBeams(const System* system) {
    for (const Measure* measure : systemMeasures.Of(system))
        for (MeasureSymbol* symbol : measureSymbols.Of(measure))
            if (auto* beam = As<CrossBeam>(symbol)) RefitCrossBeam(beam);
}

}  // namespace corvane
