// Whatever measures come or go, the others are read as before: clefs, keys and meters.
#include "edit/Signs.h"
#include "layout/SignRecords.h"
#include "model/Clefs.h"
#include "structure_fixture.h"

namespace corvane {
namespace {

constexpr int kAddPages = 32790, kAddMeasures = 32791, kRemovePages = 32793, kRemoveMeasures = 32794;

class StructureSigns : public StructureTest {
protected:
    void Remove(int from, int to) {
        RunAndBack(kRemoveMeasures, {{"from", std::to_string(from)}, {"to", std::to_string(to)}});
    }
    Meter Quarters(int count) { return Meter{{count}, 4, MeterKind::Normal}; }
    // What the notes of a measure sound like by the clefs before them.
    std::vector<int> Heights(int measure) {
        std::vector<int> heights;
        for (const VoiceSymbol* symbol : Events(measure, 1))
            heights.push_back(SoundingHeight(chordNotes.First(As<Chords>(symbol))));
        return heights;
    }
    // Clef, key and meter that hold at the start of a measure.
    std::string Reads(int measure, int staff) {
        const MeasureStaff* crossing = Crossing(measure, staff);
        const Measure* m = MeasureNumber(measure);
        return std::to_string(ClefInForce(crossing, 0)) + " " + std::to_string(KeyInForce(crossing)) + " " +
               std::to_string(m->_num) + "/" + std::to_string(m->_den);
    }
};

TEST_F(StructureSigns, TheFirstMeasureLeavesItsSignsToTheNext) {
    OpenPages(2);
    ASSERT_TRUE(ChangeKey(*window, {MeasureNumber(1), nullptr}, -3));
    ASSERT_TRUE(ChangeMeter(*window, {MeasureNumber(1), nullptr}, Meter{{4}, 4, MeterKind::Common}));
    Remove(1, 1);
    EXPECT_EQ(Signs(1, 1), "1 -3 4/4");
    EXPECT_EQ(Signs(1, 2), "2 -3 4/4");
    EXPECT_EQ(Signs(2, 1), "- - -");
    const auto* sign = SignOf<TimeSignature>(Crossing(1, 1));
    EXPECT_EQ(sign->_kind, static_cast<uint8_t>(MeterKind::Common)) << "written as it was";
    Remove(5, 5);
    EXPECT_EQ(Signs(5, 1), "1 -3 -") << "the head of the second system moves on";
    EXPECT_EQ(Signs(6, 1), "- - -");
    Remove(1, 13);
    EXPECT_EQ(Shape(), "5 5 5");
    EXPECT_EQ(Signs(1, 2), "2 -3 4/4");
}

TEST_F(StructureSigns, AChangeThatGoesIsSaidAgainBehind) {
    OpenPages(1);
    ASSERT_TRUE(ChangeKey(*window, {MeasureNumber(2), MeasureNumber(4)}, 2));
    ASSERT_TRUE(ChangeMeter(*window, {MeasureNumber(2), MeasureNumber(3)}, Quarters(3)));
    ASSERT_EQ(Signs(2, 1), "- 2 3/4");
    ASSERT_EQ(Signs(4, 1), "- - 4/4");
    ASSERT_EQ(Signs(5, 1), "- 0 -");
    Remove(2, 2);
    EXPECT_EQ(Signs(2, 1), "- 2 3/4");
    EXPECT_EQ(Reads(3, 2), "2 2 4/4");
    Remove(2, 2);
    EXPECT_EQ(Signs(2, 2), "- 2 -") << "4/4 holds there anyway";
    Remove(2, 2);
    EXPECT_EQ(Signs(2, 1), "- - -") << "C holds there anyway";
    EXPECT_EQ(Signs(3, 1), "1 0 -") << "the next system's head";
}

TEST_F(StructureSigns, AClefThatGoesIsPutWhereItStillGoverns) {
    OpenPages(1);
    Fill(4, 1, 4, 4);
    {
        const EditStep step(*window);
        SetClefWithin(*window, Crossing(2, 1), 600, kBass);
    }
    const std::vector<int> heights = Heights(4);
    ASSERT_EQ(Reads(4, 1), "2 0 4/4");
    Remove(2, 2);
    const auto* moved = SignOf<MovingClaf>(Crossing(1, 1));
    ASSERT_NE(moved, nullptr) << "at the end of the measure before";
    EXPECT_EQ(moved->_code, kBass);
    EXPECT_EQ(moved->_place, 1000);
    EXPECT_EQ(Heights(3), heights);
    Remove(1, 1);
    EXPECT_EQ(Signs(1, 1), "2 0 4/4") << "at the head of the system";
    EXPECT_EQ(Heights(2), heights);
    Remove(1, 1);
    EXPECT_EQ(Heights(1), heights);
    EXPECT_EQ(Signs(3, 1), "2 0 -") << "the next system says it again";
}

TEST_F(StructureSigns, TheSystemBeforeMakesRoomForWhatItSaysOfTheNext) {
    OpenPages(2);
    ASSERT_TRUE(ChangeKey(*window, {MeasureNumber(11), nullptr}, -4));
    ASSERT_GT(CourtesyWidth(SystemNumber(1, 2)), 0);
    Remove(6, 10);
    EXPECT_GT(CourtesyWidth(SystemNumber(1, 1)), 0) << "the key now changes behind it";
    RunAndBack(kRemoveMeasures, {{"from", "1"}, {"to", "5"}});
    ASSERT_TRUE(ChangeMeter(*window, {MeasureNumber(6), nullptr}, Quarters(5)));
    ASSERT_GT(CourtesyWidth(SystemNumber(1, 1)), 0);
    RunAndBack(kAddPages, {{"after", "1"}, {"count", "2"}});
    EXPECT_EQ(CourtesyWidth(SystemNumber(1, 1)), 0);
    EXPECT_EQ(CourtesyWidth(SystemNumber(2, 1)), 0);
    EXPECT_GT(CourtesyWidth(SystemNumber(3, 1)), 0) << "directly before the change";
}

TEST_F(StructureSigns, NewMeasuresKeepWhatHolds) {
    OpenPages(2);
    ASSERT_TRUE(ChangeKey(*window, {MeasureNumber(4), nullptr}, 1));
    ASSERT_TRUE(ChangeMeter(*window, {MeasureNumber(4), nullptr}, Quarters(3)));
    RunAndBack(kAddMeasures, {{"after", "3"}});
    EXPECT_EQ(Reads(4, 1), "1 0 4/4");
    EXPECT_EQ(Signs(4, 1), "- - -");
    EXPECT_EQ(Signs(5, 1), "- 1 3/4");
    RunAndBack(kAddMeasures, {{"after", "5"}, {"count", "2"}});
    EXPECT_EQ(Reads(7, 2), "2 1 3/4");
    RunAndBack(kAddMeasures, {{"after", "0"}, {"count", "2"}});
    EXPECT_EQ(Signs(1, 1), "1 0 4/4");
    EXPECT_EQ(Signs(2, 1), "- - -");
    EXPECT_EQ(Signs(3, 1), "- - -") << "no longer the first";
    EXPECT_EQ(Shape(), "10 5 5/5 5 5");
}

TEST_F(StructureSigns, NewPagesBeginAsTheOldFirstOneDid) {
    OpenPages(1, "D", 2, 2);
    ASSERT_TRUE(ChangeKey(*window, {MeasureNumber(1), nullptr}, 4));
    ASSERT_TRUE(ChangeMeter(*window, {MeasureNumber(1), nullptr}, Meter{{2}, 2, MeterKind::Cut}));
    {
        const EditStep step(*window);
        SetClefAtHead(*window, Crossing(1, 1), 8);
    }
    RunAndBack(kAddPages, {{"after", "0"}});
    EXPECT_EQ(Signs(1, 1), "8 4 2/2");
    EXPECT_EQ(SignOf<TimeSignature>(Crossing(1, 1))->_kind, static_cast<uint8_t>(MeterKind::Cut));
    EXPECT_EQ(Signs(3, 1), "8 4 -");
    EXPECT_EQ(Signs(5, 1), "8 4 -") << "the old first measure";
    EXPECT_EQ(Signs(5, 2), "2 4 -");
    RunAndBack(kRemovePages, {{"from", "1"}});
    EXPECT_EQ(Signs(1, 1), "8 4 2/2");
    EXPECT_EQ(SignOf<TimeSignature>(Crossing(1, 1))->_kind, static_cast<uint8_t>(MeterKind::Cut));
    RunAndBack(kAddPages, {{"count", "2"}});
    EXPECT_EQ(Reads(9, 2), "2 4 2/2");
}

}  // namespace
}  // namespace corvane
