// Places of heads, stems, ledger lines, rests, accidentals and dots. Figures are worked out by hand for a
// line distance of 100 unless told.
#include "base/Rounding.h"
#include "geometry_fixture.h"

namespace corvane::draw {
namespace {

using enum StemDirection;

TEST_F(GeometryTest, HeadsAndTheirStemsStandByTheShape) {
    const struct {
        const char* shape;
        int16_t line;
        int32_t head, stemUp, stemDown;
    } cases[] = {
        {"Quarto", 5, 200, 200, 200},       {"Quarto", 1, 0, 0, 0},
        {"Quarto", -3, -200, -200, -200},   {"Intero", 9, 400, 400, 400},
        {"DoppioIntero", 2, 50, 50, 50},    {"Meta", 11, 500, 500, 500},
        {"Croce", 5, 250, 250, 150},        {"Linea", 4, 200, 200, 100},
        {"LosangaVuota", 5, 250, 200, 200}, {"LosangaPiena", 0, 0, -50, -50},
        {"GraceQuarto", 5, 200, 200, 200},  {"Custom", 5, 150, 200, 200},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.shape) + " on " + std::to_string(c.line));
        const HeadPlace up = PlaceOf(HeadOf(Add({4, {c.line}, 0, StemDirection::Up, c.shape})));
        const HeadPlace down = PlaceOf(HeadOf(Add({4, {c.line}, 0, Down, c.shape})));
        EXPECT_EQ(Up(up.head.y), c.head);
        EXPECT_EQ(Up(down.head.y), c.head);
        EXPECT_EQ(Up(up.stem.y), c.stemUp);
        EXPECT_EQ(Up(down.stem.y), c.stemDown);
    }
    staff->_lineDistance = 101;
    bottom = FrameOf(staff).Bottom();
    EXPECT_EQ(Up(PlaceOf(HeadOf(Add({4, {4}}))).head.y), 151) << "202 less 50.5, truncated";
    EXPECT_EQ(Up(PlaceOf(HeadOf(Add({4, {5}}))).head.y), 202) << "252.5 is rounded to 253 first";
}

TEST_F(GeometryTest, InkOfEveryShapeIsCentredOnItsStep) {
    for (const char* shape : {"Quarto", "Meta", "Intero", "Croce", "Linea", "LosangaVuota", "LosangaPiena"})
        for (const int32_t size : {100, 140})
            for (const StemDirection direction : {StemDirection::Up, Down}) {
                SCOPED_TRACE(shape + std::to_string(size));
                GenericNote* note = HeadOf(Add({4, {6}, 0, direction, shape}));
                note->_size = size;
                const Rect ink = RectOf(note);
                EXPECT_NEAR(Up((ink.top + ink.bottom) / 2), 250, 3);
            }
}

TEST_F(GeometryTest, HeadsMeetTheStemOnTheirSide) {
    ChordSymbol* up = Add({4, {5, 4, 1}, 300});
    const int32_t width = HeadWidth(StemOf(up)), x = zero + 300 + width;
    EXPECT_EQ(width, SymbolWidth(HeadOf(up)->_symbol, 100, 100));
    EXPECT_EQ(LineOf(StemOf(up)).x, x);
    EXPECT_EQ(RectOf(HeadOf(up, 2)).left, x + 1 - width) << "the normal side of a stem up is the left";
    EXPECT_EQ(RectOf(HeadOf(up, 1)).left, x + 1 - width);
    EXPECT_EQ(RectOf(HeadOf(up, 0)).left, x) << "the upper head of a second stands across";
    EXPECT_EQ(StemInk(Column(StemOf(up))).right, x);

    ChordSymbol* down = Add({4, {6, 5}, 300, Down});
    EXPECT_EQ(LineOf(StemOf(down)).x, zero + 300);
    EXPECT_EQ(RectOf(HeadOf(down, 0)).left, zero + 300);
    EXPECT_EQ(RectOf(HeadOf(down, 1)).right, zero + 301);
    EXPECT_EQ(StemInk(Column(StemOf(down))).left, zero + 300);

    HeadOf(down, 0)->_side = Side::Centre;
    const Rect centred = RectOf(HeadOf(down, 0));
    EXPECT_NEAR((centred.left + centred.right) / 2, zero + 300, 1);
}

