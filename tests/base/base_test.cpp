#include <gtest/gtest.h>

#include "base/Assert.h"
#include "base/BigEndian.h"
#include "base/Geometry.h"
#include "base/Rounding.h"

namespace corvane {
namespace {

TEST(Rounding, HalvesGoAwayFromZeroAndAbsurdValuesSaturate) {
    const struct {
        const char* why;
        double value;
        int32_t rounded, truncated;
    } cases[] = {
        {"half up", 2.5, 3, 2},
        {"half down", -2.5, -3, -2},
        {"below half", 2.4999, 2, 2},
        {"negative truncation goes to zero", -0.9, -1, 0},
        {"too large", 1e12, 2147483647, 2147483647},
        {"too small", -1e12, -2147483648, -2147483648},
        {"no number", NAN, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Round(c.value), c.rounded);
        EXPECT_EQ(Truncate(c.value), c.truncated);
    }
}

TEST(Geometry, EdgesAreOutsideForHitsAndEmptyRectanglesAddNothing) {
    const Rect r{10, 20, 30, 40};
    EXPECT_TRUE(r.EnclosesStrictly({11, 21}));
    EXPECT_FALSE(r.EnclosesStrictly({10, 25}));
    EXPECT_FALSE(r.EnclosesStrictly({15, 40}));
    EXPECT_FALSE(r.Meets({30, 20, 50, 40})) << "rectangles that share an edge do not meet";
    EXPECT_EQ(Union(r, Rect{}), r);
    EXPECT_EQ(Union(r, Rect(0, 0, 5, 5)), Rect(0, 0, 30, 40));
    EXPECT_TRUE(Intersection(r, Rect(31, 0, 40, 50)).IsEmpty());
    EXPECT_EQ(Rect(30, 40, 10, 20).Normalised(), r);
}

TEST(BigEndian, ReadsWhatItWroteAndReversesInPlace) {
    uint8_t bytes[4];
    WriteBig32(bytes, 0x01020304u);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(ReadBig32(bytes), 0x01020304u);
    EXPECT_EQ(ReadBig16(bytes + 1), 0x0203);
    ReverseBytes(bytes, 4);
    EXPECT_EQ(ReadBig32(bytes), 0x04030201u);
}

TEST(AssertDeathTest, ShowsExpressionSourceAndLineAfterTheLastWords) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(CORVANE_ASSERT_AS(1 == 2, "s && b"),
                 "Assertion \\(s && b\\) failed in \"base_test.cpp\" on line [0-9]+");
    EXPECT_DEATH(
        {
            SetLastWords([] { fputs("work is safe", stderr); });
            CORVANE_ASSERT(false);
        },
        "work is safe");
}

}  // namespace
}  // namespace corvane
