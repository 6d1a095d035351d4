#include "edit/CommandTable.h"

#include "edit/ToolState.h"

namespace corvane {
namespace {

Status Undo(WindowTarn& window, const CommandArguments&) {
    window.Undo();
    return Status::Ok();
}
Status Redo(WindowTarn& window, const CommandArguments&) {
    window.Redo();
    return Status::Ok();
}
bool CanUndo(const WindowTarn& window) { return !IsPlaying() && window.CanUndo(); }
bool CanRedo(const WindowTarn& window) { return !IsPlaying() && window.CanRedo(); }

template <bool EditSwitches::*Switch>
Status Toggle(WindowTarn&, const CommandArguments&) {
    Switches().*Switch = !(Switches().*Switch);
    return Status::Ok();
}
bool NotPlaying(const WindowTarn&) { return !IsPlaying(); }

constexpr Command kCommands[] = {
    {57643, "Undo", Undo, CanUndo},
    {57644, "Redo", Redo, CanRedo},
    {32808, "Auto Beaming", Toggle<&EditSwitches::autoBeam>, NotPlaying},
    {32809, "Auto Spacing", Toggle<&EditSwitches::autoSpace>, NotPlaying},
    {33130, "Playback notes", Toggle<&EditSwitches::playbackNotes>, NotPlaying},
    {33153, "Delete Notes To Rests", Toggle<&EditSwitches::deleteNotesToRests>, NotPlaying},
};

}  // namespace

const Command* FindCommand(int id) {
    for (const Command& command : kCommands)
        if (command.id == id) return &command;
    return nullptr;
}

Status RunCommand(WindowTarn& window, int id, const CommandArguments& arguments) {
    const Command* command = FindCommand(id);
    if (!command) return {Fault::Refused, "There is no command " + std::to_string(id)};
    if (!command->enabled(window))
        return {Fault::Refused, std::string("\"") + command->name + "\" cannot be done now"};
    window.Activate();
    return command->run(window, arguments);
}

}  // namespace corvane
