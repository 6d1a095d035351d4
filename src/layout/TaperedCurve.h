// The shape of slurs and ties: a cubic, thick in the middle and thin at its tips. Absolute page units.
#pragma once

#include <vector>

#include "graphics/GraphicPort.h"

namespace corvane {

struct TaperedCurve {
    Point from, control1, control2, to;
    int32_t tip = 0, middle = 0;  // thickness

    bool IsEmpty() const { return from.x >= to.x; }
};

// From tip to tip, arching `height` beyond the straight line between them, upward or downward; `shoulder` is
// how far the control points stand in from the tips, per mille of the length.
TaperedCurve ArchOf(Point from, Point to, int32_t height, bool above, int32_t shoulder);

// Points along its middle, both tips included.
std::vector<Point> PointsAlong(const TaperedCurve& curve);
Rect InkOf(const TaperedCurve& curve);
void Paint(GraphicPort& port, const TaperedCurve& curve);

}  // namespace corvane
