// Parts the notes of a track into two voices: those that do not begin and end with the others.
#pragma once

#include <vector>

#include "interchange/Quantization.h"

namespace corvane {

struct SplitEvents {
    std::vector<NoteEvent> first, second;  // each in time order, every note whole in one of them
};
SplitEvents SplitInTwo(const std::vector<NoteEvent>& events);

}  // namespace corvane
