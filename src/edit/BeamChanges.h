// Beams as a person wants them, over notes that are there. Each is one undoable step, refused before it
// begins with a sentence that says why. What is made by hand is kept when notes are beamed as they are
// entered.
#pragma once

#include <vector>

#include "base/Status.h"
#include "edit/WindowTarn.h"
#include "model/PreferenceRecords.h"

namespace corvane {

using ChosenSymbols = std::vector<VoiceSymbol*>;

// As the beats and the score's choices tell.
Status BeamOnBeat(WindowTarn& window, const ChosenSymbols& events);
// One beam over what follows each other in a measure and voice.
Status BeamSelection(WindowTarn& window, const ChosenSymbols& events);
// To the beams beside them.
Status AddBeam(WindowTarn& window, const ChosenSymbols& events);
Status RemoveBeam(WindowTarn& window, const ChosenSymbols& events);
// The same for all that stands under a beam, as a part of the caller's step.
void DeleteBeam(WindowTarn& window, Beam* beam);
// Partial beams at the notes to their other side. Where there are none flags and beams turn with their stems.
Status FlipFlag(WindowTarn& window, const ChosenSymbols& events);
// How notes connect to the ones before them under their beams, a code of BeamGroups.h.
Status ModifyBeam(WindowTarn& window, const ChosenSymbols& events, int connection);
// Stems, of beams as a whole, to the other side of their heads.
Status InvertDirection(WindowTarn& window, const std::vector<Chords*>& chords);

// One beam over the notes of two or more staves of a measure; those that sound together share a stem.
Status BeamOverStaves(WindowTarn& window, const ChosenSymbols& events);

}  // namespace corvane
