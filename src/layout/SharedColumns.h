// Columns that voices of several staves share stand at one x, whichever voice was spaced last.
#pragma once

#include "model/Relations.h"

namespace corvane {

bool HasSharedColumn(const Voice* voice);

// Sets right the voices of a measure whose events stand no longer from left to right since another voice
// moved a column that they share: shared columns stay, and what stands between them is spread in proportion
// to time. Clefs stay between the same events; beams are refitted.
void FollowSharedColumns(const Measure* measure);

}  // namespace corvane
