#include "edit/Respelling.h"

#include <algorithm>
#include <set>

#include "edit/MeasureRange.h"
#include "edit/SystemRedraw.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/NotePitches.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

int LineOf(const GenericNote* note, const Spelling& spelling) {
    return LineOfStep(ClefCodeOf(note), spelling.step);
}

bool IsBracketed(const Accident* accident) {
    return accident && SymbolName(accident->_symbol).ends_with('(');
}

// Puts heads whose lines have changed into their stem anew, the highest first.
void SortHeads(Stem* stem) {
    std::vector<GenericNote*> heads;
    for (GenericNote* note : stemNotes.Of(stem)) heads.push_back(note);
    const auto isHigher = [](const GenericNote* a, const GenericNote* b) { return a->_line > b->_line; };
    if (std::is_sorted(heads.begin(), heads.end(), isHigher)) return;
    for (GenericNote* note : heads) stemNotes.Remove(note);
    for (GenericNote* note : heads) AddNoteToStem(stem, note);
}

void WriteNote(GenericNote* note, const Spelling& spelling) {
    const int line = LineOf(note, spelling);
    if (note->_line != line) note->_line = static_cast<int16_t>(line);
    if (note->_alteration == spelling.alteration) return;
    note->_alteration = spelling.alteration;
    if (!IsBracketed(AccidentOf(note))) return;  // the others are judged when all notes are written
    RemoveAccidents(note);
    AttachAccident(note, spelling.alteration, true);
}

// Stems, beams, accidentals and heights after some notes have been written anew.
void FollowUp(const std::vector<GenericNote*>& notes) {
    std::vector<Chords*> chords;
    std::set<MeasureStaff*> crossings;
    for (GenericNote* note : notes) {
        if (chords.empty() || chords.back() != ChordPar(note)) chords.push_back(ChordPar(note));
        crossings.insert(MeasureStaffPar(note));
        SortHeads(StemPar(note));
    }
    std::set<Beam*> beams;
    for (Chords* chord : chords) {
        if (Beam* beam = BeamOf(StemOf(chord)))
            beams.insert(beam);
        else
            RestemChord(chord);
    }
    for (Beam* beam : beams) RefitBeam(beam);
    for (MeasureStaff* crossing : crossings) RedoAccidentals(crossing);
    for (GenericNote* note : notes) UpdateNoteHeight(note);
}

}  // namespace

Respelling::Respelling(const std::vector<GenericNote*>& notes) {
    for (GenericNote* note : notes) {
        if (IsPercussion(ClefCodeOf(note)) || _chosen.count(note)) continue;
        while (GenericNote* before = TiedFromBefore(note)) note = before;
        for (; note; note = TiedToAfter(note)) Add(note);
    }
}

void Respelling::Add(GenericNote* note) {
    if (_chosen.emplace(note, std::nullopt).second) _notes.push_back(note);
}

const Spelling* Respelling::ChosenFor(const GenericNote* note) const {
    const auto found = _chosen.find(note);
    return found != _chosen.end() && found->second ? &*found->second : nullptr;
}

bool Respelling::IsFree(const GenericNote* note, const Spelling& way) const {
    const int line = LineOf(note, way);
    for (const GenericNote* other : chordNotes.Of(ChordPar(note))) {
        if (other == note) continue;
        if (const Spelling* chosen = ChosenFor(other)) {
            if (LineOf(other, *chosen) == line) return false;
        } else if (!_chosen.count(other) && other->_line == line) {
            return false;
        }
    }
    return true;
}

bool Respelling::Choose(GenericNote* note, const std::vector<Spelling>& ways) {
    const GenericNote* before = TiedFromBefore(note);
    if (before && SpellingOf(before) == SpellingOf(note)) {
        const Spelling* chosen = ChosenFor(before);
        if (!chosen || !IsFree(note, *chosen)) return false;
        _chosen[note] = *chosen;
        return true;
    }
    const auto way =
        std::find_if(ways.begin(), ways.end(), [&](const Spelling& each) { return IsFree(note, each); });
    if (way == ways.end()) return false;
    _chosen[note] = *way;
    return true;
}

bool Respelling::Changes(const GenericNote* note) const {
    const Spelling* chosen = ChosenFor(note);
    return chosen && !(*chosen == SpellingOf(note));
}

bool Respelling::Write(WindowTarn& window) const {
    std::vector<GenericNote*> changed;
    for (GenericNote* note : _notes)
        if (Changes(note)) changed.push_back(note);
    if (changed.empty()) return false;
    const EditStep step(window);
    const MeasureRange range = SpanOf(changed);
    const SystemRedraw redraw(window, range.first, range.last);
    for (GenericNote* note : changed) WriteNote(note, *ChosenFor(note));
    FollowUp(changed);
    return true;
}

}  // namespace corvane
