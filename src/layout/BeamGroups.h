// Which events of a voice share a beam.
#pragma once

#include <set>
#include <vector>

#include "model/Relations.h"

namespace corvane {

// How two neighbours under a beam connect; the codes stand in files.
inline constexpr int kNotConnected = 0, kEighthLevel = 1, kLargerValue = 2, kFullConnection = 3;

// Of a marker's connection value: nothing is cut.
inline constexpr uint8_t kNotCut = 255;

// One event under a beam and how it connects to the next; not, at the end of its group.
struct BeamMember {
    BeamSymbol* symbol = nullptr;
    uint8_t value = 8;
    int connection = kNotConnected;
};
using BeamGroup = std::vector<BeamMember>;

// What can carry an event's flag or beam: the rest itself or the chord's stem.
BeamSymbol* BeamSymbolOf(VoiceSymbol* symbol);
// The event of a voice that stands there; null for none.
VoiceSymbol* EventAt(const BeamSymbol* symbol, const Voice* voice);
// The neighbours that a beam can go on to: over the grace chords between, or from one grace chord to the next
// to it. Null at the ends.
VoiceSymbol* NextUnderBeam(const VoiceSymbol* symbol);
VoiceSymbol* PrevUnderBeam(const VoiceSymbol* symbol);
// An eighth or shorter on one staff.
bool CanBeam(VoiceSymbol* symbol);
// Grouping leaves it: over several staves, or made by a person.
bool IsFixed(const Beam* beam);

// Every group of the voice: those of grace chords, then the others in score order. Single notes of an eighth
// and shorter are groups of one. Each holds a stem; rests are in it where the score completes its groups.
// Events under a fixed beam are in none; one that a person wants alone is in a group of one.
std::vector<BeamGroup> BeamGroupsOf(const Voice* voice);

using ChosenEvents = std::set<const VoiceSymbol*>;
// The chosen events that follow each other and can share a beam, whatever their beats; without the rests at
// the ends.
std::vector<BeamGroup> BeamRunsOf(const Voice* voice, const ChosenEvents& chosen);

}  // namespace corvane
