// Commands by their ids, as menus, keys and scripts call them.
#pragma once

#include <span>
#include <vector>

#include "base/Status.h"
#include "edit/CommandArguments.h"
#include "edit/WindowTarn.h"

namespace corvane {

struct Command {
    int id;
    const char* name;
    Status (*run)(WindowTarn& window, const CommandArguments& arguments);
    bool (*enabled)(const WindowTarn& window);
};

// The commands of one family; each stands in a file of its own.
using CommandFamily = std::span<const Command>;
CommandFamily SwitchCommands();
CommandFamily ClipboardCommands();
CommandFamily SignCommands();
CommandFamily NoteCommands();
CommandFamily GraceCommands();
CommandFamily BeamCommands();
CommandFamily MarkOptionCommands();
CommandFamily SelectionCommands();
CommandFamily WalkCommands();
CommandFamily StructureCommands();
CommandFamily SpannerCommands();
CommandFamily LayoutCommands();
CommandFamily FontCommands();
CommandFamily TextCommands();
CommandFamily MixerCommands();
CommandFamily HideCommands();
CommandFamily SignOptionCommands();
CommandFamily ControlPointCommands();

// All of them.
std::vector<CommandFamily> CommandFamilies();

// When commands can act.
bool NotPlaying(const WindowTarn& window);

// Null for an id that no command has.
const Command* FindCommand(int id);
// Refused with a sentence where the id is unknown, the command cannot act or an argument makes no sense.
Status RunCommand(WindowTarn& window, int id, const CommandArguments& arguments = {});

}  // namespace corvane
