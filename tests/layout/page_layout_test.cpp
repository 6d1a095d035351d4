// Systems on their page, staves in their system, measures across it; all figures worked out by hand from the
// default page of 15785 by 12197 with the margins 1800, 750, 1600 and 550.
#include "build_score.h"
#include "layout/Frames.h"
#include "layout/LayoutDump.h"
#include "layout/Spacing.h"

namespace corvane::build {
namespace {

class PageLayoutTest : public ScoreTest {
protected:
    std::vector<int32_t> StaffTops(int system) const {
        std::vector<int32_t> tops;
        for (const Staff* staff : StaffsFromTop(SystemAt(system))) tops.push_back(staff->_top);
        return tops;
    }
    std::vector<int32_t> SystemTops() const {
        std::vector<int32_t> tops;
        for (const System* system : pageSystems.Of(FirstPage())) tops.push_back(system->_top);
        return tops;
    }
};
using Tops = std::vector<int32_t>;

TEST_F(PageLayoutTest, SystemsStandInEqualBands) {
    New("D");
    EXPECT_EQ(SystemTops(), (Tops{1800, 6212, 10624})) << "13235 / 3 is 4412";
    New("", 5, 1);
    EXPECT_EQ(SystemAt(0)->_top, 1800);
    EXPECT_EQ(SystemAt(0)->_bottom, 1800 + 13235 - 500) << "the only system loses the whole reserve";
    New("", 5, 2);
    EXPECT_EQ(SystemTops(), (Tops{1800, 8418})) << "6617.5 is rounded up";
    EXPECT_EQ(SystemAt(0)->_bottom - 1800, 6368) << "as is 6367.5";

    New("", 5, 0);
    CenterSystems(document, FirstPage());
    DistributeSystems(document, FirstPage());
    EXPECT_TRUE(pageSystems.IsEmpty(FirstPage()));
}

TEST_F(PageLayoutTest, DistributingKeepsHeightsAndStaves) {
    New("S", 1, 3);
    SystemAt(1)->_top = 5000;
    SystemAt(1)->_bottom = 5777;
    StaffsFromTop(SystemAt(1))[0]->_top = 33;
    DistributeSystems(document, FirstPage());
    EXPECT_EQ(SystemTops(), (Tops{1800, 6212, 10624}));
    EXPECT_EQ(SystemAt(1)->_bottom, 6212 + 777);
    EXPECT_EQ(StaffTops(1), (Tops{33}));
}

TEST_F(PageLayoutTest, StavesSpreadOverTheirSystem) {
    New("SSS", 1, 1);
    EXPECT_EQ(StaffTops(0), (Tops{0, 4245, 8490})) << "a slot is 12735 * 400 / 1200";
    EXPECT_EQ(SystemAt(0)->_bottom - SystemAt(0)->_top, 8890) << "the system ends with its last staff";

    New("C11S", 1, 3);
    EXPECT_EQ(StaffTops(0), (Tops{200, 2122})) << "a single line is centred in its slot of 400";
    New("SC11", 1, 3);
    EXPECT_EQ(SystemAt(0)->_bottom - SystemAt(0)->_top, 2322) << "and the system reaches down to it";

    New("SS", 1, 3);
    StaffsFromTop(SystemAt(0))[0]->_lineDistance = 1000;
    CenterStaves(SystemAt(0));
    EXPECT_EQ(StaffTops(0), (Tops{0, 4000})) << "a staff higher than its slot pushes the next one down";
    SystemAt(1)->_bottom = SystemAt(1)->_top + 10;
    CenterStaves(SystemAt(1));
    EXPECT_EQ(StaffTops(1), (Tops{0, 400})) << "and never overlaps it";
}

TEST_F(PageLayoutTest, BracedPairsKeepTheirDistanceAndCarryWhatStandsBelow) {
    New("D");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(StaffTops(i), (Tops{0, 1000}));
        EXPECT_EQ(SystemAt(i)->_bottom - SystemAt(i)->_top, 1400);
    }
    New("SDS", 1, 3);
    EXPECT_EQ(StaffTops(0), (Tops{0, 1061, 2061, 3122})) << "the slot is 4245 * 400 / 1600";
    EXPECT_EQ(SystemAt(0)->_bottom - SystemAt(0)->_top, 3522);

