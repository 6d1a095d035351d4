// The names of General MIDI programs, as the person sees them.
#pragma once

#include <string_view>

namespace corvane {

// Of a program from 1 to 128, at most 19 characters; empty for any other number.
std::string_view GeneralMidiName(int program);

}  // namespace corvane
