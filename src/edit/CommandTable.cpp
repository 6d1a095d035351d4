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

constexpr struct {
    int id;
    const char* sentence;
} kReasons[] = {
    {57643, "There is nothing to undo"},
    {57644, "There is nothing to redo"},
    {57635, "Select what is to be cut first"},
    {57634, "Select what is to be copied first"},
    {57637, "Copy something first, then click with the arrow where it is to go"},
    {32774, "Select what is to be deleted first"},
    {33041, "No control points are shown"},
};

// Why a command cannot act.
std::string ReasonAgainst(const Command& command) {
    if (IsPlaying()) return "Stop the play to edit";
    for (const auto& reason : kReasons)
        if (reason.id == command.id) return reason.sentence;
    return std::string("\"") + command.name + "\" cannot be done now";
}

}  // namespace

bool NotPlaying(const WindowTarn&) { return !IsPlaying(); }

std::vector<CommandFamily> CommandFamilies() {
    return {kUndo,           ClipboardCommands(),  SwitchCommands(),      SignCommands(),
            NoteCommands(),  GraceCommands(),      BeamCommands(),        MarkOptionCommands(),
            WalkCommands(),  SelectionCommands(),  StructureCommands(),   SpannerCommands(),
            MixerCommands(), LayoutCommands(),     FontCommands(),        TextCommands(),
            HideCommands(),  SignOptionCommands(), ControlPointCommands()};
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
    if (!command->enabled(window)) return {Fault::Refused, ReasonAgainst(*command)};
    window.Activate();
    return command->run(window, arguments);
}

}  // namespace corvane
