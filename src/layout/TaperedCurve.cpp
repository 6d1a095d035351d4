#include "layout/TaperedCurve.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"

namespace corvane {
namespace {

// Straight steps along a curve: as many as keep it within half a unit, for half the swell too, yet even, so
// that one ends in the middle.
constexpr int kLeastSteps = 8, kMostSteps = 24;
// A cubic reaches this part of the way to control points that stand equally far out.
constexpr double kReach = 0.75;

struct Exact {
    double x, y;
};

Exact At(const TaperedCurve& c, double t) {
    const double s = 1 - t;
    const double a = s * s * s, b = 3 * s * s * t, d = 3 * s * t * t, e = t * t * t;
    return {a * c.from.x + b * c.control1.x + d * c.control2.x + e * c.to.x,
            a * c.from.y + b * c.control1.y + d * c.control2.y + e * c.to.y};
}

int StepsOf(const TaperedCurve& c) {
    const Point tip = c.from, other = c.to;
    const auto out = [&](Point control) {
        const double dx = other.x - tip.x, dy = other.y - tip.y, length = std::hypot(dx, dy);
        const double x = control.x - tip.x, y = control.y - tip.y;
        return length > 0 ? std::abs(x * dy - y * dx) / length : std::hypot(x, y);
    };
    const double bulge = kReach * std::max(out(c.control1), out(c.control2)) + 0.5 * c.middle;
    return std::clamp(2 * Round(std::sqrt(2 * bulge) / 2 + 0.5), kLeastSteps, kMostSteps);
}

// A unit vector across the straight line between the tips.
Exact Across(const TaperedCurve& c) {
    const double dx = c.to.x - c.from.x, dy = c.to.y - c.from.y, length = std::hypot(dx, dy);
    return length > 0 ? Exact{-dy / length, dx / length} : Exact{0, 1};
}

// The edge on one side: half the tip's thickness out at the tips, half the middle's in the middle.
Point EdgeAt(const TaperedCurve& curve, Exact across, double t, double side) {
    const Exact middle = At(curve, t);
    const double swell = 4 * t * (1 - t);
    const double out = side * 0.5 * (curve.tip + (curve.middle - curve.tip) * swell);
    return {Round(middle.x + across.x * out), Round(middle.y + across.y * out)};
}

std::vector<Point> OutlineOf(const TaperedCurve& curve) {
    const Exact across = Across(curve);
    const int steps = StepsOf(curve);
    std::vector<Point> outline;
    outline.reserve(2 * static_cast<size_t>(steps) + 2);
    for (int i = 0; i <= steps; ++i) outline.push_back(EdgeAt(curve, across, double(i) / steps, 1));
    for (int i = steps; i >= 0; --i) outline.push_back(EdgeAt(curve, across, double(i) / steps, -1));
    return outline;
}

}  // namespace

TaperedCurve ArchOf(Point from, Point to, int32_t height, bool above, int32_t shoulder) {
    const double dx = to.x - from.x, dy = to.y - from.y, length = std::max(1.0, std::hypot(dx, dy));
    const double out = (above ? -1 : 1) * height / kReach, in = shoulder / 1000.0;
    const Exact across{-dy / length * out, dx / length * out};
    TaperedCurve curve;
    curve.from = from;
    curve.control1 = {Round(from.x + in * dx + across.x), Round(from.y + in * dy + across.y)};
    curve.control2 = {Round(to.x - in * dx + across.x), Round(to.y - in * dy + across.y)};
    curve.to = to;
    return curve;
}

std::vector<Point> PointsAlong(const TaperedCurve& curve) {
    std::vector<Point> points;
    for (int i = 0; i <= kMostSteps; ++i) {
        const Exact p = At(curve, i / double{kMostSteps});
        points.push_back({Round(p.x), Round(p.y)});
    }
    return points;
}

Rect InkOf(const TaperedCurve& curve) {
    if (curve.IsEmpty()) return {};
    Rect ink{curve.from.x, curve.from.y, curve.from.x, curve.from.y};
    for (const Point p : OutlineOf(curve))
        ink = {std::min(ink.left, p.x), std::min(ink.top, p.y), std::max(ink.right, p.x + 1),
               std::max(ink.bottom, p.y + 1)};
    return ink;
}

void Paint(GraphicPort& port, const TaperedCurve& curve) {
    if (!curve.IsEmpty()) port.FillPolygon(OutlineOf(curve));
}

}  // namespace corvane
