// Where the program keeps what belongs to its work and to no document: backups and unsaved work.
#pragma once

#include <string>

namespace corvane {

// $CORVANE_STATE_DIR, else "corvane" in $XDG_STATE_HOME, else in ~/.local/state. Made where it is missing,
// for its owner alone: what lies there may be copied from files that nobody else may read.
std::string StateFolder();

}  // namespace corvane
