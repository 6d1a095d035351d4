// Which kinds of events are selected, as menus and keys ask before a command runs.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

struct SelectedKinds {
    bool notes = false, rests = false;
};

// Of the voice at hand, or of all voices. Cost: at most what the current page holds; a whole score that is
// selected counts as both, whatever it holds.
SelectedKinds KindsSelected(WindowTarn& window);

}  // namespace corvane
