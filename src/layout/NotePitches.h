// What follows when clefs or keys change under notes, or all notes of a crossing move.
#pragma once

#include <utility>
#include <vector>

#include "model/Relations.h"

namespace corvane {

// Shows a note's alteration or does not. A sign that is right stays as it stands; one in brackets is there
// because somebody asked for it, so it is only made to tell the truth.
void ShowAccidental(GenericNote* note, bool shown);

// Shows in a crossing the accidentals that its notes need by key, clefs and the notes before them, and no
// others. Signs in brackets stay, and signs that are right already.
void RedoAccidentals(MeasureStaff* crossing);

// After lines of a crossing's notes have changed: sides, stems, beams, accidentals.
void RefitLines(MeasureStaff* crossing);

// Keeps what the notes of some crossings sound like while clefs change: made before the change; Apply moves
// each note to the line that means the same under the clef that governs it now.
class SoundingSteps {
public:
    void Add(MeasureStaff* crossing);
    void Apply() const;

private:
    std::vector<MeasureStaff*> _crossings;
    std::vector<std::pair<GenericNote*, int>> _steps;
};

}  // namespace corvane