    preferredPairDistance = 900;
    CenterSystems(document, FirstPage());
    preferredPairDistance = 600;
    EXPECT_EQ(StaffTops(0), (Tops{0, 1061, 2361, 3422}));
    EXPECT_EQ(SystemAt(0)->_bottom - SystemAt(0)->_top, 3822);
}

TEST_F(PageLayoutTest, MeasuresShareTheirSystemSoThatNoteAreasAreEqual) {
    New("D");
    for (System* system : pageSystems.Of(FirstPage())) {
        EXPECT_EQ(system->_left, 0);
        EXPECT_EQ(system->_right, 12197 - 1600 - 550);
        const int32_t area = FrameOf(MeasureAt(system, 1)).NoteArea();
        int32_t left = 0;
        for (const Measure* measure : systemMeasures.Of(system)) {
            EXPECT_EQ(measure->_left, left) << "no gap between measures";
            left = measure->_right;
            EXPECT_NEAR(FrameOf(measure).NoteArea(), area, 1);
        }
        EXPECT_EQ(left, system->_right);
        EXPECT_GT(MeasureAt(system, 0)->Width(), MeasureAt(system, 1)->Width())
            << "the first has clef and key";
    }
    System* narrow = SystemAt(0);
    narrow->_right = 1000;  // less than the headers of its measures
    FitMeasures(narrow);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(MeasureAt(narrow, i)->_right, 200 * (i + 1));
}

TEST_F(PageLayoutTest, TheDumpTellsAbsolutePlaces) {
    New("D");
    const std::string dump = LayoutDump(FirstPage());
    const System* second = SystemAt(1);
    const MeasureFrame last = FrameOf(MeasureAt(SystemAt(1), 4));
    EXPECT_EQ(std::count(dump.begin(), dump.end(), '\n'), 1 + 3 * (1 + 5 + 2));
    const std::string lines[] = {
        "page 1 12197 15785\nsystem 1 1600 1800 11647 3200\nmeasure 1 1 1600 ",
        "\nstaff 1 1 1800 100 5\nstaff 1 2 2800 100 5\nsystem 2 1600 6212 11647 7612\n",
        "\nmeasure 2 5 " + std::to_string(1600 + MeasureAt(SystemAt(1), 4)->_left) + " " +
            std::to_string(last.left + 200) + " 11647\nstaff 2 1 6212 100 5\n",
    };
    for (const std::string& line : lines) EXPECT_NE(dump.find(line), dump.npos) << line << "\n" << dump;
    EXPECT_EQ(second->_top, 6212);
}

TEST(Frames, PlacesAndPerMilleAreEachOthersInverse) {
    const MeasureFrame frame{1000, 2200, 200};
    EXPECT_EQ(frame.NoteArea(), 2000);
    EXPECT_EQ(frame.XOf(0), 1200);
    EXPECT_EQ(frame.XOf(1000), 3200);
    EXPECT_EQ(frame.PerMilleOfX(2200), 500);
    EXPECT_EQ(frame.PerMille(1), 1) << "half a per mille is rounded up";
    for (int32_t x = 0; x <= 1000; ++x) EXPECT_EQ(frame.PerMilleOfX(frame.XOf(x)), x);
    const MeasureFrame full{1000, 200, 200};
    EXPECT_EQ(full.XOf(30), 1230) << "without a note area nothing is scaled";
    EXPECT_EQ(full.PerMille(30), 30);
}

TEST(Frames, AClickIsReadAsTheNearestStep) {
    const StaffFrame staff{0, 0, 1000, 100, 5};
    EXPECT_EQ(staff.YOfLine(1), 1400);
    EXPECT_EQ(staff.YOfLine(9), 1000);
    EXPECT_EQ(staff.YOfLine(12), 850);
    for (int step = -20; step <= 30; ++step)
        for (const int off : {-24, 0, 24})
            EXPECT_EQ(StaffPosition(staff, staff.YOfLine(step) + off), step) << step << " " << off;
    EXPECT_EQ(StaffPosition({0, 0, 1000, 0, 5}, 1200), 0);
}

}  // namespace
}  // namespace corvane::build
