// What a score chooses of beams, stems and the distances around notes. Each function is one undoable step.
#pragma once

#include <functional>

#include "base/Status.h"
#include "edit/WindowTarn.h"
#include "model/PreferenceRecords.h"

namespace corvane {

// How notes are grouped from now on; with `anew` the beams of the whole score, but for those made by hand,
// follow at once.
Status ChooseBeams(WindowTarn& window, bool anew, const std::function<void(NotePref&)>& choose);

// Sizes and distances: beams are fitted anew, where the stems' length has changed all stems are.
Status ChooseDistances(WindowTarn& window, const std::function<void(NotePref&, StangPref&)>& choose);

// Directions of stems by voices; all stems but those that a person has pointed follow.
Status ChooseStems(WindowTarn& window, const std::function<void(VoicePref&)>& choose);

// Other choices by which the score's notes and marks are drawn.
Status ChooseLooks(WindowTarn& window, const std::function<void(Document*)>& choose);

// Fits the beams of the whole score anew, as the switch for their angle has it. No step where it has none.
void RefitAllBeams(WindowTarn& window);

}  // namespace corvane
