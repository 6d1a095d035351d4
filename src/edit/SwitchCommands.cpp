// Commands that turn a way of editing on and off.
#include "edit/CommandTable.h"
#include "edit/ToolState.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

template <bool EditSwitches::*Switch>
Status Toggle(WindowTarn&, const CommandArguments&) {
    Switches().*Switch = !(Switches().*Switch);
    return Status::Ok();
}

// No step of its own: a setting shall not take the place of the edit that can be undone.
template <bool EditSwitches::*Switch>
Status ToggleInScore(WindowTarn& window, const CommandArguments& arguments) {
    (void)Toggle<Switch>(window, arguments);
    if (KeepScoreSwitches(window.GetDocument())) window.Pool()->SetModified(true);
    window.Shell().StateChanged(window);
    return Status::Ok();
}

// Of the tool at hand, which tells the shell.
template <void (*toggle)()>
Status ToggleTool(WindowTarn&, const CommandArguments&) {
    toggle();
    return Status::Ok();
}

Status UndoLevels(WindowTarn&, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const int levels = reader.Number("levels", 1, kMostUndoLevels);
    if (const Status status = reader.Result(); !status) return status;
    SetUndoLevels(levels);
    return Status::Ok();
}

constexpr Command kSwitches[] = {
    {40050, "Undo Levels", UndoLevels, NotPlaying},  // from 40000 on ids of this program's own
    {40070, "Accidentals in Brackets", ToggleTool<ToggleAccidentParenthesis>, NotPlaying},
    {40071, "Ornament Accidentals in Brackets", ToggleTool<ToggleOrnamentParenthesis>, NotPlaying},
    {32808, "Auto Beaming", ToggleInScore<&EditSwitches::autoBeam>, NotPlaying},
    {32809, "Auto Spacing", ToggleInScore<&EditSwitches::autoSpace>, NotPlaying},
    {33130, "Playback notes", Toggle<&EditSwitches::playbackNotes>, NotPlaying},
    {33153, "Delete Notes To Rests", Toggle<&EditSwitches::deleteNotesToRests>, NotPlaying},
};

}  // namespace

CommandFamily SwitchCommands() { return kSwitches; }

}  // namespace corvane
