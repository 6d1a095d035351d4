#include "layout/NotePitches.h"

#include <algorithm>
#include <map>
#include <unordered_set>

#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"
#include "model/Ties.h"

namespace corvane {
namespace {

template <class Visit>
void ForEachNote(const MeasureStaff* crossing, Visit visit) {
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
            if (const auto* chord = As<Chords>(symbol))
                for (GenericNote* note : chordNotes.Of(chord)) visit(note);
}

std::vector<GenericNote*> NotesByX(const MeasureStaff* crossing) {
    std::vector<GenericNote*> notes;
    ForEachNote(crossing, [&](GenericNote* note) { notes.push_back(note); });
    std::stable_sort(notes.begin(), notes.end(), [](const GenericNote* a, const GenericNote* b) {
        return StemPar(a)->_x < StemPar(b)->_x;
    });
    return notes;
}

// What is in force while a crossing is read from left to right.
class AccidentalReading {
public:
    explicit AccidentalReading(const MeasureStaff* crossing)
        : _crossing(crossing), _key(KeyInForce(crossing)), _byLine(AccidentalsLast(DocumentPar(crossing))) {}

    // Notes that stand at one x; none of them speaks for another.
    void Read(std::vector<GenericNote*>::const_iterator from, std::vector<GenericNote*>::const_iterator to) {
        const int clef = ClefInForce(_crossing, StemPar(*from)->_x);
        if (clef != _clef) _inForce.clear();
        _clef = clef;
        for (auto note = from; note != to; ++note)
            ShowAccidental(*note, !IsHeldOver(*note) && (*note)->_alteration != InForce(*note));
        if (!_byLine) return;
        for (auto note = from; note != to; ++note)
            if (!IsHeldOver(*note)) _inForce[(*note)->_line] = (*note)->_alteration;
    }

private:
    Alteration InForce(const GenericNote* note) const {
        const auto found = _inForce.find(note->_line);
        return found != _inForce.end() ? found->second
                                       : AlterationOfKey(_key, DiatonicStep(_clef, note->_line));
    }

    const MeasureStaff* _crossing;
    const int _key;
    const bool _byLine;
    int _clef = 0;
    std::map<int, Alteration> _inForce;  // by line
};

void RefitBeamsUnderStems(const Voice* voice) {
    const Beam* last = nullptr;
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
        const auto* chord = As<Chords>(symbol);
        const Stem* stem = chord ? StemOf(chord) : nullptr;
        Beam* beam = stem ? BeamOf(stem) : nullptr;
        if (beam && beam != last) RefitBeam(beam);
        last = beam;
    }
}

}  // namespace

void ShowAccidental(GenericNote* note, bool shown) {
    const Accident* old = AccidentOf(note);
    const bool bracketed = old && SymbolName(old->_symbol).ends_with('(');
    if (!old && !shown) return;
    if (old && (shown || bracketed) &&
        SymbolName(old->_symbol) == AccidentName(note->_alteration, As<Grace>(note), bracketed))
        return;
    RemoveAccidents(note);
    if (shown || bracketed) AttachAccident(note, note->_alteration, bracketed);
}

void RedoAccidentals(MeasureStaff* crossing) {
    const std::vector<GenericNote*> notes = NotesByX(crossing);
    if (notes.empty()) return;
    AccidentalReading reading(crossing);
    for (auto from = notes.begin(); from != notes.end();) {
        const int32_t x = StemPar(*from)->_x;
        const auto to =
            std::find_if(from, notes.end(), [x](const GenericNote* n) { return StemPar(n)->_x != x; });
        reading.Read(from, to);
        from = to;
    }
}

void RefitLines(MeasureStaff* crossing) {
    for (Voice* voice : measureStaffVoices.Of(crossing)) {
        RestemVoice(voice);
        RefitBeamsUnderStems(voice);
    }
    RedoAccidentals(crossing);
}

void SoundingSteps::Add(MeasureStaff* crossing) {
    _crossings.push_back(crossing);
    ForEachNote(crossing, [&](GenericNote* note) {
        _steps.emplace_back(note, DiatonicStep(ClefCodeOf(note), note->_line));
    });
}

void SoundingSteps::Apply() const {
    std::unordered_set<const MeasureStaff*> moved;
    for (const auto& [note, step] : _steps) {
        const int line = LineOfStep(ClefCodeOf(note), step);
        if (line == note->_line) continue;
        note->_line = static_cast<int16_t>(line);
        moved.insert(MeasureStaffPar(note));
    }
    for (MeasureStaff* crossing : _crossings)
        if (moved.count(crossing)) RefitLines(crossing);
}

}  // namespace corvane
