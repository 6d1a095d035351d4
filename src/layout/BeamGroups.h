// Which events of a voice share a beam.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

// One event under a beam and how it connects to the next: 0 at the end of its group, else a code of BeatConnection.
struct BeamMember {
    BeamSymbol* symbol = nullptr;
    uint8_t value = 8;
    int connection = 0;
};
using BeamGroup = std::vector<BeamMember>;

// Every group of the voice, single notes of an eighth and shorter as groups of one, in score order.
std::vector<BeamGroup> BeamGroupsOf(const Voice* voice);

}  // namespace corvane
