// Where the instruments' sounds come from.
#pragma once

#include <string>

namespace corvane {

// A General MIDI sound font: the one that $CORVANE_SOUNDFONT names, if it is one, else the system's
// default, else the first of those that packages install. Empty if there is none.
std::string FindSoundFont();

}  // namespace corvane
