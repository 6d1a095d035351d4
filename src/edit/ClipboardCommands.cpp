// Cut, copy, paste and clear, and when they can act.
#include "edit/Clipboard.h"
#include "edit/CommandTable.h"
#include "edit/ControlPoints.h"
#include "edit/ToolState.h"

namespace corvane {
namespace {

template <void (*Act)(WindowTarn&)>
Status Run(WindowTarn& window, const CommandArguments&) {
    Act(window);
    return Status::Ok();
}
Status RunPaste(WindowTarn& window, const CommandArguments&) {
    Paste(window);  // a refusal has been told
    return Status::Ok();
}
bool IsSelected(const WindowTarn& window) { return !IsPlaying() && !window.TheSelection().IsEmpty(); }
bool MayClear(const WindowTarn& window) {
    return IsSelected(window) || (!IsPlaying() && !window.Handles().IsNoneSelected());
}
bool MayPaste(const WindowTarn& window) { return !IsPlaying() && CanPaste(window); }

constexpr Command kClipboard[] = {
    {57635, "Cut", Run<Cut>, IsSelected},
    {57634, "Copy", Run<Copy>, IsSelected},
    {57637, "Paste", RunPaste, MayPaste},
    {32774, "Clear", Run<ClearSelection>, MayClear},
};

}  // namespace

CommandFamily ClipboardCommands() { return kClipboard; }

}  // namespace corvane
