// What a command's arguments are where a person works: what its dialog shows first. Of a command without such
// values nothing. Cost: what is selected, and the current page.
#pragma once

#include "edit/CommandArguments.h"
#include "edit/WindowTarn.h"

namespace corvane {

CommandArguments ValuesAtHand(WindowTarn& window, int id);

// The numbers that a score's measures, pages and staves reach.
struct ScoreExtent {
    int measures = 0, pages = 0, staves = 0;
};
ScoreExtent ExtentOf(const WindowTarn& window);

}  // namespace corvane
