// Measures dealt over systems, systems over pages, and where they stand there.
#include "edit/SessionChoices.h"
#include "edit/Signs.h"
#include "layout/PageFit.h"
#include "layout/SignRecords.h"
#include "model/Clefs.h"
#include "structure_fixture.h"

namespace corvane {
namespace {

constexpr int kMeasuresPerSystem = 32788, kSystemsPerPage = 32789, kCenterSystems = 32800,
              kCenterStaves = 32801;

class StructureFlow : public StructureTest {
protected:
    static int32_t Free(const Page* page) {
        return Document::pageHeight - page->_topMargin - page->_bottomMargin;
    }
    int CountOfMeasures() {
        int count = 0;
        for (const Page* page : documentPages.Of(Score()))
            for (const System* system : pageSystems.Of(page)) count += systemMeasures.Count(system);
        return count;
    }
};

TEST_F(StructureFlow, MeasuresAreDealtOverSystems) {
    const struct {
        const char* why;
        CommandArguments arguments;
        const char* shape;
    } cases[] = {
        {"more to a system", {{"count", "8"}}, "8 8 8/6"},
        {"fewer, on new pages like the last", {{"count", "4"}}, "4 4 4/4 4 4/4 2"},
        {"some systems only", {{"count", "3"}, {"from", "7"}, {"to", "12"}}, "5 3 3/3 1/5 5 5"},
        {"an emptied system in the middle", {{"count", "10"}, {"from", "1"}, {"to", "10"}}, "10 5/5 5 5"},
        {"as they are", {{"count", "5"}}, "5 5 5/5 5 5"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        OpenPages(2);
        for (int measure = 1; measure <= 30; measure += 3) Fill(measure, 1, 4, 4);
        const std::string notes = Notes();
        RunAndBack(kMeasuresPerSystem, c.arguments);
        EXPECT_EQ(Shape(), c.shape);
        EXPECT_EQ(Notes(), notes);
    }
}

TEST_F(StructureFlow, ALastSystemOfFewMeasuresEndsEarly) {
    constexpr int kAdd = 32791, kRemove = 32794, kPages = 32790, kPageSettings = 32776;
    OpenPages(1);
    const auto right = [&] { return SystemPar(LastMeasure(Score()))->_right.Get(); };
    const int32_t full = right();
    const struct {
        const char* why;
        int command;
        CommandArguments arguments;
        const char* shape;
        bool isShort;
    } steps[] = {
        {"two measures go, three are left", kRemove, {{"from", "14"}, {"to", "15"}}, "5 5 3", false},
        {"one more goes", kRemove, {{"from", "13"}, {"to", "13"}}, "5 5 2", true},
        {"the one above grows: its measures are narrower",
         kAdd,
         {{"count", "2"}, {"after", "6"}},
         "5 7 2",
         true},
        {"dealt over more pages", kSystemsPerPage, {{"count", "2"}}, "5 7/2", true},
        {"the margins change", kPageSettings, {{"left", "1000"}}, "5 7/2", true},
        {"it fills up", kAdd, {{"count", "3"}}, "5 7/5", false},
        {"dealt anew", kMeasuresPerSystem, {{"count", "8"}}, "8 8/1", true},
        {"what followed it goes on", kPages, {{"count", "1"}}, "8 8/1/1", false},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.why);
        RunAndBack(step.command, step.arguments);
        EXPECT_EQ(Shape(), step.shape);
        EXPECT_EQ(right() < full, step.isShort);
    }
}

TEST_F(StructureFlow, ALastSystemKeepsTheWidthThatItWasGiven) {
    OpenPages(1);
    ASSERT_TRUE(Run(kMeasuresPerSystem, {{"count", "7"}}));
    System* last = SystemPar(LastMeasure(Score()));
    ASSERT_EQ(last->_measureCount, 1);
    const int32_t given = last->_right + 500;
    SetSides(last, last->_left, given);
    ASSERT_TRUE(Run(kCenterSystems));
    ASSERT_TRUE(ChangeKey(*window, {MeasureNumber(1), nullptr}, -4));
    EXPECT_EQ(last->_right, given);
    EXPECT_EQ(systemMeasures.Last(last)->_right, given) << "a wider header takes of its note areas";
}

TEST_F(StructureFlow, HeadsOfSystemsMoveAndChangesStay) {
    OpenPages(1);
    ASSERT_TRUE(ChangeKey(*window, {MeasureNumber(6), nullptr}, -2));
    ASSERT_TRUE(ChangeMeter(*window, {MeasureNumber(11), nullptr}, Meter{{3}, 4, MeterKind::Normal}));
    {
        const EditStep step(*window);
        SetClefAtHead(*window, Crossing(6, 1), kBass);
    }
    RunAndBack(kMeasuresPerSystem, {{"count", "7"}});
    EXPECT_EQ(Signs(1, 1), "1 0 4/4");
    EXPECT_EQ(Signs(6, 1), "- -2 -") << "a key change inside a system";
    const auto* clef = SignOf<MovingClaf>(Crossing(5, 1));
    ASSERT_NE(clef, nullptr) << "a clef change inside a system";
    EXPECT_EQ(clef->_code, kBass);
    EXPECT_EQ(Signs(8, 1), "2 -2 -");
    EXPECT_EQ(Signs(8, 2), "2 -2 -");
    EXPECT_EQ(Signs(11, 1), "- - 3/4");
    RunAndBack(kMeasuresPerSystem, {{"count", "5"}});
    EXPECT_EQ(Signs(6, 1), "2 -2 -");
    EXPECT_EQ(Signs(8, 1), "- - -");
    EXPECT_EQ(Signs(11, 2), "2 -2 3/4");
}

TEST_F(StructureFlow, SystemsAreDealtOverPages) {
    const struct {
        const char* why;
        CommandArguments arguments;
        const char* shape;
    } cases[] = {
        {"fewer to a page", {{"count", "2"}}, "5 5/5 5/5 5/5 5/5"},
        {"more to a page", {{"count", "4"}}, "5 5 5 5/5 5 5 5/5"},
        {"from the second page on", {{"count", "1"}, {"from", "2"}}, "5 5 5/5/5/5/5/5/5"},
        {"a page that is to be full",
         {{"count", "5"}, {"from", "2"}, {"to", "3"}},
         "5 5 5/5 5 5 5 5/5 3 3 3 3"},
        {"the first page is filled", {{"count", "7"}, {"from", "3"}}, "5 5 5/5 5 5/5 5 5 3 3 3 3"},
        {"filled with what is asked for",
         {{"count", "5"}, {"from", "3"}, {"measures", "2"}},
         "5 5 5/5 5 5/5 5 5 2 2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        OpenPages(3);
        window->SetCurrentPage(PageNumber(3));
        RunAndBack(kSystemsPerPage, c.arguments);
        EXPECT_EQ(Shape(), c.shape);
        for (const Page* page : documentPages.Of(Score())) {
            const int n = pageSystems.Count(page);
            for (const System* system : pageSystems.Of(page))
                if (const System* next = pageSystems.Next(system)) {
                    EXPECT_EQ(next->_top - system->_top, (2 * Free(page) + n) / (2 * n));
                    EXPECT_LE(system->_bottom, next->_top);
                }
        }
    }
}

TEST_F(StructureFlow, NewSystemsHaveAsManyMeasuresAsSetWhereNobodyTells) {
    OpenPages(1);
    LastMeasure(Score())->_barline = BarlineKind::Final;
    Choices().measuresPerSystem = 4;
    RunAndBack(kSystemsPerPage, {{"count", "5"}, {"measures", "0"}});
    EXPECT_EQ(Shape(), "5 5 5 4 4");
    EXPECT_EQ(LastMeasure(Score())->_barline, BarlineKind::Final);
    EXPECT_EQ(MeasureNumber(15)->_barline, BarlineKind::Single) << "the score ends further on";
    Choices() = SessionChoices();
    EXPECT_EQ(Run(kSystemsPerPage, {{"count", "5"}, {"measures", "-1"}}).message(),
              "The number of measures must be higher than 0!");
}

TEST_F(StructureFlow, PagesWithoutSystemsAreFilled) {
    const struct {
        const char* why;
        CommandArguments arguments;
        const char* shape;
    } cases[] = {
        {"the first of them", {{"count", "2"}, {"from", "2"}}, "5 5 5/3 3//"},
        {"up to a page", {{"count", "1"}, {"from", "2"}, {"to", "3"}, {"measures", "6"}}, "5 5 5/6/6/"},
        {"those behind one that has none", {{"count", "2"}, {"from", "3"}}, "5 5 5//3 3/"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        OpenPages(1);
        for (int i = 0; i < 3; ++i) {
            Page* bare = MakePage(Score(), documentPages.Last(Score()), nullptr);
            bare->_leftMargin = bare->_rightMargin = 900;
            bare->_topMargin = bare->_bottomMargin = 1500;
        }
        ASSERT_EQ(Shape(), "5 5 5///");
        RunAndBack(kSystemsPerPage, c.arguments);
        EXPECT_EQ(Shape(), c.shape);
        EXPECT_EQ(LastMeasure(Score())->_number, CountOfMeasures());
    }
}

TEST_F(StructureFlow, SystemsTooHighForAFullerPageAreSpreadAnew) {
    OpenPages(1, "SSSS", 1, 2);
    const System* first = SystemNumber(1, 1);
    ASSERT_GT(first->_bottom - first->_top, Free(PageNumber(1)) / 4);
    RunAndBack(kSystemsPerPage, {{"count", "4"}});
    for (const System* system : pageSystems.Of(PageNumber(1)))
        if (const System* next = pageSystems.Next(system)) {
            EXPECT_LE(system->_bottom, next->_top);
        }
}

TEST_F(StructureFlow, AutocenterGivesEqualBandsAndStaves) {
    OpenPages(2, "SS", 2, 3);
    Page* page = PageNumber(1);
    SystemNumber(1, 2)->_top = 5000;
    SystemNumber(1, 2)->_bottom = 5900;
    const std::string other = LayoutOf(PageNumber(2));
    RunAndBack(kCenterStaves, {});
    const std::vector<Staff*> staffs = StaffsFromTop(SystemNumber(1, 2));
    EXPECT_EQ(staffs[1]->_top, 450) << "900 * 400 / 800";
    EXPECT_EQ(SystemNumber(1, 2)->_bottom, 5000 + 850);
    RunAndBack(kCenterSystems, {});
    // 13235 units are free: bands of 4412, of which 4245 are a system's.
    EXPECT_EQ(Free(page), 13235);
    EXPECT_EQ(SystemNumber(1, 2)->_top, 1800 + 4412);
    EXPECT_EQ(staffs[1]->_top, 2122);
    EXPECT_EQ(SystemNumber(1, 2)->_bottom, 1800 + 4412 + 2122 + 400);
    EXPECT_EQ(LayoutOf(PageNumber(2)), other) << "the current page only";
    ASSERT_TRUE(Run(kCenterSystems, {{"from", "1"}, {"to", "2"}}));
}

}  // namespace
}  // namespace corvane
