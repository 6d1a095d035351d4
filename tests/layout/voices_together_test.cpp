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

TEST_F(VoicesTogether, VoicesThatPointTheSameWayPart) {
    const struct {
        const char* why;
        uint8_t value;  // of the inner one; the outer one is a quarter
        std::vector<int16_t> outer, inner;
        int heads;  // the inner one stands so many heads, with a tenth of a space for each, further right
    } cases[] = {
        {"a third apart their stems are one, as of a chord", 4, {7}, {5}, 0},
        {"a second", 4, {6}, {5}, 1},
        {"a second the other way round", 4, {5}, {6}, 1},
        {"a unison of one value", 4, {5}, {5}, 0},
        {"an eighth would lend its flag to the quarter", 8, {5}, {5}, 1},
        {"crossing in one value: a chord", 4, {7, 3}, {5}, 0},
        {"crossing in two", 8, {7, 3}, {5}, 1},
        {"nor may its stem end in the quarter's", 8, {9}, {3}, 1},
        {"far apart", 8, {12}, {3}, 0},
    };
    for (const auto direction : {Up, Down})
        for (const auto& c : cases) {
            SCOPED_TRACE(c.why);
            Clear();
            Voice* third = MakeVoice(MeasureStaffPar(upper), direction == Up ? 3 : 4);
            ChordSymbol* inner = AddChord(third, {c.value, c.inner, 300, direction});
            ChordSymbol* outer = AddChord(direction == Up ? upper : lower, {4, c.outer, 300, direction});
            EXPECT_EQ(VoiceShift(StemOf(inner)), c.heads * (HeadWidth(StemOf(outer)) + 10));
            EXPECT_EQ(VoiceShift(StemOf(outer)), 0);
        }
    Clear();
    Voice* third = MakeVoice(MeasureStaffPar(upper), 3);
    ChordSymbol *first = AddChord(upper, {4, {6}, 300, Up}), *inner = AddChord(third, {4, {5}, 300, Up}),
                *second = AddChord(lower, {4, {5}, 300, Down});
    const int32_t head = HeadWidth(StemOf(first));
    EXPECT_EQ(VoiceShift(StemOf(inner)), head + 10);
    EXPECT_EQ(VoiceShift(StemOf(second)), head + 10) << "a second with the first, a unison with the third";
    ChordSymbol* fourth = AddChord(MakeVoice(MeasureStaffPar(upper), 4), {8, {7}, 300, Down});
    EXPECT_EQ(VoiceShift(StemOf(fourth)), 2 * head + 20) << "in nobody's place";
}

