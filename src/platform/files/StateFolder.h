// Where the program keeps what belongs to its work and to no document: backups and unsaved work.
#pragma once

#include <string>

namespace corvane {

// $CORVANE_STATE_DIR, else "corvane" in $XDG_STATE_HOME, else in ~/.local/state. Need not exist.
std::string StateFolder();

}  // namespace corvane
