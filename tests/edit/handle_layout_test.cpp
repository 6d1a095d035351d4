// Handles on stems, staves and barlines: how far they go, and what stays of it.
#include "handle_fixture.h"
#include "layout/Engraving.h"
#include "layout/PageLayout.h"

namespace corvane {
namespace {

using HandleLayoutTest = HandleTest;

TEST_F(HandleLayoutTest, AStemEndsWhereItIsTaken) {
    Fill(1, 1, "4:3 4:8");
    Stem *up = StemOf(Event(1, 1, 0)), *down = StemOf(Event(1, 1, 1));
    Do(kStems, {});
    ASSERT_EQ(Count(), 2u);
    Move(HandleOf(up), {0, -80});
    EXPECT_EQ(up->_length, 380);
    EXPECT_TRUE(IsLengthTold(up));
    Move(HandleOf(down), {500, 120});
    EXPECT_EQ(down->_length, 420) << "a stem stands upright";

    // It never crosses its head.
    Move(HandleOf(up), {0, 2000});
    EXPECT_EQ(up->_length, 1);
    Move(HandleOf(down), {0, -2000});
    EXPECT_EQ(down->_length, 1);

    // Later edits of its chord and its measure keep it.
    const int32_t x = up->_x;
    SetToolMode(ModePencil);
    Enter(kQuarter, 1, 1, x + 5, 5);
    Enter(kQuarter, 1, 1, 990, 4);
    SetToolMode(ModeArrow);
    EXPECT_EQ(stemNotes.Count(up), 2);
    EXPECT_EQ(up->_length, 1);
    EXPECT_EQ(down->_length, 1);

    // Near to the usual length it is the usual one again.
    Move(HandleOf(up), {0, -292});
    EXPECT_EQ(up->_length, 300);
    EXPECT_FALSE(IsLengthTold(up));
}

TEST_F(HandleLayoutTest, AStemUnderABeamTakesItAlong) {
    Fill(1, 1, "8:3 8:4 8:5 8:6");
    std::vector<Stem*> stems;
    for (VoiceSymbol* event : Events(1, 1)) stems.push_back(StemOf(As<Chords>(event)));
    const Beam* beam = BeamOf(stems[0]);
    ASSERT_NE(beam, nullptr);
    std::erase_if(stems, [&](const Stem* stem) { return BeamOf(stem) != beam; });
    std::vector<int32_t> before;
    for (const Stem* stem : stems) before.push_back(stem->_length);
    Do(kStems, {});
    Move(HandleOf(stems[1]), {0, -60});
    for (size_t i = 0; i < stems.size(); ++i) EXPECT_NEAR(stems[i]->_length, before[i] + 60, 1);
    Enter(kQuarter, 1, 1, 990, 5);
    EXPECT_EQ(stems[1]->_length, before[1] + 60) << "an edit of the measure keeps it";

    // The word of another stem takes its place. The beam, 21 thick to its middle, ends at the heads' edges.
    SetToolMode(ModeArrow);
    Move(HandleOf(stems[0]), {0, 2000});
    int32_t shortest = 10000;
    for (const Stem* stem : stems) shortest = std::min(shortest, stem->_length.Get());
    EXPECT_NEAR(shortest, 71, 1);
    EXPECT_FALSE(IsLengthTold(stems[1]));
}

TEST_F(HandleLayoutTest, AStaffGoesBetweenItsNeighbours) {
    System *system = SystemPar(MeasureNumber(1)), *next = SystemPar(MeasureNumber(4));
    const std::vector<Staff*> staffs = StaffsFromTop(system);
    const int32_t top = system->_top, second = staffs[1]->_top, bottom = system->_bottom;
    Do(kStaves, {});
    ASSERT_EQ(Count(), 4u);
    Move(HandleOf(staffs[1]), {400, 200});
    EXPECT_EQ(staffs[1]->_top, second + 200);
    EXPECT_EQ(staffs[1]->_bottom, second + 600);
    EXPECT_EQ(system->_bottom, bottom + 200);

    // The first one moves the system's top; the other stays where it is on the page.
    Move(HandleOf(staffs[0]), {0, 70});
    EXPECT_EQ(system->_top, top + 70);
    EXPECT_EQ(staffs[0]->_top, 0);
    EXPECT_EQ(staffs[1]->_top, second + 130);
    EXPECT_EQ(system->_bottom, bottom + 200);

    Move(HandleOf(staffs[1]), {0, -9000});
    EXPECT_EQ(staffs[1]->_top, 401);
    ExpectHeld(HandleOf(staffs[0]), {0, 9000});
    Move(HandleOf(staffs[0]), {0, -9000});
    EXPECT_EQ(system->_top, 1) << "above the first staff there is the paper's edge";
    Move(HandleOf(staffs[1]), {0, 9000});
    EXPECT_EQ(system->_bottom, next->_top - 1);
}

TEST_F(HandleLayoutTest, ABarlineSharesTheWidthOfTwoMeasures) {
    Fill(1, 1, "8:3 8:4 8:5 8:6 4:7 r4");
    const Measure *first = MeasureNumber(1), *middle = MeasureNumber(2), *last = MeasureNumber(3);
    const int32_t edge = first->_right, end = middle->_right, right = last->_right;
    Do(kBarlines, {});
    ASSERT_EQ(Count(), 8u);
    Move(HandleOf(first, 1), {300, 400});
    EXPECT_EQ(first->_right, edge + 300);
    EXPECT_EQ(middle->_left, edge + 300);
    EXPECT_EQ(middle->_right, end);
    Move(HandleOf(first, 1), {9000, 0});
    EXPECT_EQ(middle->Width(), 1);
    Move(HandleOf(first, 1), {-9000, 0});
    EXPECT_EQ(first->Width(), 1);
    EXPECT_EQ(middle->_left, 1);

    // Notes that come in keep it, and so does a header that grows.
    const int32_t width = middle->Width();
    Enter(kQuarter, 2, 1, 0, 5);
    SetToolMode(ModeArrow);
    ApplyToolMode();
    EXPECT_EQ(middle->Width(), width);
    EXPECT_EQ(last->_right, right);
}

TEST_F(HandleLayoutTest, AnEndOfASystemMovesIt) {
    System* system = SystemPar(MeasureNumber(1));
    const Measure *first = MeasureNumber(1), *second = MeasureNumber(2), *last = MeasureNumber(3);
    const int32_t x = FrameOf(second).left, right = FrameOf(last).left + last->Width();
    Do(kBarlines, {});
    ExpectHeld(HandleOf(first, 0), {-300, 0});
    Move(HandleOf(first, 0), {400, 0});
    EXPECT_EQ(system->_left, 400);
    EXPECT_EQ(first->_left, 0);
    EXPECT_EQ(FrameOf(second).left, x);
    EXPECT_EQ(FrameOf(last).left + last->Width(), right);
    for (const Staff* staff : StaffsFromTop(system)) EXPECT_EQ(FrameOf(staff).right, right);
    Move(HandleOf(last, 1), {-250, 0});
    EXPECT_EQ(FrameOf(last).left + last->Width(), right - 250);
    for (const Staff* staff : StaffsFromTop(system)) EXPECT_EQ(FrameOf(staff).right, right - 250);

    // Measures that come, there or elsewhere, leave its ends where they are; a new indent does not.
    for (const char* behind : {"2", "5"}) Do(32791, {{"count", "1"}, {"after", behind}});
    EXPECT_EQ(system->_left, 400);
    EXPECT_EQ(FrameOf(last).left + last->Width(), right - 250);
    Move(HandleOf(last, 1), {9000, 0});
    EXPECT_EQ(FrameOf(last).left + last->Width(), Document::pageWidth) << "as far as the paper";
    Do(32787, {{"indent", "700"}});
    EXPECT_EQ(system->_left, 700);
    EXPECT_EQ(FrameOf(last).left + last->Width(), right);
}

}  // namespace
}  // namespace corvane
