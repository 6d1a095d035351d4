// Commands that walk the selection.
#include "edit/CommandTable.h"
#include "edit/KeyWalk.h"

namespace corvane {
namespace {

template <Walk walk, bool adding = false>
Status Go(WindowTarn& window, const CommandArguments&) {
    return WalkSelection(window, walk, adding);
}

// Ids of this program's own.
constexpr Command kWalks[] = {
    {40060, "Next", Go<Walk::Next>, NotPlaying},
    {40061, "Previous", Go<Walk::Previous>, NotPlaying},
    {40062, "Add Next", Go<Walk::Next, true>, NotPlaying},
    {40063, "Add Previous", Go<Walk::Previous, true>, NotPlaying},
    {40064, "Next Measure", Go<Walk::NextMeasure>, NotPlaying},
    {40065, "Previous Measure", Go<Walk::PreviousMeasure>, NotPlaying},
    {40066, "Staff Above", Go<Walk::StaffAbove>, NotPlaying},
    {40067, "Staff Below", Go<Walk::StaffBelow>, NotPlaying},
};

}  // namespace

CommandFamily WalkCommands() { return kWalks; }

}  // namespace corvane
