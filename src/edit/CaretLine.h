// Where the caret shows.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

// The x of its line, absolute page units: where it was put, but beside an event that stands there, on the
// side on which a paste would come. The caret's measure and staff must be there. Cost: the measure.
int32_t CaretLineX(const Caret& caret);

}  // namespace corvane
