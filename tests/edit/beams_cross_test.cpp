// Beams and stems over two staves.
#include "beams_fixture.h"
#include "edit/Clipboard.h"
#include "edit/ControlPoints.h"
#include "edit/MeasureRedraw.h"
#include "layout/EventSymbols.h"

namespace corvane {
namespace {

class CrossBeamsTest : public BeamsTest {
protected:
    // Notes of both staves in turn; all of them chosen and beamed.
    Beam* Alternate() {
        Write(1, 1, "8:3 r8 16:4 16:3 r8");
        Write(1, 2, "r8 8:8 r8 16:9 16:8");
        Step([&] { Do(kOverStaves, In(1)); });
        return BeamAt(1, 1, 1);
    }
    bool PointsUp(int staff, int number) { return IsUp(StemNumber(1, staff, number)->_direction); }
    int32_t LineY(const Beam* beam) { return StrokesOf(beam).front().from.y; }
    int32_t YOfLine(int staff, int line) { return At(1, staff, 0, line).y; }
};

TEST_F(CrossBeamsTest, TheLineRunsBetweenTheStaves) {
    Beam* beam = Alternate();
    ASSERT_TRUE(As<CrossBeam>(beam));
    EXPECT_EQ(Picture(1, 1), "a.aa.");
    EXPECT_EQ(Picture(1, 2), ".a.aa");
    EXPECT_EQ(beam, BeamAt(1, 2, 5));
    EXPECT_FALSE(PointsUp(1, 1));
    EXPECT_TRUE(PointsUp(2, 2));
    EXPECT_GT(LineY(beam), YOfLine(1, 1));
    EXPECT_LT(LineY(beam), YOfLine(2, 9));
    ExpectOnLine(beam);
    ExpectSameAfterReload();
}

TEST_F(CrossBeamsTest, AHandleTakesTheWholeBeamAlong) {
    const Beam* beam = Alternate();
    const int32_t before = LineY(beam);
    Do(33045, {});
    const Stem* stem = StemNumber(1, 2, 2);
    const std::vector<Handle> handles = window->Handles().All();
    const auto own =
        std::find_if(handles.begin(), handles.end(), [&](const Handle& each) { return each.target == stem; });
    ASSERT_NE(own, handles.end());
    Step([&] {
        MouseDown(*window, own->place.x, own->place.y, 0);
        MouseMove(*window, own->place.x, own->place.y + 60);
        MouseUp(*window, own->place.x, own->place.y + 60);
    });
    EXPECT_EQ(LineY(beam), before + 60);
    ExpectOnLine(beam);
}

TEST_F(CrossBeamsTest, AStemOverStavesIsPartedWhereItsNotesBeginTogetherNoMore) {
    Write(1, 1, "r8 4:3");
    Write(1, 2, "r8 4:8 4:8");
    Do(kOverStaves, In(1));
    ASSERT_EQ(StemNumber(1, 1, 2), StemNumber(1, 2, 2));
    Enter(kHalfRest, 2, 1, 0, 5);
    const Point a = At(2, 1, -50, 20), b = At(2, 1, 1000, -10);
    window->TheSelection().Add({a.x, a.y, b.x, b.y});
    Copy(*window);
    window->caret = {MeasureNumber(1), StaffNumber(1), At(1, 1, 60, 5).x, true};
    Step([&] { EXPECT_TRUE(Paste(*window)); });
    ASSERT_EQ(Events(1, 1).size(), 3u);
    EXPECT_NE(StemNumber(1, 1, 3), StemNumber(1, 2, 2));
    EXPECT_GT(XOf(Events(1, 1)[2]), XOf(Events(1, 2)[2]));
}

TEST_F(CrossBeamsTest, WhatStandsAloneFollowsASharedStem) {
    const auto expectOrder = [&] {
        for (const int staff : {1, 2}) {
            int32_t before = -1;
            for (const VoiceSymbol* event : Events(1, staff)) {
                EXPECT_LT(before, XOf(event)) << staff;
                before = XOf(event);
            }
        }
        ExpectSound();
    };
    Write(1, 1, "16:3 16:4");
    Write(1, 2, "16:8 16:7 16:8");
    // As if room for something else had moved it.
    constexpr int32_t moved = 400;
    Step([&] {
        const EditStep step(*window);
        const MeasureRedraw redraw(*window, Crossing(1, 1));
        PutX(Events(1, 1)[1], moved);
    });
    ASSERT_GT(moved, XOf(Events(1, 2)[2]));
    Step([&] { Do(kOverStaves, In(1)); });
    ASSERT_EQ(StemNumber(1, 1, 2), StemNumber(1, 2, 2));
    EXPECT_EQ(XOf(Events(1, 2)[1]), moved);
    expectOrder();
    // The lower staff is spaced anew, and the upper one follows.
    Write(1, 2, "4:3");
    ASSERT_EQ(StemNumber(1, 1, 2), StemNumber(1, 2, 2));
    EXPECT_LT(XOf(Events(1, 2)[1]), moved);
    expectOrder();
}

TEST_F(CrossBeamsTest, ItHalvesTheRoomBetweenItsHeads) {
    Write(1, 1, "8:3 r8 8:3");
    Write(1, 2, "r8 8:7");
    Do(kOverStaves, In(1));
    EXPECT_EQ(LineY(BeamAt(1, 1, 1)), (YOfLine(1, 3) + YOfLine(2, 7)) / 2);
    // The levels lie above the line where the upper staff begins, so its stems need room for them, and a head
    // keeps 100 from the last; those of the lower staff are 250 long.
    Write(2, 1, "64:3 r64 64:3");
    Write(2, 2, "r64 64:7");
    Do(kOverStaves, In(2));
    const int32_t deep = 42 / 2 + 3 * 84 + 100;
    EXPECT_EQ(LineY(BeamAt(2, 1, 1)), (YOfLine(1, 3) + deep + YOfLine(2, 7) - 250 + 1) / 2);
    ExpectOnLine(BeamAt(2, 1, 1));
}

TEST_F(CrossBeamsTest, ItFollowsItsNotesAndStaves) {
    Beam* beam = Alternate();
    const int32_t before = LineY(beam);
    Step([&] { Do(32777, {{"from", "1"}, {"to", "1"}, {"distance", "1200"}}); });
    EXPECT_GT(LineY(beam), before) << "in the middle of the wider gap";
    ExpectOnLine(beam);
    // Entering moves what stands before it; the stems of both staves stay on the line.
    Write(1, 2, "4:3");
    ExpectOnLine(beam);
    Step([&] { Do(kTranspose, In(1, {{"staff", "1"}, {"interval", "m3"}})); });
    EXPECT_EQ(BeamAt(1, 1, 1), beam);
    ExpectOnLine(beam);
    ExpectFiled();
}

TEST_F(CrossBeamsTest, StemsBetweenTheStavesMayBeShortBeforeTheBeamLeaves) {
    // The staves are 600 apart, so heads on -2 and 12 leave 300: less than 250 for each, but more than 125.
    // Heads on -3 and 13 leave 200.
    Write(1, 1, "8:-2 r8 8:-2");
    Write(1, 2, "r8 8:12");
    Do(kOverStaves, In(1));
    EXPECT_EQ(LineY(BeamAt(1, 1, 1)), (YOfLine(1, -2) + YOfLine(2, 12)) / 2);
    Write(2, 1, "8:-3 r8 8:-3");
    Write(2, 2, "r8 8:13");
    Do(kOverStaves, In(2));
    EXPECT_EQ(LineY(BeamAt(2, 1, 1)), YOfLine(2, 13) + 250);
}

TEST_F(CrossBeamsTest, WithoutRoomItGoesToTheFirstNotesSide) {
    Write(1, 1, "8:-4 r8 8:-4");
    Write(1, 2, "r8 8:14 r8");
    Step([&] { Do(kOverStaves, In(1)); });
    EXPECT_FALSE(PointsUp(1, 1));
    EXPECT_FALSE(PointsUp(2, 2));
    EXPECT_EQ(BeamAt(1, 1, 1)->_direction, 'D') << "below all for an upper first note";
    EXPECT_EQ(LineY(BeamAt(1, 1, 1)), YOfLine(2, 14) + 250) << "the lowest head keeps two spaces and a half";
    ExpectOnLine(BeamAt(1, 1, 1));
    Choose(1, 1, 1, 1);
    Step([&] { Do(kUp, {}); });
    EXPECT_TRUE(PointsUp(2, 2)) << "a word to one stem turns all";
    EXPECT_EQ(LineY(BeamAt(1, 1, 1)), YOfLine(1, -4) - 250);
    ExpectOnLine(BeamAt(1, 1, 1));
}

TEST_F(CrossBeamsTest, NotesThatSoundTogetherShareAStem) {
    Write(1, 1, "8:3 8:4 4:5");
    Write(1, 2, "8:8 8:7 4:6");
    Step([&] { Do(kOverStaves, In(1)); });
    EXPECT_EQ(StemNumber(1, 1, 2), StemNumber(1, 2, 2));
    EXPECT_EQ(StemNumber(1, 1, 3), StemNumber(1, 2, 3)) << "quarters without a beam too";
    EXPECT_EQ(stemNotes.First(StemNumber(1, 1, 1)), Head(1, 1, 1)) << "the upper staff's head is the highest";
    EXPECT_EQ(beamMarkers.Count(BeamAt(1, 1, 1)), 2);
    ExpectSameAfterReload();
    // One head goes: the other stays under the beam.
    const Point p{RectOf(Head(1, 1, 1)).left + 20, At(1, 1, 0, 3).y};
    SetToolMode(ModeEraser);
    MouseDown(*window, p.x, p.y, 0);
    ExpectSound();
    EXPECT_TRUE(BeamAt(1, 2, 1));
    window->Undo();
    Step([&] { Do(kRemove, In(1)); });
    EXPECT_NE(StemNumber(1, 1, 2), StemNumber(1, 2, 2));
    EXPECT_NE(StemNumber(1, 1, 3), StemNumber(1, 2, 3));
    EXPECT_EQ(Picture(1, 1) + Picture(1, 2), "ff.ff.");
    Do(kOnBeat, In(1));
    EXPECT_EQ(Picture(1, 1) + Picture(1, 2), "aa.aa.");
}

TEST_F(CrossBeamsTest, ItDissolvesWithOneOfItsNotes) {
    Alternate();
    const Point p{RectOf(Head(1, 1, 1)).left + 20, At(1, 1, 0, 3).y};
    Switches().deleteNotesToRests = true;
    SetToolMode(ModeEraser);
    Step([&] { MouseDown(*window, p.x, p.y, 0); });
    EXPECT_EQ(Picture(1, 1), "..ff.");
    EXPECT_EQ(Picture(1, 2), ".f.ff");
}

TEST_F(CrossBeamsTest, OnlyWhatBelongsTogetherIsJoined) {
    constexpr const char* kTwoStaves = "Select notes of two staves in one measure";
    Write(1, 1, "8:3 8:4");
    EXPECT_EQ(Refusal(kOverStaves, In(1)), kTwoStaves);
    Write(1, 2, "4:3");
    EXPECT_EQ(Refusal(kOverStaves, In(1)), "Notes that share a stem need one value");
    Write(2, 1, "1:3");
    Write(2, 2, "1:3");
    EXPECT_EQ(Refusal(kOverStaves, In(2)), "Whole notes have no stem");
    Write(3, 1, "4:3 r4");
    Write(3, 2, "r4 4:3");
    EXPECT_EQ(Refusal(kOverStaves, In(3)), "Select notes that are eighths or shorter, or sound together");
    Write(4, 1, "8:3 r8 4:5 8:4");
    Write(4, 2, "r8 8:7");
    Step([&] { Do(kOverStaves, In(4)); });
    EXPECT_EQ(Picture(4, 1), "a..f") << "a quarter ends the beam";
}

}  // namespace
}  // namespace corvane
