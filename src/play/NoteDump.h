// The sounding notes of a score as text.
#pragma once

#include <string>

#include "model/Relations.h"

namespace corvane {

// A line for each sounding note, sorted: measure onbeat onclock offmeasure offbeat offclock staff voice key
// velocity. Measures, staves and voices count from 1; the key is the one before the staff's transposition. A
// chain of tied notes is one line; a note that never ends has zeros for its end.
std::string DumpNotes(const Document* document);

}  // namespace corvane
