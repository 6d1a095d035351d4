// Keys over measures: notes keep their sound, accidentals and signatures tell it anew.
#include "sign_fixture.h"

namespace corvane {
namespace {

constexpr int kKey = 32781;

class KeyTest : public SignTest {
protected:
    CommandArguments Over(int fifths, int from, int to = 0) {
        CommandArguments arguments{{"fifths", std::to_string(fifths)}, {"from", std::to_string(from)}};
        if (to) arguments["to"] = std::to_string(to);
        return arguments;
    }
};

TEST_F(KeyTest, EveryKeyShowsJustTheAccidentalsThatItDoesNotHold) {
    // The white keys from c to b.
    Fill(1, 1, kEighth, 7, -1);
    const std::string sound = Notes();
    // In each key a natural for each note that the key alters, in the order c d e f g a b.
    constexpr const char* kShown[] = {"AAAAAAA", "AAA-AAA", "-AA-AAA", "-AA--AA", "--A--AA",
                                      "--A---A", "------A", "-------", "---A---", "A--A---",
                                      "A--AA--", "AA-AA--", "AA-AAA-", "AAAAAA-", "AAAAAAA"};
    for (int fifths = -7; fifths <= 7; ++fifths) {
        SCOPED_TRACE(fifths);
        Step([&] { Do(kKey, Over(fifths, 1)); });
        EXPECT_EQ(Accidentals(1, 1), kShown[fifths + 7]);
        EXPECT_EQ(Notes(), sound);
        for (const int head : {1, 4})
            EXPECT_EQ(SignOf<ClafSignature>(Crossing(head, 2))->_key, fifths + 7) << "each head says it";
    }
    ExpectSameAfterReload();
}

TEST_F(KeyTest, NotesOfTheKeyNeedNoSignAndAnAccidentalHoldsToTheBarline) {
    Do(kKey, Over(1, 1));
    Enter(kQuarter, 1, 1, 10, 2);  // f sharp by the key
    Enter(kQuarter, 1, 1, 300, 2);
    Enter(kQuarter, 2, 1, 10, 2);
    EXPECT_EQ(Accidentals(1, 1), "--");
    Step([&] { Do(kKey, Over(0, 1)); });
    EXPECT_EQ(Accidentals(1, 1), "d-");
    EXPECT_EQ(Accidentals(2, 1), "d");
    Step([&] { Do(kKey, Over(-1, 1)); });
    EXPECT_EQ(Accidentals(1, 1), "d-");
    Step([&] { Do(kKey, Over(2, 1)); });
    EXPECT_EQ(Accidentals(1, 1) + Accidentals(2, 1), "---");
}

TEST_F(KeyTest, ARangeSaysItsKeyWhereItBeginsAndTheOldOneBehindIt) {
    Step([&] { Do(kKey, Over(3, 2, 4)); });
    EXPECT_EQ(SymbolOf<ClafSignature>(2, 1), "cs1$+++----");
    EXPECT_EQ(SymbolOf<ClafSignature>(2, 2), "cs2$+++----");
    EXPECT_EQ(SymbolOf<ClafSignature>(3, 1), "");
    EXPECT_EQ(SymbolOf<ClafSignature>(4, 1), "cs1$+++----");
    EXPECT_EQ(SymbolOf<ClafSignature>(5, 1), "cs1$bbb----") << "naturals take the sharps back";
    // Fewer sharps: the missing ones are taken back.
    Step([&] { Do(kKey, Over(1, 3, 3)); });
    EXPECT_EQ(SymbolOf<ClafSignature>(3, 1), "cs1$+bb----");
    EXPECT_EQ(KeyInForce(Crossing(4, 1)), 3);
    // Without an end up to the next change, which then says nothing new.
    Step([&] { Do(kKey, Over(-2, 2)); });
    EXPECT_EQ(SymbolOf<ClafSignature>(2, 1), "cs1%++-----");
    EXPECT_EQ(KeyInForce(Crossing(3, 1)), 1);
    Step([&] { Do(kKey, Over(0, 1, 6)); });
    for (int measure = 1; measure <= 6; ++measure) {
        EXPECT_EQ(KeyInForce(Crossing(measure, 1)), 0);
        EXPECT_EQ(SignOf<ClafSignature>(Crossing(measure, 1)) != nullptr, measure % 3 == 1);
    }
    ExpectSameAfterReload();
}

TEST_F(KeyTest, NoteAreasStayEqualWhereAHeaderGrows) {
    Do(kKey, Over(7, 2, 2));
    std::vector<int32_t> areas;
    for (int measure = 1; measure <= 3; ++measure)
        areas.push_back(FrameOf(MeasureNumber(measure)).NoteArea());
    const auto [least, most] = std::minmax_element(areas.begin(), areas.end());
    EXPECT_LE(*most - *least, 2);
    EXPECT_EQ(MeasureNumber(3)->_right,
              SystemPar(MeasureNumber(3))->_right - SystemPar(MeasureNumber(3))->_left);
}

TEST_F(KeyTest, AChangeAtTheHeadOfASystemIsToldBeforeIt) {
    Measure* last = MeasureNumber(3);
    const int32_t edge = last->_right;
    Step([&] { Do(kKey, Over(-5, 4)); });
    EXPECT_EQ(SymbolOf<ClafSignature>(4, 1), "cs1%+++++--");
    EXPECT_LT(last->_right, edge - 500);
    Step([&] { Do(kKey, Over(0, 4)); });
    EXPECT_EQ(SymbolOf<ClafSignature>(4, 1), "cs1$-------")
        << "nothing is taken back where all is said before";
    EXPECT_EQ(last->_right, edge);
}

TEST_F(KeyTest, WhatMakesNoSenseIsRefusedAndTouchesNothing) {
    const PoolState before = PoolState::Of(*window->Pool());
    EXPECT_EQ(Refusal(kKey, {{"fifths", "8"}, {"from", "1"}}), "fifths is a whole number from -7 to 7");
    EXPECT_EQ(Refusal(kKey, {{"fifths", "1"}, {"from", "7"}}), "there is no measure 7");
    EXPECT_EQ(Refusal(kKey, {{"fifths", "1"}}), "from is missing");
    EXPECT_EQ(Refusal(kKey, {{"fifths", "1"}, {"from", "1"}, {"till", "2"}}),
              "there is no argument \"till\"");
    EXPECT_EQ(PoolState::Of(*window->Pool()), before);
    EXPECT_FALSE(window->CanUndo());
}

}  // namespace
}  // namespace corvane
