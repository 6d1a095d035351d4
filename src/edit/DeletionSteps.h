// Parts of deletions that several of them share.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

// A voice without events goes, unless it is the first or the only one of its crossing. True if it went.
bool DropEmptyVoice(Voice* voice);
// Every tie of a note goes with both its marks; the other notes sound on their own again.
void DeleteTiesOf(WindowTarn& window, GenericNote* note);
// Takes a record's patch off the sheet if it is filed.
void TakeOff(WindowTarn& window, void* record);

}  // namespace corvane
