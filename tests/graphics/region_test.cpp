// Regions against a bitmap that is filled pixel by pixel.
#include "graphics/Region.h"

#include <gtest/gtest.h>

#include <random>

namespace corvane {
namespace {

constexpr int kSide = 32;

struct Bitmap {
    bool bits[kSide][kSide] = {};

    template <typename Rule>
    void Apply(Rule rule) {
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x) bits[y][x] = rule(x, y, bits[y][x]);
    }
};

bool InRect(const Rect& r, int x, int y) { return r.left <= x && x < r.right && r.top <= y && y < r.bottom; }

// In whole numbers: twice the distances from the middle, times the other diameter.
bool InEllipse(const Rect& r, int x, int y) {
    if (r.IsEmpty()) return false;
    const int64_t w = r.Width(), h = r.Height();
    const int64_t dx = (2 * x + 1 - (r.left + r.right)) * h, dy = (2 * y + 1 - (r.top + r.bottom)) * w;
    return dx * dx + dy * dy <= w * w * h * h;
}

// Adds up the turns of the edges to the left of the pixel's centre.
bool InPolygon(const std::vector<Point>& points, int x, int y) {
    int winding = 0;
    for (size_t i = 0; i < points.size(); ++i) {
        Point p = points[i], q = points[(i + 1) % points.size()];
        const int turn = p.y < q.y ? 1 : -1;
        if (p.y > q.y) std::swap(p, q);
        if (!(2 * p.y < 2 * y + 1 && 2 * y + 1 < 2 * q.y)) continue;
        // The crossing is at p.x + (y + 1/2 - p.y)(q.x - p.x) / (q.y - p.y).
        if ((2 * y + 1 - 2 * p.y) * (q.x - p.x) <= (2 * x + 1 - 2 * p.x) * (q.y - p.y)) winding += turn;
    }
    return winding != 0;
}

class Dice {
public:
    explicit Dice(unsigned seed) : _random(seed) {}
    int Below(int n) { return static_cast<int>(_random() % static_cast<unsigned>(n)); }
    Rect AnyRect() { return Rect{Below(kSide), Below(kSide), Below(kSide), Below(kSide)}.Normalised(); }
    std::vector<Point> AnyPolygon() {
        std::vector<Point> points(static_cast<size_t>(3 + Below(5)));
        for (Point& p : points) p = {Below(kSide), Below(kSide)};
        return points;
    }

private:
    std::mt19937 _random;
};

void ChangeBoth(Dice& dice, WRegion& region, Bitmap& bitmap) {
    const Rect r = dice.AnyRect();
    const auto points = dice.AnyPolygon();
    const WRegion other = [&] {
        WRegion made = WRegion::OfRect(100, r);
        made.AddEllipse(dice.AnyRect());
        return made;
    }();
    const auto inOther = [&](int x, int y) { return other.PointIn({x, y}); };
    switch (dice.Below(7)) {
        case 0:
            region.AddRect(r), bitmap.Apply([&](int x, int y, bool b) { return b || InRect(r, x, y); });
            break;
        case 1:
            region.AddEllipse(r), bitmap.Apply([&](int x, int y, bool b) { return b || InEllipse(r, x, y); });
            break;
        case 2:
            region.SubtractEllipse(r);
            bitmap.Apply([&](int x, int y, bool b) { return b && !InEllipse(r, x, y); });
            break;
        case 3:
            region.AddPolygon(points);
            bitmap.Apply([&](int x, int y, bool b) { return b || InPolygon(points, x, y); });
            break;
        case 4:
            region.Unite(other), bitmap.Apply([&](int x, int y, bool b) { return b || inOther(x, y); });
            break;
        case 5:
            region.Intersect(other), bitmap.Apply([&](int x, int y, bool b) { return b && inOther(x, y); });
            break;
        case 6:
            region.Subtract(other), bitmap.Apply([&](int x, int y, bool b) { return b && !inOther(x, y); });
            break;
    }
}

void ExpectSame(const WRegion& region, const Bitmap& bitmap) {
    WRegion rebuilt(100);
    int64_t area = 0, pixels = 0;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            ASSERT_EQ(region.PointIn({x, y}), bitmap.bits[y][x]) << x << " " << y;
            if (bitmap.bits[y][x]) rebuilt.AddRect({x, y, x + 1, y + 1}), ++pixels;
        }
    for (const Rect& r : region.Rects()) area += int64_t{1} * r.Width() * r.Height();
    EXPECT_EQ(area, pixels) << "rectangles overlap or are empty";
    EXPECT_TRUE(region.Equals(rebuilt)) << "one set of pixels has one form";
    EXPECT_EQ(region.BoundingBox(), rebuilt.BoundingBox());
    EXPECT_EQ(region.IsEmpty(), pixels == 0);
}

TEST(Region, AgreesWithABitmapOverRandomChanges) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        WRegion region(100);
        Bitmap bitmap;
        for (int step = 0; step < 15; ++step) {
            ChangeBoth(dice, region, bitmap);
            ExpectSame(region, bitmap);
            if (HasFatalFailure()) return;
        }
        const Rect probe = dice.AnyRect();
        bool meets = false;
        bitmap.Apply([&](int x, int y, bool b) { return meets |= b && InRect(probe, x, y), b; });
        EXPECT_EQ(region.Meets(probe), meets);
    }
}

TEST(Region, MovesRescalesAndClears) {
    WRegion region = WRegion::OfRect(100, {10, 10, 20, 20});
    region.AddRect({40, 30, 51, 41});
    WRegion moved = region;
    moved.Offset(-5, 7);
    EXPECT_EQ(moved.BoundingBox(), (Rect{5, 17, 46, 48}));
    EXPECT_FALSE(moved.Equals(region));
    moved.Offset(5, -7);
    EXPECT_TRUE(moved.Equals(region));
    region.Rescale(150);
    EXPECT_EQ(region.Rects(), (std::vector<Rect>{{15, 15, 77, 62}})) << "the bounding box only";
    EXPECT_EQ(region.ZoomRatio(), 150);
    region.Clear();
    EXPECT_TRUE(region.IsEmpty());
    EXPECT_EQ(region.BoundingBox(), Rect{});
}

TEST(RegionDeathTest, RegionsOfTwoZoomsDoNotCombine) {
    WRegion a(100), b(105);
    EXPECT_DEATH(a.Unite(b), "_zoomRatio == macRegion._zoomRatio");
    EXPECT_DEATH(a.Intersect(b), "_zoomRatio == macRegion._zoomRatio");
    EXPECT_DEATH(a.Subtract(b), "_zoomRatio == macRegion._zoomRatio");
    EXPECT_DEATH((void)a.Equals(b), "_zoomRatio == macRegion._zoomRatio");
}

}  // namespace
}  // namespace corvane
