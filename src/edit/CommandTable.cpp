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

constexpr Command kUndo[] = {
    {57643, "Undo", Undo, CanUndo},
    {57644, "Redo", Redo, CanRedo},
};

}  // namespace

bool NotPlaying(const WindowTarn&) { return !IsPlaying(); }

std::vector<CommandFamily> CommandFamilies() {
    return {kUndo,           ClipboardCommands(), SwitchCommands(),    SignCommands(),
            NoteCommands(),  GraceCommands(),     BeamCommands(),      MarkOptionCommands(),
            WalkCommands(),  SelectionCommands(), StructureCommands(), SpannerCommands(),
            MixerCommands(), LayoutCommands(),    FontCommands(),      TextCommands(),
            HideCommands(),  SignOptionCommands()};
}

const Command* FindCommand(int id) {
    for (const CommandFamily family : CommandFamilies())
        for (const Command& command : family)
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
