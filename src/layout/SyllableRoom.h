// The room that the syllables of a measure need between its events. Page units.
#pragma once

#include <span>
#include <vector>

#include "layout/ListaEventi.h"

namespace corvane {

// Two events, as places in the list, between whose notes neighbouring syllables want to stand.
struct SyllableNeed {
    size_t from = 0, to = 0;
    int32_t room = 0;
};

// One for each pair of syllables that follow each other in a verse of a voice, in the order of their second
// events.
std::vector<SyllableNeed> SyllableNeedsOf(std::span<const Event> events);

}  // namespace corvane