TEST_F(GeometryTest, AMeasureNoWiderThanItsHeaderIsNotScaled) {
    measure->_right = measure->_left + FrameOf(measure).header;
    ChordSymbol* chord = Add({4, {5}, 70, Down});
    EXPECT_EQ(LineOf(StemOf(chord)).x, zero + 70);
}

TEST_F(GeometryTest, StemsRunFromTheInnerHeadAndCountFromTheOuter) {
    const struct {
        const char* why;
        std::vector<int16_t> lines;
        StemDirection direction;
        int32_t length, from, end;
    } cases[] = {
        {"one head, up", {5}, StemDirection::Up, 350, 200, 550},
        {"one head, down", {5}, Down, 350, 200, -150},
        {"from the lowest head, counted from the highest", {8, 3}, StemDirection::Up, 350, 100, 700},
        {"from the highest head, counted from the lowest", {8, 3}, Down, 350, 350, -250},
        {"an end within the chord goes to the chord's end, up", {8, 3}, StemDirection::Up, -100, 100, 350},
        {"and down", {8, 3}, Down, -100, 350, 100},
        {"hidden ones have the same line", {5}, HiddenUp, 350, 200, 550},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const StemLine line = LineOf(StemOf(Add({2, c.lines, 0, c.direction, "Meta", c.length})));
        EXPECT_EQ(Up(line.from), c.from);
        EXPECT_EQ(Up(line.end), c.end);
    }
    staff->_lineDistance = 60;
    bottom = FrameOf(staff).Bottom();
    EXPECT_EQ(Up(LineOf(StemOf(Add({4, {5}}))).end), 120 + 210) << "a length scales with the staff";
}

TEST_F(GeometryTest, SettingAnEndIsTheReverseOfReadingIt) {
    for (const StemDirection direction : {StemDirection::Up, Down})
        for (const int16_t line : {-4, 3, 14}) {
            Stem* stem = StemOf(Add({4, {line}, 0, direction}));
            const int32_t y = PlaceOf(HeadOf(Add({4, {line}}))).stem.y + (IsUp(direction) ? -417 : 417);
            SetEnd(stem, y);
            EXPECT_EQ(stem->_length, 417);
            EXPECT_EQ(LineOf(stem).end, y);
        }
}

TEST_F(GeometryTest, AStemOverTwoStavesCountsFromTheOuterHeadsBottomLine) {
    New("D", 1, 1);
    ChordSymbol* column = AddChord(VoiceOfStaff(0, 0), {4, {5}});
    auto* lower = Make<Chords>();
    voiceSymbols.Add(VoiceOfStaff(0, 1), lower);
    chordSymbolChords.Add(column, lower);
    AddHead(lower, StemOf(column), 3, "Quarto");
    ASSERT_TRUE(IsMultiStaff(StemOf(column)));
    const StaffFrame top = FrameOf(StaffsFromTop(SystemAt(0))[0]),
                     low = FrameOf(StaffsFromTop(SystemAt(0))[1]);
    EXPECT_EQ(LineOf(StemOf(column)).end, top.Bottom() - 350);
    EXPECT_EQ(LineOf(StemOf(column)).from, low.Bottom() - 100);
    StemOf(column)->_length = 120;
    EXPECT_EQ(LineOf(StemOf(column)).end, top.Bottom() - 200) << "pulled to the outer head";
}

TEST_F(GeometryTest, FlagsHangAtTheEndOfTheStem) {
    const struct {
        uint8_t value;
        int32_t beyond;  // the further flags of the shortest values begin behind the stem's end
    } cases[] = {{8, 0}, {16, 0}, {32, 60}, {64, 60}, {128, 60}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value);
        const Column up(StemOf(Add({c.value, {5}}))), down(StemOf(Add({c.value, {5}, 0, Down})));
        const Rect upFlag = RectOf(FlagOf(up.stem), up), downFlag = RectOf(FlagOf(down.stem), down);
        EXPECT_NEAR(Up(upFlag.top), 550 + c.beyond, 15);
        EXPECT_NEAR(Up(downFlag.bottom), -150 - c.beyond, 15);
        EXPECT_NEAR(upFlag.left, StemInk(up).left, 1);
        EXPECT_NEAR(downFlag.left, StemInk(down).left, 1);
    }
    const Rect eighth = RectOf(Add({8, {5}})), whole = RectOf(Add({1, {5}, 0, HiddenUp, "Intero"}));
    EXPECT_NEAR(Up(eighth.top), 550, 5);
    EXPECT_LT(whole.Height(), 100) << "a whole note's stem takes no room";
}

