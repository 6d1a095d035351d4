// The room that the syllables of a measure need between its events. Page units.
#pragma once

#include <span>
#include <vector>

#include "layout/ListaEventi.h"

namespace corvane {

// One for each pair of syllables that follow each other in a verse of a voice, in the order of their second
// events.
std::vector<EventNeed> SyllableNeedsOf(std::span<const Event> events);

}  // namespace corvane
