// Handles shown and hidden, a kind at a time or all at once.
#include "edit/CommandTable.h"
#include "edit/ControlPoints.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

constexpr const char* kNames[kHandleKinds] = {"stems", "ties", "staves", "tuplets", "barlines", "slurs"};

// Only the arrow takes handles.
void TakeArrow() {
    if (Tools().toolMode == ModeArrow) return;
    SetToolMode(ModeArrow);
    ApplyToolMode();
}

template <HandleKind Kind>
Status Toggle(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    if (const Status status = reader.Result(); !status) return status;
    ControlPoints& handles = window.Handles();
    const bool on = !handles.IsOn(Kind);
    if (on) TakeArrow();
    handles.Show(Kind, on);
    if (on && !handles.Has(Kind))
        window.Shell().Tell(std::string("There are no ") + kNames[static_cast<size_t>(Kind)] +
                            " on this page.");
    return Status::Ok();
}

Status Hide(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    if (const Status status = reader.Result(); !status) return status;
    window.Handles().End();
    return Status::Ok();
}
bool AnyShown(const WindowTarn& window) { return !IsPlaying() && window.Handles().IsAnyOn(); }

constexpr Command kControlPoints[] = {
    {33045, "Control Points Stems", Toggle<HandleKind::Stem>, NotPlaying},
    {33046, "Control Points Ties", Toggle<HandleKind::Tie>, NotPlaying},
    {33047, "Control Points Staves", Toggle<HandleKind::Staff>, NotPlaying},
    {33055, "Control Points Tuplets", Toggle<HandleKind::Tuplet>, NotPlaying},
    {33048, "Control Points Barlines", Toggle<HandleKind::Barline>, NotPlaying},
    {33049, "Control Points Slurs", Toggle<HandleKind::Slur>, NotPlaying},
    {33041, "Hide Control Points", Hide, AnyShown},
};

}  // namespace

CommandFamily ControlPointCommands() { return kControlPoints; }

}  // namespace corvane