TEST_F(GeometryTest, LedgerLinesFillTheWayToTheHead) {
    const struct {
        int16_t line;
        int count;
        int32_t first, step;
    } cases[] = {{0, 0, 0, 0},       {10, 0, 0, 0},      {5, 0, 0, 0},
                 {-1, 1, -100, 100}, {-2, 1, -100, 100}, {-3, 2, -100, 100},
                 {11, 1, 500, -100}, {12, 1, 500, -100}, {15, 3, 500, -100}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const LedgerLines ledgers = LedgerLinesOf(HeadOf(Add({4, {c.line}})));
        EXPECT_EQ(ledgers.count, c.count);
        if (!c.count) continue;
        EXPECT_EQ(Up(ledgers.first), c.first);
        EXPECT_EQ(ledgers.step, c.step);
    }
    staff->_lineCount = 1;
    bottom = FrameOf(staff).Bottom();
    EXPECT_EQ(LedgerLinesOf(HeadOf(Add({4, {2}}))).count, 0);
    EXPECT_EQ(LedgerLinesOf(HeadOf(Add({4, {3}}))).count, 1);
}

TEST_F(GeometryTest, LedgerLinesReachBeyondTheirHead) {
    const struct {
        const char* why;
        uint8_t value;
        const char* head;
        StemDirection direction;
        int32_t left, right;  // from the reference
    } cases[] = {
        {"left of a stem up", 4, "Quarto", StemDirection::Up, -150, 50},
        {"right of a stem down", 4, "Quarto", Down, -50, 150},
        {"a whole note is wider", 1, "Intero", HiddenUp, -175, 25},
        {"a breve wider still", kDoubleWhole, "DoppioIntero", HiddenDown, -35, 285},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        GenericNote* note = HeadOf(Add({c.value, {-1}, 0, c.direction, c.head}));
        const int32_t x = PlaceOf(note).head.x;
        const LedgerLines ledgers = LedgerLinesOf(note);
        EXPECT_EQ(ledgers.left - x, c.left);
        EXPECT_EQ(ledgers.right - x, c.right);
        EXPECT_LT(ledgers.left, RectOf(note).left);
        EXPECT_GT(ledgers.right, RectOf(note).right);
    }
}

TEST_F(GeometryTest, RestsStandByTheirOwnHeight) {
    Pause* alone = AddRest(voice, 1, 500);
    const Rect ink = RectOf(alone);
    EXPECT_NEAR((ink.left + ink.right) / 2, zero + 500, 1)
        << "a rest that fills the measure has its middle there";
    EXPECT_NEAR(Up(ink.top), 300, 5) << "and hangs from the fourth line";

    Pause* quarter = AddRest(voice, 4, 250);
    EXPECT_EQ(PlaceOf(quarter), (Point{zero + 250, bottom - 200}));
    EXPECT_EQ(PlaceOf(alone).x, zero + 500) << "beside another event it begins there";
    quarter->_beamY = 500;
    EXPECT_EQ(Up(PlaceOf(quarter).y), 200);
    AddBeam({quarter}, {8}, 'U');
    EXPECT_EQ(Up(PlaceOf(quarter).y), 350) << "under a beam it has a height of its own";
}

TEST_F(GeometryTest, RestsOutsideTheStaffHaveTheLineTheyLieOn) {
    const struct {
        const char* why;
        uint8_t value;
        int32_t y;  // thousandths of a line distance below the top line
        bool ledger;
        int32_t at;
    } cases[] = {
        {"a whole rest hangs from the top line", 1, 1000, false, 0},
        {"from one above it", 1, 0, true, 500},
        {"from the bottom line", 1, 5000, false, 0},
        {"from one below it", 1, 6000, true, -100},
        {"a half rest stands on the top line", 2, 0, false, 0},
        {"on one above it", 2, -1000, true, 500},
        {"on one below", 2, 5000, true, -100},
        {"a quarter rest lies on none", 4, -3000, false, 0},
    };
    AddRest(voice, 4, 0);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Pause* pause = AddRest(voice, c.value, 0, c.y);
        const LedgerLines ledgers = LedgerLinesOf(pause);
        EXPECT_EQ(ledgers.count, c.ledger ? 1 : 0);
        if (c.ledger) {
            EXPECT_EQ(Up(ledgers.first), c.at);
        }
    }
}

