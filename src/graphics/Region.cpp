#include "graphics/Region.h"

#include <cmath>

#include "base/Assert.h"
#include "base/Rounding.h"

namespace corvane {
namespace {

using Rects = std::vector<Rect>;

struct Span {
    int32_t left, right;
    friend bool operator==(const Span&, const Span&) = default;
};

// Appends rows from the top down and keeps the form: equal rows that touch become one.
class RowWriter {
public:
    void Add(int32_t top, int32_t bottom, const std::vector<Span>& spans) {
        if (spans.empty() || bottom <= top) return;
        if (_bottom == top && spans == _last) {
            for (size_t i = _rowStart; i < rects.size(); ++i) rects[i].bottom = bottom;
        } else {
            _rowStart = rects.size();
            for (const Span& span : spans) rects.push_back({span.left, top, span.right, bottom});
            _last = spans;
        }
        _bottom = bottom;
    }

    Rects rects;

private:
    size_t _rowStart = 0;
    int32_t _bottom = INT32_MIN;
    std::vector<Span> _last;
};

// Reads rows from the top down: what covers a strip of y, and where that next changes.
class RowReader {
public:
    explicit RowReader(const Rects& rects) : _rects(rects) {}

    // The spans of the row at y; y never goes back.
    void SpansAt(int32_t y, std::vector<Span>& spans) {
        spans.clear();
        while (_i < _rects.size() && _rects[_i].bottom <= y) ++_i;
        if (_i == _rects.size() || _rects[_i].top > y) return;
        for (size_t i = _i; i < _rects.size() && _rects[i].top == _rects[_i].top; ++i)
            spans.push_back({_rects[i].left, _rects[i].right});
    }

