// Room for clefs within a measure, between the notes of their staff that they stand between.
#pragma once

#include "layout/ListaEventi.h"

namespace corvane {

// Moves placed events apart where a clef needs more than the table gave it. The other gaps give what they can
// spare, in proportion; where that is too little, clefs get as much as there is.
void MakeRoomForClefs(ListaEventi& list);

}  // namespace corvane
