// Stems that a person points, and velocities.
#include "layout/NoteGeometry.h"
#include "notes_fixture.h"

namespace corvane {
namespace {

class Pointing : public NotesTest {
protected:
    std::string Directions(int measure) {
        std::string text;
        for (const VoiceSymbol* event : Events(measure, 1))
            text += "duDU"[static_cast<int>(StemOf(As<Chords>(event))->_direction.Get())];
        return text;
    }
    std::string FlagOfFirst(int measure) {
        const Flag* flag = FlagOf(StemOf(ChordNumber(measure, 1, 1)));
        return flag ? std::string(SymbolName(flag->_symbol)) : "";
    }
    std::vector<int> Velocities() {
        std::vector<int> velocities;
        for (int measure = 1; measure <= 6; ++measure)
            ForEachNote(measure, 1, [&](const GenericNote* note) {
                const NoteOn* on = NoteOnOf(note);
                velocities.push_back(on ? on->_velocity.Get() : -1);
            });
        return velocities;
    }
};

TEST_F(Pointing, WhatAPersonSaysStaysUntilItIsWhatTheRulesSay) {
    Fill(1, 1, kQuarter, 3, 2);
    Fill(2, 1, kEighth, 1, 2);
    Fill(3, 1, kWhole, 1, 2);
    EXPECT_EQ(Directions(1) + Directions(2) + Directions(3), "uuuuU");
    Step([&] { Do(kDown, {{"from", "1"}, {"to", "3"}}); });
    EXPECT_EQ(Directions(1) + Directions(2) + Directions(3), "ddddD") << "a whole note has none that is seen";
    EXPECT_NE(FlagOfFirst(2).find("down"), std::string::npos);
    // Later edits of the measure and of the chord itself leave it so.
    Enter(kQuarter, 1, 1, 900, 2);
    EXPECT_EQ(Directions(1), "dddu");
    Enter(kQuarter, 1, 1, StemPar(Head(1, 1, 1))->_x + 10, 4);
    EXPECT_EQ(Directions(1), "dddu");
    PressHead(6, 1, 1);
    EXPECT_EQ(Directions(1).substr(0, 3), "ddd");
    ExpectSameAfterReload();
    // Told up again it is a stem like others, and turns by itself.
    PressHead(1, 1, 1);
    Step([&] { Do(kUp, In(1)); });
    EXPECT_EQ(Directions(1), "uuuu");
    Do(kTranspose, In(1, {{"interval", "P8"}}));
    EXPECT_EQ(Directions(1), "dddd");
}

TEST_F(Pointing, ABeamTurnsAsAWhole) {
    Fill(1, 1, kEighth, 8, 0);
    Beam* beam = BeamOf(StemOf(ChordNumber(1, 1, 1)));
    ASSERT_TRUE(beam);
    ASSERT_EQ(beam, BeamOf(StemOf(ChordNumber(1, 1, 2))));
    const std::string before = Directions(1);
    SetToolMode(ModeArrow);
    window->TheSelection().Add(RectOf(NoteOuter(StemOf(ChordNumber(1, 1, 1)))));
    Step([&] { Do(kDown, {}); });
    EXPECT_EQ(Directions(1), "dd" + before.substr(2));
    EXPECT_EQ(beam->_direction, 'D');
    const StemLine stem = LineOf(StemOf(ChordNumber(1, 1, 1)));
    EXPECT_GT(stem.end, stem.from) << "the line lies below the heads";
    // Another note in the measure beams the voice anew.
    Enter(kEighth, 1, 1, StemPar(Head(1, 1, 5))->_x + 10, 7);
    EXPECT_EQ(Directions(1).substr(0, 2), "dd");
    Step([&] { Do(kUp, {}); });
    EXPECT_EQ(Directions(1), before);
}

TEST_F(Pointing, VelocitiesAreOneForAllOrRiseInTime) {
    Fill(1, 1, kQuarter, 4, 0);
    Fill(2, 1, kHalf, 2, 0);
    Step([&] { Do(kVelocity, {{"from", "1"}, {"to", "2"}, {"start", "30"}}); });
    EXPECT_EQ(Velocities(), (std::vector<int>{30, 30, 30, 30, 30, 30}));
    Step([&] { Do(kVelocity, {{"from", "1"}, {"to", "2"}, {"start", "20"}, {"end", "100"}}); });
    EXPECT_EQ(Velocities(), (std::vector<int>{20, 30, 40, 50, 60, 80}));
    // A change of what is played keeps them.
    Do(kTranspose, {{"from", "1"}, {"to", "2"}, {"interval", "M3"}});
    Do(kDurations, {{"from", "1"}, {"to", "2"}, {"by", "half"}});
    EXPECT_EQ(Velocities(), (std::vector<int>{20, 30, 40, 50, 60, 80}));
    EXPECT_EQ(Refusal(kVelocity, In(1)), "start is missing");
    EXPECT_EQ(Refusal(kVelocity, In(1, {{"start", "128"}})), "start is a whole number from 0 to 127");
    ExpectSameAfterReload();
}

}  // namespace
}  // namespace corvane
