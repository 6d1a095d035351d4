// The room that accidentals and grace chords of a measure need behind what stands before them on their
// staff. Units of the list, before they are per mille.
#pragma once

#include <vector>

#include "layout/ListaEventi.h"

namespace corvane {

// One for each staff and event with such signs behind another event.
std::vector<EventNeed> SignNeedsOf(const ListaEventi& list);

// Whether the events stand as far apart as is asked.
bool HaveRoom(const std::vector<Event>& events, const std::vector<EventNeed>& needs);

}  // namespace corvane
