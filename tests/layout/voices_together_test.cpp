// Voices that share a staff make room for each other. Figures are worked out by hand for a line distance of
// 100.
#include "draw_score.h"
#include "layout/AccidentalColumns.h"
#include "layout/Frames.h"
#include "layout/VoicesTogether.h"

namespace corvane::draw {
namespace {

using enum StemDirection;

class VoicesTogether : public DrawTest {
protected:
    VoicesTogether() { Clear(); }
    void Clear() {
        New("S", 2, 1);
        upper = VoiceOfStaff(0, 0);
        lower = MakeVoice(MeasureStaffPar(upper), 2);
        bottom = FrameOf(StaffsFromTop(SystemAt(0))[0]).Bottom();
    }
    Voice *upper = nullptr, *lower = nullptr;
    int32_t bottom = 0;
};

TEST_F(VoicesTogether, HeadsThatWouldTouchStandSideBySide) {
    const struct {
        const char* why;
        uint8_t value;  // of the upper one; the lower one is a quarter
        std::vector<int16_t> above, below;
        int heads, more;  // how far right the lower column stands: heads of the upper one, and units
    } cases[] = {
        {"a third apart", 4, {5}, {3}, 0, 0},
        {"a second", 4, {5}, {4}, 1, 0},
        {"crossing: a tenth of a space between them", 4, {4}, {6}, 1, 10},
        {"a unison has one head", 4, {5}, {5}, 0, 0},
        {"an eighth's looks like a quarter's", 8, {5}, {5}, 0, 0},
        {"a half's does not", 2, {5}, {5}, 1, 0},
        {"of chords the nearest heads count", 4, {9, 5}, {4, 1}, 1, 0},
        {"and chords within each other cross", 4, {9, 2}, {5, 4}, 1, 10},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear();
        ChordSymbol* own = AddChord(lower, {4, c.below, 300, Down});
        const int32_t alone = RectOf(HeadOf(own)).left;
        ChordSymbol* other = AddChord(upper, {c.value, c.above, 300, Up, c.value == 2 ? "Meta" : "Quarto"});
        const int32_t shift = c.heads * HeadWidth(StemOf(other)) + c.more;
        EXPECT_EQ(VoiceShift(StemOf(own)), shift);
        EXPECT_EQ(RectOf(HeadOf(own)).left, alone + shift);
        EXPECT_EQ(StemOf(own)->_x, 300) << "what is stored stays";
        EXPECT_EQ(VoiceShift(StemOf(other)), 0) << "stems that point up stay where they are";
    }
    Clear();
    ChordSymbol* own = AddChord(lower, {4, {4}, 300, Down});
    AddChord(upper, {4, {5}, 304, Up});
    EXPECT_EQ(VoiceShift(StemOf(own)), 0) << "four per mille later they do not sound together";
}

TEST_F(VoicesTogether, RestsThatNobodyMovedMakeWay) {
    const auto up = [&](const Pause* rest) { return bottom - PlaceOf(rest).y; };
    const Pause *first = AddRest(upper, 4, 0), *moved = AddRest(upper, 4, 200, 2500);
    EXPECT_EQ(up(first), 200) << "alone in the middle";
    const Pause* second = AddRest(lower, 4, 500);
    EXPECT_EQ(up(first), 400) << "two spaces above it";
    EXPECT_EQ(up(second), 0) << "two spaces below";
    EXPECT_EQ(up(moved), 150) << "where a hand has put it";
}

TEST_F(VoicesTogether, AccidentalsOfBothStandInOneSetOfColumnsAndDotsBehindBoth) {
    const struct {
        const char* why;
        int16_t line;  // of the lower one; the upper one is on 9
        int column;
    } cases[] = {{"six steps apart: above each other", 3, 0}, {"five: a column further left", 4, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear();
        ChordSymbol *above = AddChord(upper, {4, {9}, 300, Up}),
                    *below = AddChord(lower, {4, {c.line}, 300, Down});
        const Accident *first = AddAccident(HeadOf(above), "#d"), *second = AddAccident(HeadOf(below), "#d");
        const int32_t heads = std::min(RectOf(above).left, RectOf(below).left);
        EXPECT_EQ(heads - RectOf(first).right, 20) << "110 less the usual width of 90";
        // The next column ends 15 before the one that is there, the least that is kept.
        EXPECT_EQ(heads - RectOf(second).right, 20 + c.column * (RectOf(first).Width() + 15));
    }
    Clear();
    ChordSymbol *above = AddChord(upper, {4, {5}, 300, Up}), *below = AddChord(lower, {4, {4}, 300, Down});
    const int32_t right = RectOf(HeadOf(below)).right;
    EXPECT_GT(right, RectOf(HeadOf(above)).right) << "a second";
    EXPECT_EQ(PlacesOf(AddDot(ChordOf(above), 1)), (std::vector<Point>{{right + 43, bottom - 250}}))
        << "100 less 57, half a usual head, behind the further of both";
    EXPECT_EQ(PlacesOf(AddDot(ChordOf(below), 1)), (std::vector<Point>{{right + 43, bottom - 150}}));
}

}  // namespace
}  // namespace corvane::draw
