// Stems and beams that reach over several staves of one measure.
#pragma once

#include <vector>

#include "layout/Beaming.h"

namespace corvane {

// Chords of one value that sound together get one column and one stem, the first one's; the stems stand under
// no beam.
Stem* JoinColumns(const std::vector<Chords*>& chords);
// The chords of a column that stand on another staff than its first get columns, stems and flags of their
// own.
void SplitCrossChord(ChordSymbol* column);
// The same for each column of a voice whose chords do not begin together any more: something has come or gone
// before one of them. A beam over such a column ends.
void SplitPartedColumns(const Voice* voice);

// A beam over stems in the order of their time, which stand under none.
CrossBeam* BuildCrossBeam(const std::vector<Stem*>& stems);

// Where there is room the line runs between the staves, stems of the upper one down and of the lower one up;
// else on the side of the first note's staff: below all where that is the upper one, above all where it is
// the lower one. A person's word for up or down puts it above or below all.
void RefitCrossBeam(CrossBeam* beam);
// What stems of such beams need after staves of their system have moved.
void RefitCrossBeams(const System* system);

}  // namespace corvane
