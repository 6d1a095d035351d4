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

// By what a command needs.
constexpr struct {
    Needs needs;
    const char* sentence;
    bool (*has)(const SelectedKinds& selected);
} kNeeds[] = {
    {Needs::Notes, "Select some notes first", [](const SelectedKinds& s) { return s.notes; }},
    {Needs::Rests, "Select some rests first", [](const SelectedKinds& s) { return s.rests; }},
    {Needs::Events, "Select some notes first", [](const SelectedKinds& s) { return s.notes || s.rests; }},
};

// Null where it is there.
const char* Missing(Needs needs, const SelectedKinds& selected) {
    for (const auto& row : kNeeds)
        if (row.needs == needs && !row.has(selected)) return row.sentence;
    return nullptr;
}

SelectedKinds KindsFor(WindowTarn& window, const Command& command) {
    return command.needs == Needs::Nothing ? SelectedKinds{} : KindsSelected(window);
}

std::string Reason(const WindowTarn& window, const Command& command, const SelectedKinds& selected) {
    if (command.enabled(window)) {
        const char* missing = Missing(command.needs, selected);
        return missing ? missing : "";
    }
    if (IsPlaying()) return "Stop the play to edit";
    for (const auto& reason : kReasons)
        if (reason.id == command.id) return reason.sentence;
    return std::string("\"") + command.name + "\" cannot be done now";
}

bool TellsMeasures(const CommandArguments& arguments) {
    return arguments.contains("from") || arguments.contains("to") || arguments.contains("staff");
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

bool CanAct(const WindowTarn& window, const Command& command, const SelectedKinds& selected) {
    return command.enabled(window) && !Missing(command.needs, selected);
}

std::string ReasonAgainst(WindowTarn& window, const Command& command) {
    return Reason(window, command, KindsFor(window, command));
}

Status RunCommand(WindowTarn& window, int id, const CommandArguments& arguments) {
    const Command* command = FindCommand(id);
    if (!command) return {Fault::Refused, "There is no command " + std::to_string(id)};
    const SelectedKinds kinds =
        TellsMeasures(arguments) ? SelectedKinds{true, true} : KindsFor(window, *command);
    if (std::string reason = Reason(window, *command, kinds); !reason.empty())
        return {Fault::Refused, std::move(reason)};
    window.Activate();
    return command->run(window, arguments);
}

}  // namespace corvane
