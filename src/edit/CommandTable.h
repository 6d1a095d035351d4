// Commands by their ids, as menus, keys and scripts call them.
#pragma once

#include <span>
#include <vector>

#include "base/Status.h"
#include "edit/CommandArguments.h"
#include "edit/SelectionKinds.h"
#include "edit/WindowTarn.h"

namespace corvane {

// What must be selected for a command that is told no measures.
enum class Needs : uint8_t { Nothing, Notes, Rests, Events };

struct Command {
    int id;
    const char* name;
    Status (*run)(WindowTarn& window, const CommandArguments& arguments);
    bool (*enabled)(const WindowTarn& window);
    Needs needs = Needs::Nothing;
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
// Whether a command that is told nothing can act on what is selected, and the sentence that tells why it
// cannot; empty where it can. Neither runs anything.
bool CanAct(const WindowTarn& window, const Command& command, const SelectedKinds& selected);
std::string ReasonAgainst(WindowTarn& window, const Command& command);
// Refused with a sentence where the id is unknown, the command cannot act or an argument makes no sense.
Status RunCommand(WindowTarn& window, int id, const CommandArguments& arguments = {});

}  // namespace corvane
