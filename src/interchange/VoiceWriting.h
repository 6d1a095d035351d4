// Enters the planned symbols of a voice into the measures of its staff, with their events.
#pragma once

#include "interchange/ScoreFrame.h"

namespace corvane {

class VoiceWriting {
public:
    // `keys`: sharps less flats by measure.
    VoiceWriting(const StaffColumn& column, const VoicePlan& plan, const std::vector<int>& keys)
        : _column(column), _plan(plan), _keys(keys), _notes(plan.notes.size(), nullptr) {}
    void Write();

private:
    void WriteSymbol(const PlannedSymbol& symbol);
    void WriteRest(Voice* voice, const PlannedSymbol& symbol);
    void WriteChord(Voice* voice, const PlannedSymbol& symbol);
    void Decorate(VoiceSymbol* written, const PlannedSymbol& symbol);
    void TieBack(const PlannedNote& note, GenericNote* written);

    const StaffColumn& _column;
    const VoicePlan& _plan;
    const std::vector<int>& _keys;
    std::vector<GenericNote*> _notes;  // by planned note
    Irregular* _tuplet = nullptr;      // of the symbol written last
};

// The work on a crossing once all its voices hold their symbols: a rest where there are none, stems,
// accidentals.
void SettleCrossing(MeasureStaff* crossing);
// Places of all events of a measure; one whole rest stands in its middle.
void RespaceMeasure(Measure* measure);
void BeamCrossing(MeasureStaff* crossing);

}  // namespace corvane
