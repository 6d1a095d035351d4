// What a person reads when a MIDI file cannot become a score.
#pragma once

#include "base/Status.h"

namespace corvane {

inline Status InvalidMidiFile() { return {Fault::Damaged, "Invalid MIDI File"}; }

}  // namespace corvane
