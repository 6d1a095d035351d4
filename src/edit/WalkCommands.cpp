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
    {40030, "Next", Go<Walk::Next>, NotPlaying},
    {40031, "Previous", Go<Walk::Previous>, NotPlaying},
    {40032, "Add Next", Go<Walk::Next, true>, NotPlaying},
    {40033, "Add Previous", Go<Walk::Previous, true>, NotPlaying},
    {40034, "Next Measure", Go<Walk::NextMeasure>, NotPlaying},
    {40035, "Previous Measure", Go<Walk::PreviousMeasure>, NotPlaying},
    {40036, "Staff Above", Go<Walk::StaffAbove>, NotPlaying},
    {40037, "Staff Below", Go<Walk::StaffBelow>, NotPlaying},
};

}  // namespace

CommandFamily WalkCommands() { return kWalks; }

}  // namespace corvane
