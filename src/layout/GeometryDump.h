// What a page draws, as text: for people, and for tests that compare whole pictures.
#pragma once

#include <string>

#include "model/Relations.h"

namespace corvane {

// A line for each object that has ink, in absolute page units, system by system: its staves, then measure by
// measure what stands on each staff, then what belongs to no staff. Staves count from the top of their
// system; 0 where an object belongs to no staff or no voice.
//     CLASS STAFF VOICE left top right bottom
std::string GeometryDump(const Page* page);

}  // namespace corvane
