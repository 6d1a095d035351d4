// What the end of a system says of the next one's beginning where that differs: a small clef before the last
// barline, key and time signatures behind it. They are part of the last measure's picture; the measures of
// the system leave them room.
#pragma once

#include "base/Geometry.h"
#include "graphics/GraphicPort.h"
#include "model/Relations.h"

namespace corvane {

// From the last barline of a system to the end of its staves; 0 where nothing stands there.
int32_t CourtesyWidth(const System* system);

// Of a measure that ends a system; nothing for any other, and none behind a final barline.
Rect InkOfCourtesy(const Measure* measure);
void PaintCourtesy(GraphicPort& port, const Measure* measure);

}  // namespace corvane
