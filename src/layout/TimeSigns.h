// A time signature wherever it is shown: its symbol, drawn from `at` on the middle line with the side letter
// 'l', and the note under its numerator where its meter shows one.
#pragma once

#include "base/Geometry.h"
#include "graphics/GraphicPort.h"
#include "model/Relations.h"

namespace corvane {

Rect InkOfTime(const TimeSignature& time, Point at, int32_t lineDistance);
void PaintTime(GraphicPort& port, const TimeSignature& time, Point at, int32_t lineDistance);

}  // namespace corvane