TEST_F(VoicesTogether, EachRowOfDotsHasASpaceOfItsOwn) {
    const struct {
        const char* why;
        std::vector<int16_t> above, below;
        std::vector<int> spaces;  // those of the upper one first, from the highest
    } cases[] = {
        {"apart", {7}, {3}, {8, 4}},
        {"a line below its space: the lower one's go down", {6}, {5}, {6, 4}},
        {"a line above its space", {5}, {4}, {6, 4}},
        {"a shared head has one row", {5}, {5}, {6, 6}},
        {"chords: what is taken is passed", {8, 6}, {5, 4}, {8, 6, 4, 2}},
        {"crossing: the higher head's go up", {3}, {4}, {4, 6}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear();
        std::vector<int> spaces;
        for (const auto& [voice, lines, direction] :
             {std::tuple(upper, c.above, Up), std::tuple(lower, c.below, Down)})
            AddDot(ChordOf(AddChord(voice, {4, lines, 300, direction})), 1);
        for (const Voice* voice : {upper, lower})
            for (const Point place : PlacesOf(DotOf(voiceSymbols.First(voice))))
                spaces.push_back((bottom - place.y) / 50 + 1);
        EXPECT_EQ(spaces, c.spaces);
    }
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

TEST_F(VoicesTogether, RestsAtOnePlaceStandClearOfEachOtherAndOfHeads) {
    const auto spaces = [&](const Pause* rest) { return (bottom - 200 - PlaceOf(rest).y) / 100; };
    Voice *third = MakeVoice(MeasureStaffPar(upper), 3), *fourth = MakeVoice(MeasureStaffPar(upper), 4);
    const Pause *first = AddRest(upper, 4, 0), *inner = AddRest(third, 8, 10),
                *later = AddRest(third, 4, 300);
    EXPECT_EQ(spaces(inner), 2);
    EXPECT_EQ(spaces(first), 5) << "over the other, by the least of whole spaces";
    EXPECT_LT(RectOf(first).bottom, RectOf(inner).top);
    EXPECT_EQ(spaces(later), 2) << "nobody rests there";
    const Pause* second = AddRest(lower, 2, 500);
    AddRest(fourth, 2, 500)->_hidden = uint8_t{1};
    EXPECT_EQ(spaces(second), -2) << "a hidden one is in nobody's way";
    AddRest(fourth, 2, 500);
    EXPECT_EQ(spaces(second), -3) << "a half rest is less than a space high";
    for (int16_t above = 5; above < 15; ++above)
        for (int16_t below = -4; below + 2 < above; ++below) {
            SCOPED_TRACE(std::to_string(above) + " " + std::to_string(below));
            Clear();
            third = MakeVoice(MeasureStaffPar(upper), 3), fourth = MakeVoice(MeasureStaffPar(upper), 4);
            const GenericNote *one = HeadOf(AddChord(upper, {4, {above}, 300, Up})),
                              *two = HeadOf(AddChord(lower, {4, {below}, 300, Down}));
            const Pause *high = AddRest(third, 4, 300), *low = AddRest(fourth, 4, 300);
            const int wanted = above == 12 && below < 3 ? 1 : spaces(high);
            EXPECT_EQ(spaces(high), wanted) << "inward: there is room";
            const Rect inks[] = {RectOf(one), RectOf(two), RectOf(high), RectOf(low)};
            for (int i = 0; i < 4; ++i)
                for (int j = std::max(2, i + 1); j < 4; ++j)
                    EXPECT_TRUE(inks[i].bottom < inks[j].top || inks[j].bottom < inks[i].top) << i << j;
            EXPECT_GT(inks[1].top, inks[2].bottom) << "above the lower head";
        }
}

TEST_F(VoicesTogether, RestsStandClearOfAllThatChordsOfOtherVoicesDraw) {
    const auto meet = [](const Rect& a, const Rect& b) {
        return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
    };
    const struct {
        const char* why;
        uint8_t resting, playing;  // voices
        StemDirection direction;
        int32_t later;  // the chord's place behind the rest's
    } cases[] = {
        {"below the first voice", 2, 1, Up, 0},          {"above the second", 1, 2, Down, 0},
        {"above the third's stem", 1, 3, Up, 0},         {"below the fourth's", 2, 4, Down, 0},
        {"past an outer stem", 4, 2, Down, 0},           {"a stem that a hand has turned", 2, 1, Down, 0},
        {"a chord that begins within it", 2, 1, Up, 20}, {"inside of the first", 3, 1, Up, 0},
    };
    for (const auto& c : cases)
        for (const uint8_t value : {2, 4, 8})
            for (int16_t line = -6; line < 18; ++line) {
                SCOPED_TRACE(std::string(c.why) + " line " + std::to_string(line));
                Clear();
                const auto voice = [&](uint8_t number) {
                    return number < 3 ? (number == 1 ? upper : lower)
                                      : MakeVoice(MeasureStaffPar(upper), number);
                };
                const Stem* stem =
                    StemOf(AddChord(voice(c.playing), {8, {line}, 300 + c.later, c.direction}));
                const Pause* rest = AddRest(voice(c.resting), value, 300);
                const Column column(stem);
                const GenericNote* head = stemNotes.First(stem);
                for (const Rect& ink : {RectOf(head, column), StemInk(column), RectOf(FlagOf(stem), column),
                                        LedgerLinesOf(head, column).Ink()})
                    EXPECT_FALSE(meet(RectOf(rest), ink));
                EXPECT_EQ((bottom - PlaceOf(rest).y) % 100, 0) << "by whole spaces";
            }
    Clear();
    AddChord(upper, {2, {-1}, 300, Up, "Meta"});
    const Pause* half = AddRest(lower, 2, 300);
    EXPECT_EQ(bottom - PlaceOf(half).y, -300) << "below the head on the first ledger line";
    EXPECT_EQ(LedgerLinesOf(half).count, 1);
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
