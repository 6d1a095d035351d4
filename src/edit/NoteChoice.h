// The notes and rests that a command changes.
#pragma once

#include <vector>

#include "edit/CommandArguments.h"
#include "edit/WindowTarn.h"

namespace corvane {

// What `from` and `to` tell, measures by their numbers, of `staff` from the top or of all staves; without
// them what is selected. Of the voice at hand, or of all voices, in score order. Refused where there is
// nothing.
std::vector<VoiceSymbol*> ReadEvents(ArgumentReader& reader, WindowTarn& window);
// The same, single heads where only they are selected.
std::vector<GenericNote*> ReadNotes(ArgumentReader& reader, WindowTarn& window);
std::vector<Chords*> ReadChords(ArgumentReader& reader, WindowTarn& window);

}  // namespace corvane