    // The next y past the one asked for where the row may change; INT32_MAX after the last.
    int32_t NextEdge(int32_t y) const {
        if (_i == _rects.size()) return INT32_MAX;
        return _rects[_i].top > y ? _rects[_i].top : _rects[_i].bottom;
    }

private:
    const Rects& _rects;
    size_t _i = 0;
};

// Indexed by (in the first) + 2 * (in the second).
struct Rule {
    bool inside[4];
};
constexpr Rule kUnion{{false, true, true, true}};
constexpr Rule kIntersection{{false, false, false, true}};
constexpr Rule kDifference{{false, true, false, false}};

void CombineSpans(const std::vector<Span>& a, const std::vector<Span>& b, const Rule& rule,
                  std::vector<Span>& out) {
    out.clear();
    const auto edge = [](const std::vector<Span>& s, size_t i) {
        return i / 2 == s.size() ? INT32_MAX : i % 2 ? s[i / 2].right : s[i / 2].left;
    };
    size_t ia = 0, ib = 0;
    bool inside = false;
    while (ia < 2 * a.size() || ib < 2 * b.size()) {
        const int32_t x = std::min(edge(a, ia), edge(b, ib));
        if (edge(a, ia) == x) ++ia;
        if (edge(b, ib) == x) ++ib;
        const bool now = rule.inside[(ia % 2) + 2 * (ib % 2)];
        if (now && !inside) out.push_back({x, x});
        if (!now && inside) out.back().right = x;
        inside = now;
    }
}

Rects Combine(const Rects& a, const Rects& b, const Rule& rule) {
    if (a.empty() && b.empty()) return {};
    RowReader readA(a), readB(b);
    RowWriter writer;
    std::vector<Span> spansA, spansB, spans;
    int32_t y = INT32_MIN;
    while (y != INT32_MAX) {
        readA.SpansAt(y, spansA);
        readB.SpansAt(y, spansB);
        const int32_t next = std::min(readA.NextEdge(y), readB.NextEdge(y));
        CombineSpans(spansA, spansB, rule, spans);
        writer.Add(y, next, spans);
        y = next;
    }
    return std::move(writer.rects);
}

// The first pixel whose centre is at or past x.
int32_t FirstCentreFrom(double x) { return Truncate(std::ceil(x - 0.5)); }

Rects EllipseRects(const Rect& bounds) {
    RowWriter writer;
    if (bounds.IsEmpty()) return {};
    const double radiusX = bounds.Width() * 0.5, radiusY = bounds.Height() * 0.5;
    const double centreX = bounds.left + radiusX, centreY = bounds.top + radiusY;
    for (int32_t y = bounds.top; y < bounds.bottom; ++y) {
        const double rise = (y + 0.5 - centreY) / radiusY;
        const double reach = radiusX * std::sqrt(std::max(0.0, 1 - rise * rise));
        const Span span{FirstCentreFrom(centreX - reach), Truncate(std::floor(centreX + reach - 0.5)) + 1};
        if (span.left < span.right) writer.Add(y, y + 1, {span});
    }
    return std::move(writer.rects);
}

struct Crossing {
    double x;
    int turn;  // +1 for an edge that goes down, -1 for one that goes up
};

// Where the outline crosses the middle of the pixel row y, from left to right.
std::vector<Crossing> CrossingsOf(const std::vector<Point>& points, int32_t y) {
    std::vector<Crossing> crossings;
    const double middle = y + 0.5;
    for (size_t i = 0; i < points.size(); ++i) {
        const Point p = points[i], q = points[(i + 1) % points.size()];
        if ((p.y <= y) == (q.y <= y)) continue;
        const double x = p.x + (middle - p.y) * (double{1} * q.x - p.x) / (double{1} * q.y - p.y);
        crossings.push_back({x, p.y < q.y ? 1 : -1});
    }
    std::sort(crossings.begin(), crossings.end(),
              [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    return crossings;
}

Rects PolygonRects(const std::vector<Point>& points) {
    RowWriter writer;
    const auto [low, high] =
        std::minmax_element(points.begin(), points.end(), [](Point a, Point b) { return a.y < b.y; });
    std::vector<Span> spans;
    for (int32_t y = low->y; y < high->y; ++y) {
        spans.clear();
        int winding = 0;
        double start = 0;
        for (const Crossing& c : CrossingsOf(points, y)) {
            if (winding == 0) start = c.x;
            winding += c.turn;
            const Span span{FirstCentreFrom(start), FirstCentreFrom(c.x)};
            if (winding != 0 || span.right <= span.left) continue;
            if (!spans.empty() && spans.back().right == span.left)
                spans.back().right = span.right;
            else
                spans.push_back(span);
        }
        writer.Add(y, y + 1, spans);
    }
    return std::move(writer.rects);
}

}  // namespace

WRegion WRegion::OfRect(int16_t zoomRatio, const Rect& rect) {
    WRegion region(zoomRatio);
    if (!rect.IsEmpty()) region._rects.push_back(rect);
    return region;
}

WRegion WRegion::Everything(int16_t zoomRatio) {
    constexpr int32_t kFar = 1 << 29;
    return OfRect(zoomRatio, {-kFar, -kFar, kFar, kFar});
}

Rect WRegion::BoundingBox() const {
    Rect box;
    for (const Rect& r : _rects) box = Union(box, r);
    return box;
}

bool WRegion::PointIn(Point p) const { return Meets({p.x, p.y, p.x + 1, p.y + 1}); }

bool WRegion::Meets(const Rect& rect) const {
    if (rect.IsEmpty()) return false;
    for (const Rect& r : _rects) {
        if (r.top >= rect.bottom) return false;
        if (r.Meets(rect)) return true;
    }
    return false;
}

bool WRegion::Equals(const WRegion& other) const {
    CORVANE_ASSERT_AS(_zoomRatio == other._zoomRatio, "_zoomRatio == macRegion._zoomRatio");
    return _rects == other._rects;
}

void WRegion::Offset(int32_t dx, int32_t dy) {
    for (Rect& r : _rects) r = r.MovedBy(dx, dy);
}

void WRegion::Unite(const WRegion& other) {
    CORVANE_ASSERT_AS(_zoomRatio == other._zoomRatio, "_zoomRatio == macRegion._zoomRatio");
    _rects = Combine(_rects, other._rects, kUnion);
}

void WRegion::Intersect(const WRegion& other) {
    CORVANE_ASSERT_AS(_zoomRatio == other._zoomRatio, "_zoomRatio == macRegion._zoomRatio");
    _rects = Combine(_rects, other._rects, kIntersection);
}

void WRegion::Subtract(const WRegion& other) {
    CORVANE_ASSERT_AS(_zoomRatio == other._zoomRatio, "_zoomRatio == macRegion._zoomRatio");
    _rects = Combine(_rects, other._rects, kDifference);
}

void WRegion::AddRect(const Rect& rect) { Unite(OfRect(_zoomRatio, rect)); }

void WRegion::AddEllipse(const Rect& bounds) { _rects = Combine(_rects, EllipseRects(bounds), kUnion); }

void WRegion::SubtractEllipse(const Rect& bounds) {
    _rects = Combine(_rects, EllipseRects(bounds), kDifference);
}

void WRegion::AddPolygon(const std::vector<Point>& points) {
    CORVANE_ASSERT_AS(!points.empty(), "theRegion && n && pvec");
    _rects = Combine(_rects, PolygonRects(points), kUnion);
}

void WRegion::Rescale(int16_t zoomRatio) {
    const Rect box = BoundingBox();
    if (_zoomRatio != 0) {
        const double factor = double{1} * zoomRatio / _zoomRatio;
        *this = OfRect(zoomRatio, {Round(box.left * factor), Round(box.top * factor),
                                   Round(box.right * factor), Round(box.bottom * factor)});
    }
    _zoomRatio = zoomRatio;
}

}  // namespace corvane
