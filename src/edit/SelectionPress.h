// What the arrow tool does with a press: a note, a rest or a sign under it is selected, elsewhere the rubber
// band begins. With Shift what was selected stays.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

void PressWithArrow(WindowTarn& window, Point p, uint32_t modifiers);

// Selects heads as they stand now, in addition to what is.
void SelectHeads(WindowTarn& window, const std::vector<GenericNote*>& notes);

}  // namespace corvane
