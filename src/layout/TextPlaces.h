// Where a text at a staff stands, and which other staves show it.
#pragma once

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// The left end of its first baseline at its own staff; the origin where it stands on none.
Point BaselineOf(const MeasureStaffText* text);
// Whether a mark of the text names the staff; its own staff shows it without.
bool IsShownAt(const MeasureStaffText* text, const Staff* staff);

}  // namespace corvane
