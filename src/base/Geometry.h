// Points and rectangles of page units (1512 to the inch) or device pixels; y grows downward. Plain values.
#pragma once

#include <algorithm>
#include <cstdint>

namespace corvane {

struct Point {
    int32_t x = 0, y = 0;

    friend constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr bool operator==(Point, Point) = default;
};

// Left and top belong to the rectangle, right and bottom do not. Empty where right <= left or bottom <= top.
struct Rect {
    int32_t left = 0, top = 0, right = 0, bottom = 0;

    constexpr int32_t Width() const { return right - left; }
    constexpr int32_t Height() const { return bottom - top; }
    constexpr bool IsEmpty() const { return right <= left || bottom <= top; }
    constexpr Rect MovedBy(int32_t dx, int32_t dy) const {
        return {left + dx, top + dy, right + dx, bottom + dy};
    }
    constexpr Rect GrownBy(int32_t d) const { return {left - d, top - d, right + d, bottom + d}; }
    constexpr bool Meets(const Rect& o) const {
        return left < o.right && o.left < right && top < o.bottom && o.top < bottom;
    }
    // Strictly inside: a point on any edge is outside, as hit tests want it.
    constexpr bool EnclosesStrictly(Point p) const {
        return left < p.x && p.x < right && top < p.y && p.y < bottom;
    }
    // With left <= right and top <= bottom, whichever corner came first.
    constexpr Rect Normalised() const {
        return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
    }
    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

// The smallest rectangle around both; an empty one adds nothing.
constexpr Rect Union(const Rect& a, const Rect& b) {
    if (a.IsEmpty()) return b;
    if (b.IsEmpty()) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

// What both share; empty where they do not meet.
constexpr Rect Intersection(const Rect& a, const Rect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

}  // namespace corvane
