// Commands by their ids, as menus, keys and scripts call them.
#pragma once

#include <map>
#include <string>

#include "base/Status.h"
#include "edit/WindowTarn.h"

namespace corvane {

using CommandArguments = std::map<std::string, std::string>;

struct Command {
    int id;
    const char* name;
    Status (*run)(WindowTarn& window, const CommandArguments& arguments);
    bool (*enabled)(const WindowTarn& window);
};

// Null for an id that no command has.
const Command* FindCommand(int id);
// Refused with a sentence where the id is unknown, the command cannot act or an argument makes no sense.
Status RunCommand(WindowTarn& window, int id, const CommandArguments& arguments = {});

}  // namespace corvane
