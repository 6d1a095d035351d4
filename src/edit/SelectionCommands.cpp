// Commands that select.
#include "edit/CommandTable.h"
#include "edit/ControlPoints.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

Status SelectAll(WindowTarn& window, const CommandArguments&) {
    window.TheSelection().SelectAll();
    window.SelectionChanged();
    return Status::Ok();
}
Status SelectNothing(WindowTarn& window, const CommandArguments&) {
    window.interaction.reset();
    window.TheSelection().Clear();
    window.Handles().SelectNothing();
    window.SelectionChanged();
    return Status::Ok();
}
bool IsAnythingSelected(const WindowTarn& window) {
    return !IsPlaying() && !(window.TheSelection().IsEmpty() && window.Handles().IsNoneSelected());
}

// Ids of this program's own.
constexpr Command kSelection[] = {
    {57642, "Select All", SelectAll, NotPlaying},
    {57641, "Select Nothing", SelectNothing, IsAnythingSelected},
};

}  // namespace

CommandFamily SelectionCommands() { return kSelection; }

}  // namespace corvane
