// Clefs put in, changed and erased: what is heard stays, what is read follows.
#include "sign_fixture.h"

namespace corvane {
namespace {

enum ClefItems { kTrebleItem = 1, kBassItem = 2, kAltoItem = 6, kTenorItem = 12 };

class ClefTest : public SignTest {
protected:
    // Quarters d e f g on the upper staff of all measures; a sharp on the second of each.
    void SetUp() override {
        SignTest::SetUp();
        for (int measure = 1; measure <= 6; ++measure) {
            Fill(measure, 1, kQuarter, 4, 0);
            Item(kSharp);
            const auto* chord = As<Chords>(Events(measure, 1)[1]);
            Press(measure, 1, XOf(chord) + 10, 1);
        }
        sound = Notes();
    }
    int HeadOf(int measure, int staff = 1) {
        const auto* clef = SignOf<StaticClaf>(Crossing(measure, staff));
        return clef ? clef->_code : 0;
    }
    MovingClaf* ClefIn(int measure, int staff = 1) { return SignOf<MovingClaf>(Crossing(measure, staff)); }

    std::string sound;
};

using Numbers = std::vector<int>;

TEST_F(ClefTest, EveryClefOfThePaletteAtTheHeadKeepsTheSoundAndReachesTheNextOne) {
    constexpr int kCodes[] = {1, 2, 3, 4, 5, 8, 8, 11, 12, 13, 6, 7, 9, 10};
    for (int item = 14; item >= 1; --item) {
        SCOPED_TRACE(item);
        const int code = kCodes[item - 1], before = HeadOf(1);
        if (before == code) continue;
        Step([&] { PressHead(item, 1, 1); });
        EXPECT_EQ(HeadOf(1), code);
        EXPECT_EQ(HeadOf(4), code) << "the next system repeats it";
        EXPECT_EQ(HeadOf(1, 2), kBass) << "another staff keeps its own";
        EXPECT_EQ(Notes(), sound);
        EXPECT_EQ(Lines(6, 1).front(), 0 + 1 - ClefOf(code).offset);
        EXPECT_EQ(Accidentals(5, 1), "-d--");
    }
    ExpectSameAfterReload();
}

TEST_F(ClefTest, AClefWithinGovernsWhatStandsRightOfItUpToTheNext) {
    Step([&] { PressClef(kBassItem, 2, 1, 400); });
    ASSERT_TRUE(ClefIn(2));
    EXPECT_EQ(Lines(1, 1), (Numbers{0, 1, 2, 3}));
    EXPECT_EQ(Lines(2, 1), (Numbers{0, 1, 14, 15}));
    EXPECT_EQ(Lines(3, 1), (Numbers{12, 13, 14, 15}));
    EXPECT_EQ(HeadOf(4), kBass);
    EXPECT_EQ(Notes(), sound);

    // A further one in the next system ends its reach.
    Step([&] { PressClef(kAltoItem, 5, 1, 200); });
    EXPECT_EQ(Lines(5, 1), (Numbers{12, 7, 8, 9}));
    Step([&] { PressClef(kTenorItem, 2, 1, 450); });  // stands between the same notes: the clef is changed
    EXPECT_EQ(HeadOf(4), 7);
    EXPECT_EQ(Lines(4, 1), (Numbers{8, 9, 10, 11}));
    EXPECT_EQ(Lines(5, 1), (Numbers{8, 7, 8, 9}));
    EXPECT_EQ(Notes(), sound);
    ExpectSameAfterReload();

    // Erased, it leaves what was in force before it.
    Step([&] { Erase(ClefIn(2)); });
    EXPECT_FALSE(ClefIn(2));
    EXPECT_EQ(HeadOf(4), kTreble);
    EXPECT_EQ(Lines(5, 1), (Numbers{0, 7, 8, 9}));
    EXPECT_EQ(Notes(), sound);
}

TEST_F(ClefTest, ANoteBehindAClefIsJudgedByTheKeyWhateverStandsOnItsLineBefore) {
    Enter(kQuarter, 3, 2, 10, 0);
    Enter(kQuarter, 3, 2, 990, 12);
    PressClef(kTrebleItem, 3, 2, 125);
    ASSERT_EQ(Lines(3, 2), (Numbers{0, 0}));
    Item(kSharp);
    const auto press = [&](size_t note) { Press(3, 2, XOf(Events(3, 2)[note]) + 10, 0); };
    press(0);
    EXPECT_EQ(Accidentals(3, 2), "d-") << "no natural against a sharp of another clef";
    press(1);
    EXPECT_EQ(Accidentals(3, 2), "dd") << "nor does it spare a sharp";
    Item(kNatural);
    press(0);
    EXPECT_EQ(Accidentals(3, 2), "-d");
    Item(kSharp);
    Step([&] { press(0); });
    EXPECT_EQ(Accidentals(3, 2), "dd");
    SetToolMode(ModeEraser);
    press(0);
    EXPECT_EQ(Accidentals(3, 2), "d") << "what is left keeps its own";
    ExpectHeightsOfNotation();
}

TEST_F(ClefTest, AtABarlineItStandsInTheMeasureBefore) {
    Step([&] { PressHead(kBassItem, 2, 1); });
    EXPECT_FALSE(ClefIn(2));
    ASSERT_TRUE(ClefIn(1));
    EXPECT_EQ(Lines(1, 1), (Numbers{0, 1, 2, 3}));
    EXPECT_EQ(Lines(2, 1), (Numbers{12, 13, 14, 15}));
    const Rect ink = PatchOf(ClefIn(1)).Bounds();
    EXPECT_LT(ink.right, OriginOf(SystemPar(MeasureNumber(1))).x + MeasureNumber(1)->_right);
    EXPECT_GT(ink.left, FrameOf(MeasureNumber(1)).XOf(XOf(Events(1, 1).back())));
    EXPECT_EQ(Notes(), sound);
}

TEST_F(ClefTest, TheClefBeforeBringsItsNeighbourBackToNothing) {
    PressClef(kBassItem, 2, 1, 400);
    Step([&] { PressClef(kTrebleItem, 2, 1, 420); });
    EXPECT_FALSE(ClefIn(2));
    EXPECT_EQ(Lines(6, 1), (Numbers{0, 1, 2, 3}));
    EXPECT_EQ(Notes(), sound);
}

TEST_F(ClefTest, AClefOfItsOwnAtTheHeadOfALaterSystemStays) {
    PressHead(kAltoItem, 4, 1);
    EXPECT_EQ(HeadOf(1), kTreble);
    Step([&] { PressHead(kBassItem, 1, 1); });
    EXPECT_EQ(HeadOf(4), 8);
    EXPECT_EQ(Lines(4, 1), (Numbers{6, 7, 8, 9}));
    EXPECT_EQ(Notes(), sound);
}

TEST_F(ClefTest, StemsBeamsKeysAndSpacingFollow) {
    Do(32781, {{"fifths", "2"}, {"from", "1"}});
    Fill(2, 2, kEighth, 4, 0);
    sound = Notes();
    const auto stemOf = [&](int measure, int staff, size_t event) {
        return StemOf(As<Chords>(Events(measure, staff)[event]));
    };
    ASSERT_TRUE(IsUp(stemOf(2, 2, 0)->_direction));
    ASSERT_TRUE(BeamOf(stemOf(2, 2, 0)));
    Step([&] { PressHead(kTrebleItem, 1, 2); });
    EXPECT_EQ(SymbolOf<ClafSignature>(1, 2), "cs1$++-----");
    EXPECT_EQ(SymbolOf<ClafSignature>(4, 2), "cs1$++-----");
    EXPECT_EQ(Lines(2, 2).front(), -12);
    Step([&] { PressHead(kBassItem, 1, 1); });
    EXPECT_FALSE(IsUp(stemOf(1, 1, 0)->_direction)) << "line 12 has its stem down";
    EXPECT_EQ(SymbolOf<ClafSignature>(1, 1), "cs2$++-----");

    // A clef keeps its side of each note when notes move.
    PressClef(kTrebleItem, 3, 1, XOf(Events(3, 1)[2]) - 20);
    const std::vector<int> lines = Lines(3, 1);
    sound = Notes();
    Do(32779, {{"num", "7"}, {"den", "4"}, {"from", "3"}, {"to", "3"}});
    EXPECT_EQ(Lines(3, 1), lines);
    EXPECT_GT(ClefIn(3)->_place, XOf(Events(3, 1)[1]));
    EXPECT_LT(ClefIn(3)->_place, XOf(Events(3, 1)[2]));
    EXPECT_EQ(Notes(), sound);
    ExpectHeightsOfNotation();
}

TEST_F(ClefTest, RandomClefsNeverChangeASound) {
    std::srand(3);
    for (int i = 0; i < 60; ++i) {
        SCOPED_TRACE(i);
        const int measure = 1 + std::rand() % 6;
        if (MovingClaf* clef = ClefIn(measure); clef && std::rand() % 3 == 0)
            Erase(clef);
        else
            PressClef(1 + std::rand() % 14, measure, 1, std::rand() % 1200 - 150);
        ASSERT_EQ(Notes(), sound);
        ExpectHeightsOfNotation();
        ExpectSound();
        ExpectFiled();
    }
}

}  // namespace
}  // namespace corvane