TEST_F(GeometryTest, AccidentalsEndAtOneDistanceBeforeTheColumn) {
    const auto gap = [&](ChordSymbol* chord, const char* name, int head = 0) {
        Accident* accident = AddAccident(HeadOf(chord, head), name);
        return RectOf(chord).left - RectOf(accident).right;
    };
    for (const char* name : {"#d", "#b", "#A", "#B", "#D", "#d("}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(gap(Add({4, {5}}), name), 20);
        EXPECT_EQ(gap(Add({4, {5}, 0, Down}), name), 20);
        EXPECT_EQ(gap(Add({4, {6, 5}, 0, Down}), name), 20) << "clear of the head across the stem";
        EXPECT_EQ(gap(Add({4, {-1}}), name), 8) << "clear of the ledger line";
    }
    GenericNote* note = HeadOf(Add({4, {4}}));
    Accident* accident = AddAccident(note, "#d");
    const Rect before = RectOf(accident);
    EXPECT_NEAR(Up((before.top + before.bottom) / 2), 150, 3);
    accident->_dx = -500;
    accident->_dy = 250;
    EXPECT_EQ(RectOf(accident), before.MovedBy(-50, 25));
}

TEST_F(GeometryTest, DotsStandInSpacesOfTheirOwn) {
    const auto heights = [&](const std::vector<int16_t>& lines) {
        ChordSymbol* chord = Add({4, lines, 0, Down});
        std::vector<int32_t> up;
        for (const Point p : PlacesOf(AddDot(ChordOf(chord), 1))) up.push_back(Up(p.y));
        return up;
    };
    using Heights = std::vector<int32_t>;
    EXPECT_EQ(heights({4}), (Heights{150})) << "a head in a space";
    EXPECT_EQ(heights({5}), (Heights{250})) << "a head on a line: the space above";
    EXPECT_EQ(heights({-1}), (Heights{-50}));
    EXPECT_EQ(heights({6, 5}), (Heights{250, 150})) << "of a second the lower gives way";
    EXPECT_EQ(heights({8, 7, 6}), (Heights{350, 250, 150}));

    ChordSymbol* wide = Add({4, {5, 4}, 0, StemDirection::Up});
    Dot* two = AddDot(ChordOf(wide), 2);
    const std::vector<Point> places = PlacesOf(two);
    ASSERT_EQ(places.size(), 4u);
    EXPECT_EQ(places[0].x, RectOf(HeadOf(wide, 0)).right + 43) << "behind the rightmost head";
    EXPECT_EQ(places[1], (places[0] + Point{65, 0}));
    two->_gap = 100;
    EXPECT_EQ(PlacesOf(two)[1], (places[0] + Point{75, 0}));

    Dot* second = AddDot(ChordOf(wide), 1);
    EXPECT_EQ(PlacesOf(two).size(), 2u) << "with one Dot for each head, each shows its own row";
    EXPECT_EQ(PlacesOf(second), (std::vector<Point>{places[2]}));

    Pause* pause = AddRest(voice, 8, 600);
    const std::vector<Point> rest = PlacesOf(AddDot(pause, 1));
    EXPECT_EQ(rest, (std::vector<Point>{{RectOf(pause).right + 43, bottom - 250}}));
}

TEST_F(GeometryTest, TheHeadUnderAPointIsWithinHalfASpaceOfItsMiddle) {
    ChordSymbol* chord = Add({4, {8, 5, 4}});
    const auto at = [&](int32_t up) { return HeadAt(chord, {0, bottom - up}); };
    EXPECT_EQ(at(350), HeadOf(chord, 0));
    EXPECT_EQ(at(399), HeadOf(chord, 0));
    EXPECT_EQ(at(400), nullptr);
    EXPECT_EQ(at(300), nullptr);
    EXPECT_EQ(at(175), HeadOf(chord, 1)) << "of two the first in order";
    EXPECT_EQ(at(150), HeadOf(chord, 2));
    EXPECT_EQ(at(101), HeadOf(chord, 2));
}

}  // namespace
}  // namespace corvane::draw
