// Places of beams: their strokes, stubs and slopes. Figures are worked out by hand for a line distance of
// 100.
#include "base/Rounding.h"
#include "geometry_fixture.h"

namespace corvane::draw {
namespace {

using enum StemDirection;

class BeamGeometryTest : public GeometryTest {
protected:
    // Stems up on line 5 at 0, 200, 400 ..., each with a length of 350.
    Beam* Beamed(const std::vector<uint8_t>& values, StemDirection direction = StemDirection::Up) {
        posts.clear();
        std::vector<BeamSymbol*> symbols;
        for (size_t i = 0; i < values.size(); ++i) {
            posts.push_back(
                StemOf(Add({8, {5}, static_cast<int32_t>(200 * i), direction, "Quarto", 350, false})));
            symbols.push_back(posts.back());
        }
        return AddBeam(symbols, values, IsUp(direction) ? 'U' : 'D');
    }
    static BeamMarker* MarkerAt(const Beam* beam, int place) {
        BeamMarker* marker = beamMarkers.First(beam);
        while (place-- > 0) marker = beamMarkers.Next(marker);
        return marker;
    }
    // "level:left..right" of each stroke, from the first stem's left edge.
    std::string Picture(const Beam* beam) const {
        std::string text;
        const int32_t left = StemInk(Column(posts[0])).left, y = LineOf(posts[0]).end;
        for (const BeamStroke& s : StrokesOf(beam))
            text += (text.empty() ? "" : " ") + std::to_string((s.from.y - y) / 84) + ":" +
                    std::to_string(s.from.x - left) + ".." + std::to_string(s.to.x - left);
        return text;
    }
    std::vector<Stem*> posts;
};

TEST_F(BeamGeometryTest, EachLevelJoinsTheMarkersThatReachIt) {
    EXPECT_EQ(Picture(Beamed({8, 8})), "0:0..212")
        << "from the outer edge of the first stem to that of the last";
    EXPECT_EQ(Picture(Beamed({16, 16, 16})), "0:0..412 1:0..412") << "one stroke a run";
    EXPECT_EQ(Picture(Beamed({16, 16, 8, 16})), "0:0..612 1:0..212 1:528..612")
        << "a stub of two thicknesses";
    EXPECT_EQ(Picture(Beamed({8, 32, 8})), "0:0..412 1:200..284 2:200..284");
    EXPECT_EQ(Picture(Beamed({16, 16}, Down)), "0:0..212 -1:0..212") << "towards the heads";
    EXPECT_EQ(StrokesOf(Beamed({8, 8}))[0].thickness, 42);

    Beam* cut = Beamed({32, 32, 32, 32});
    MarkerAt(cut, 1)->_rightValue = uint8_t{8};
    EXPECT_EQ(Picture(cut), "0:0..612 1:0..212 1:400..612 2:0..212 2:400..612")
        << "cut to the eighth-note level";
    MarkerAt(cut, 1)->_rightValue = uint8_t{16};
    EXPECT_EQ(Picture(cut), "0:0..612 1:0..612 2:0..212 2:400..612") << "at the larger value of 16ths";
    Beam* left = Beamed({8, 16, 8});
    MarkerAt(left, 1)->_stubSide = uint8_t{'L'};
    EXPECT_EQ(Picture(left), "0:0..412 1:128..212");
    EXPECT_EQ(Picture(Beamed({16})), "0:-72..12 1:-72..12") << "over one stem, in place of its flag";
}

TEST_F(BeamGeometryTest, AllLevelsSlopeWithTheEndsOfTheStems) {
    Beam* beam = Beamed({16, 8, 16});
    SetEnd(posts[2], LineOf(posts[2]).end - 68);  // 0.17 over 400
    const int32_t y = LineOf(posts[0]).end;
    const std::vector<BeamStroke> strokes = StrokesOf(beam);
    ASSERT_EQ(strokes.size(), 3u);
    EXPECT_EQ(strokes[0].from.y, y + 1) << "6 units before the middle of the first stem";
    EXPECT_EQ(strokes[0].to.y, y - 69);
    EXPECT_EQ(strokes[1].to.y, y + 84 - Round((84 - 6) * 0.17)) << "the stub slopes as well";
    const Rect rect = RectOf(MarkerAt(beam, 0));
    EXPECT_TRUE(RectOf(MarkerAt(beam, 1)).IsEmpty());
    EXPECT_LE(rect.top, y - 69 - 21);
    EXPECT_GE(rect.bottom, y + 84 + 21);
}

TEST_F(BeamGeometryTest, ARestUnderABeamIsReachedFromItsNearerEdge) {
    posts.clear();
    Stem* first = StemOf(Add({8, {5}, 0, StemDirection::Up, "Quarto", 350, false}));
    Pause* rest = AddRest(voice, 8, 300);
    Stem* last = StemOf(Add({8, {5}, 600, StemDirection::Up, "Quarto", 350, false}));
    posts = {first, last};
    Beam* beam = AddBeam({first, rest, last}, {16, 16, 16}, 'U');
    EXPECT_EQ(StrokesOf(beam).size(), 2u);
    MarkerAt(beam, 1)->_drawToRest = 1;
    const std::vector<BeamStroke> strokes = StrokesOf(beam);
    ASSERT_EQ(strokes.size(), 3u);
    EXPECT_EQ(strokes[2].from, (Point{BeamXOf(rest), RectOf(rest).top}));
    EXPECT_EQ(strokes[2].to, (Point{BeamXOf(rest), LineOf(first).end}));
    EXPECT_TRUE(StrokesOf(AddBeam({AddRest(voice, 8, 700)}, {8}, 'U')).empty()) << "no stem, no beam";
}

}  // namespace
}  // namespace corvane::draw
