// Staves that come and go in every system and measure, with the braces and brackets that join them.
#include "layout/ScoreSkeleton.h"
#include "model/SymbolTable.h"
#include "structure_fixture.h"

namespace corvane {
namespace {

constexpr int kAddStaffs = 32792, kAddMeasures = 32791, kRemoveStaffs = 32795;

class StructureStaves : public StructureTest {
protected:
    // Clefs of the staves from the top at the head of a system: "1 2 11".
    std::string Clefs(int measure) {
        std::string clefs;
        for (const MeasureStaff* crossing : measureStaffs.Of(MeasureNumber(measure)))
            for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
                if (const auto* clef = As<StaticClaf>(symbol)) clefs += std::to_string(clef->_code) + " ";
        return clefs;
    }
    // Staves that each connection of a system joins, from 1: "1-2 3-4".
    std::string Joined(int page, int number) {
        const System* system = SystemNumber(page, number);
        const std::vector<Staff*> staffs = StaffsFromTop(system);
        const auto place = [&](const ConnStaff* end) {
            return std::to_string(std::find(staffs.begin(), staffs.end(), staffConnections.ParentOf(end)) -
                                  staffs.begin() + 1);
        };
        std::string joined;
        for (const Connection* connection : systemConnections.Of(system))
            joined += place(connectionStaffs.First(connection)) + "-" +
                      place(connectionStaffs.Last(connection)) + " ";
        return joined;
    }
    // Each crossing is drawn by the staff of its place in its system.
    void ExpectDrawn() {
        for (const Page* page : documentPages.Of(Score()))
            for (const System* system : pageSystems.Of(page)) {
                const std::vector<Staff*> staffs = StaffsFromTop(system);
                for (const Measure* measure : systemMeasures.Of(system)) {
                    size_t i = 0;
                    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
                        ASSERT_EQ(crossing->_staff.Get(), staffs[i++]);
                    ASSERT_EQ(i, staffs.size());
                }
                for (size_t i = 1; i < staffs.size(); ++i) ASSERT_GE(staffs[i]->_top, staffs[i - 1]->_bottom);
            }
    }
};

TEST_F(StructureStaves, ComeWhereTheyAreWanted) {
    OpenPages(2);
    RunAndBack(kAddStaffs, {{"type", "B"}, {"after", "0"}});
    EXPECT_EQ(Clefs(1), "2 1 2 ");
    RunAndBack(kAddStaffs, {{"type", "D"}, {"after", "1"}, {"count", "2"}});
    EXPECT_EQ(Clefs(6), "2 1 2 1 2 1 2 ");
    EXPECT_EQ(Joined(2, 3), "6-7 2-3 4-5 ") << "each pair keeps its brace";
    RunAndBack(kAddStaffs, {{"type", "E"}});
    EXPECT_EQ(Clefs(30 - 4), "2 1 2 1 2 1 2 11 ");
    EXPECT_EQ(Signs(1, 8), "11 0 4/4");
    EXPECT_EQ(Signs(6, 4), "1 0 -");
    ExpectDrawn();
    RunAndBack(kAddMeasures, {{"after", "5"}});
    ExpectDrawn();
}

TEST_F(StructureStaves, APairThatLosesAStaffLosesItsBrace) {
    OpenPages(2, "DD");
    RunAndBack(kRemoveStaffs, {{"from", "3"}});
    EXPECT_EQ(Joined(1, 1), "1-2 ");
    EXPECT_EQ(Joined(2, 3), "1-2 ");
    EXPECT_EQ(StaffsFromTop(SystemNumber(1, 1))[2]->_kind, StaffKind::Simple);
    EXPECT_EQ(Clefs(1), "1 2 2 ");
    RunAndBack(kRemoveStaffs, {{"from", "1"}, {"to", "2"}});
    EXPECT_EQ(Joined(1, 1), "");
    EXPECT_EQ(Clefs(6), "2 ");
    ExpectDrawn();
}

TEST_F(StructureStaves, ABracketReachesToTheStavesThatStay) {
    OpenPages(1, "SSSS", 2, 2);
    for (const int number : {1, 2}) {
        System* system = SystemNumber(1, number);
        const std::vector<Staff*> staffs = StaffsFromTop(system);
        Connect(system, staffs[0], staffs[2], LookupSymbol(Score(), "Bracket"));
    }
    RunAndBack(kRemoveStaffs, {{"from", "1"}});
    EXPECT_EQ(Joined(1, 1), "1-2 ");
    RunAndBack(kRemoveStaffs, {{"from", "2"}, {"to", "3"}});
    EXPECT_EQ(Joined(1, 2), "") << "one staff is left of it";
    EXPECT_EQ(documentDocStaffs.Count(Score()), 1);
}

TEST_F(StructureStaves, ACustomStaffIsNotPartedAndGoesWithItsLastLines) {
    OpenPages(1, "SC52", 2, 2);
    ASSERT_EQ(documentDocStaffs.Count(Score()), 3);
    RunAndBack(kAddStaffs, {{"type", "B"}, {"after", "2"}});
    EXPECT_EQ(Clefs(1), "1 1 1 2 ") << "below the group";
    ExpectDrawn();
    RunAndBack(kRemoveStaffs, {{"from", "2"}});
    EXPECT_EQ(systemStaffs.Count(SystemNumber(1, 1)), 3);
    RunAndBack(kRemoveStaffs, {{"from", "2"}});
    EXPECT_EQ(systemStaffs.Count(SystemNumber(1, 1)), 2) << "the group has gone";
    ExpectDrawn();
}

TEST_F(StructureStaves, ASoloedStaffThatGoesEndsTheSolo) {
    OpenPages(1, "SS", 1, 1);
    StaffNumber(2)->_solo = 1;
    Score()->_hasSolo = 1;
    ExpectSound();
    RunAndBack(kRemoveStaffs, {{"from", "2"}});
    EXPECT_EQ(Score()->_hasSolo, 0);
}

}  // namespace
}  // namespace corvane
