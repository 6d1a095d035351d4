// Which events of a voice share a beam.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

// How two neighbours under a beam connect; the codes stand in files.
inline constexpr int kNotConnected = 0, kEighthLevel = 1, kLargerValue = 2, kFullConnection = 3;

// One event under a beam and how it connects to the next; not, at the end of its group.
struct BeamMember {
    BeamSymbol* symbol = nullptr;
    uint8_t value = 8;
    int connection = kNotConnected;
};
using BeamGroup = std::vector<BeamMember>;

// What can carry an event's flag or beam: the rest itself or the chord's stem.
BeamSymbol* BeamSymbolOf(VoiceSymbol* symbol);

// Every group of the voice: those of grace chords, then the others in score order. Single notes of an eighth
// and shorter are groups of one. Each holds a stem; rests are in it where the score completes its groups.
// Events under a beam over several staves are in none.
std::vector<BeamGroup> BeamGroupsOf(const Voice* voice);

}  // namespace corvane
