// What keys alone reach: the selection goes from event to event, the pencil from place to place. Either turns
// the page where its way leads there.
#pragma once

#include <optional>

#include "base/Status.h"
#include "edit/WindowTarn.h"

namespace corvane {

// ---- The selection

enum class Walk { Next, Previous, NextMeasure, PreviousMeasure, StaffAbove, StaffBelow };
// Selects what stands next to the selection, or to the caret where nothing is selected; `adding` keeps what
// is selected. The caret goes along, also into measures that hold nothing. Refused, with a sentence, at the
// score's ends.
Status WalkSelection(WindowTarn& window, Walk walk, bool adding = false);

// ---- The pencil and the eraser

enum class PenMove { Left, Right, Up, Down, StaffAbove, StaffBelow };
// The place for a press that lies beside one, absolute page units of the current page: events, and the place
// behind the last one of a measure that has room. Without `from`, and at the ends, the first place of the
// page, and `from` itself.
Point MovePen(WindowTarn& window, std::optional<Point> from, PenMove move);
// A press there that is let go at once; gives the place of what stands there then.
Point PressWithPen(WindowTarn& window, Point at);

}  // namespace corvane
