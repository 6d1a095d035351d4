// A set of device pixels, made at some zoom: what is selected, what may be painted.
#pragma once

#include <cstdint>
#include <vector>

#include "base/Geometry.h"

namespace corvane {

// All coordinates here are scaled ones (GraphicPort::Scale of page units, neither origin nor device offset
// applied), so a region stays true while its view scrolls. Two regions combine only at one zoom; another is
// our own mistake. Kept as disjoint rectangles in bands: rows sorted by top, rectangles of a row sorted by
// left, no two touching sideways, no two equal rows stacked. A plain value.
class WRegion {
public:
    explicit WRegion(int16_t zoomRatio) : _zoomRatio(zoomRatio) {}
    static WRegion OfRect(int16_t zoomRatio, const Rect& rect);
    // No bound that any page could reach.
    static WRegion Everything(int16_t zoomRatio);

    int16_t ZoomRatio() const { return _zoomRatio; }
    const std::vector<Rect>& Rects() const { return _rects; }
    Rect BoundingBox() const;  // all zero where empty

    bool IsEmpty() const { return _rects.empty(); }
    bool PointIn(Point p) const;
    bool Meets(const Rect& rect) const;
    // Whether both hold the same pixels.
    bool Equals(const WRegion& other) const;

    void Clear() { _rects.clear(); }
    void Offset(int32_t dx, int32_t dy);
    void Unite(const WRegion& other);
    void Intersect(const WRegion& other);
    void Subtract(const WRegion& other);

    // An empty rectangle adds nothing. A pixel belongs to an ellipse or polygon that its centre lies in.
    void AddRect(const Rect& rect);
    void AddEllipse(const Rect& bounds);
    void SubtractEllipse(const Rect& bounds);
    // Closed by itself; where it crosses itself, what it winds around is inside.
    void AddPolygon(const std::vector<Point>& points);

    // Becomes its bounding box at another zoom. A region of zoom 0 only takes the number.
    void Rescale(int16_t zoomRatio);

private:
    int16_t _zoomRatio;
    std::vector<Rect> _rects;
};

}  // namespace corvane
