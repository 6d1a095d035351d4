// Slurs: the first mark on each system draws the piece that stands there.
#include "layout/DrawFamilies.h"
#include "layout/SlurShape.h"

namespace corvane {

Rect InkOf(const MarkSlur& mark) { return InkOf(CurveOf(mark)); }
void Paint(GraphicPort& port, const MarkSlur& mark, const DrawContext&) { Paint(port, CurveOf(mark)); }
std::vector<Point> OutlineOf(const MarkSlur& mark) {
    const TaperedCurve curve = CurveOf(mark);
    return curve.IsEmpty() ? std::vector<Point>{} : PointsAlong(curve);
}

}  // namespace corvane
