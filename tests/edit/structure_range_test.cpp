// Pages, measures and staves come and go at the start, in the middle and at the end of long scores.
#include <random>

#include "layout/Beaming.h"
#include "structure_fixture.h"

namespace corvane {
namespace {

constexpr int kAddPages = 32790, kAddMeasures = 32791, kAddStaffs = 32792;
constexpr int kRemovePages = 32793, kRemoveMeasures = 32794, kRemoveStaffs = 32795;

class StructureRange : public StructureTest {};

TEST_F(StructureRange, EveryPartOfTwoHundredPagesComesAndGoes) {
    constexpr int kPages = 200, kMeasures = kPages * 15;
    const struct {
        const char* why;
        int id;
        CommandArguments arguments;
        int pages, measures, staves;  // more than before
    } cases[] = {
        {"pages at the start", kAddPages, {{"count", "2"}, {"after", "0"}}, 2, 30, 0},
        {"pages in the middle", kAddPages, {{"count", "1"}, {"after", "100"}}, 1, 15, 0},
        {"pages at the end", kAddPages, {{"count", "3"}}, 3, 45, 0},
        {"measures at the start", kAddMeasures, {{"count", "2"}, {"after", "0"}}, 0, 2, 0},
        {"measures in the middle", kAddMeasures, {{"count", "3"}, {"after", "1500"}}, 0, 3, 0},
        {"measures at the end", kAddMeasures, {{"count", "1"}}, 0, 1, 0},
        {"staves on top", kAddStaffs, {{"type", "S"}, {"after", "0"}}, 0, 0, 1},
        {"staves in the middle", kAddStaffs, {{"type", "D"}, {"count", "2"}, {"after", "1"}}, 0, 0, 4},
        {"staves at the bottom", kAddStaffs, {{"type", "E"}}, 0, 0, 1},
        {"the first page", kRemovePages, {{"from", "1"}}, -1, -15, 0},
        {"pages in the middle", kRemovePages, {{"from", "90"}, {"to", "110"}}, -21, -315, 0},
        {"the last page", kRemovePages, {{"from", "200"}}, -1, -15, 0},
        {"the first measure", kRemoveMeasures, {{"from", "1"}}, 0, -1, 0},
        {"measures over three pages", kRemoveMeasures, {{"from", "1493"}, {"to", "1522"}}, -1, -30, 0},
        {"the last measures", kRemoveMeasures, {{"from", "2996"}, {"to", "3000"}}, 0, -5, 0},
        {"the top staff", kRemoveStaffs, {{"from", "1"}}, 0, 0, -1},
        {"the bottom staff", kRemoveStaffs, {{"from", "2"}}, 0, 0, -1},
    };
    OpenPages(kPages);
    for (const int measure : {1, 2, 1499, 1500, 1501, 3000}) {
        Fill(measure, 1, 8, 8);
        Fill(measure, 2, 2, 2);
    }
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        RunAndBack(c.id, c.arguments);
        EXPECT_EQ(Score()->_pageCount, kPages + c.pages);
        EXPECT_EQ(documentDocStaffs.Count(Score()), 2 + c.staves);
        const System* end = pageSystems.Last(documentPages.Last(Score()));
        EXPECT_EQ(systemMeasures.Last(end)->_number, kMeasures + c.measures);
        window->Undo();
        if (HasFailure()) return;
    }
}

TEST_F(StructureRange, OnlyTheSystemOfAMeasureMoves) {
    OpenPages(4);
    const std::vector<std::string> before = Layouts();
    const std::string second = LayoutOf(PageNumber(2));
    ASSERT_TRUE(Run(kAddMeasures, {{"count", "2"}, {"after", "20"}}));
    EXPECT_EQ(Shape(), "5 5 5/7 5 5/5 5 5/5 5 5");
    for (const size_t page : {0, 2, 3}) EXPECT_EQ(Layouts()[page], before[page]);
    const System *grown = SystemNumber(2, 1), *same = SystemNumber(2, 2);
    EXPECT_EQ(systemMeasures.Last(grown)->_right, grown->_right - grown->_left) << "the width is used up";
    EXPECT_EQ(systemMeasures.First(same)->_right, systemMeasures.First(SystemNumber(1, 2))->_right);
    for (const Measure* m : systemMeasures.Of(grown))
        if (const Measure* next = systemMeasures.Next(m)) {
            EXPECT_NEAR(m->Width() - NoteAreaLeft(m), next->Width() - NoteAreaLeft(next), 1)
                << "equal note areas";
        }
    ASSERT_TRUE(Run(kRemoveMeasures, {{"from", "21"}, {"to", "22"}}));
    EXPECT_EQ(Layouts(), before);
}

TEST_F(StructureRange, AnEmptiedSystemAndAnEmptiedPageGo) {
    OpenPages(3);
    ASSERT_TRUE(Run(kRemoveMeasures, {{"from", "14"}, {"to", "33"}}));
    EXPECT_EQ(Shape(), "5 5 3/2 5 5");
    ExpectSound();
    ASSERT_TRUE(Run(kRemoveMeasures, {{"from", "6"}, {"to", "10"}}));
    EXPECT_EQ(Shape(), "5 3/2 5 5");
    const int32_t free = Document::pageHeight - PageNumber(1)->_topMargin - PageNumber(1)->_bottomMargin;
    EXPECT_EQ(SystemNumber(1, 2)->_top - SystemNumber(1, 1)->_top, (free + 1) / 2)
        << "the page is shared anew";
    EXPECT_EQ(SystemNumber(1, 2)->_top - SystemNumber(1, 1)->_top - SystemNumber(2, 2)->_top +
                  SystemNumber(2, 1)->_top,
              (free + 1) / 2 - (free + 1) / 3);
    ExpectSound();

    OpenPages(2, "S", 1, 1);
    ASSERT_TRUE(Run(kRemoveMeasures, {{"from", "2"}}));
    EXPECT_EQ(Shape(), "1") << "a measure alone in its system and on its page";
    ExpectSound();
}

TEST_F(StructureRange, WhatMakesNoSenseIsRefusedInWordsAndChangesNothing) {
    OpenPages(2);
    const PoolState before = PoolState::Of(*window->Pool());
    const struct {
        const char* says;
        int id;
        CommandArguments arguments;
    } cases[] = {
        {"The number of measures must be higher than 0!", kAddMeasures, {{"count", "0"}}},
        {"The number of pages must be higher than 0!", kAddPages, {{"count", "-1"}}},
        {"Insert at least one staff before clicking OK", kAddStaffs, {{"count", "0"}}},
        {"It is impossible to insert more than 16 staves!", kAddStaffs, {{"count", "17"}}},
        {"It is impossible to insert more than 16 staves!", kAddStaffs, {{"type", "D"}, {"count", "9"}}},
        {"Can't remove all pages!", kRemovePages, {{"from", "1"}, {"to", "2"}}},
        {"Can't remove all the measures of a document!", kRemoveMeasures, {{"from", "30"}, {"to", "1"}}},
        {"Can't remove all staves!", kRemoveStaffs, {{"from", "1"}, {"to", "2"}}},
        {"The number of measures must be higher than 0!", 32788, {{"count", "0"}}},
        {"The number of systems must be higher than 0!", 32789, {{"count", "0"}}},
        {"from is a whole number from 1 to 2", kRemovePages, {{"from", "3"}}},
        {"there is no measure 31", kAddMeasures, {{"after", "31"}}},
        {"from is missing", kRemoveStaffs, {}},
        {"type is one of S, D, B, E", kAddStaffs, {{"type", "C"}}},
    };
    for (const auto& c : cases) {
        const Status status = Run(c.id, c.arguments);
        EXPECT_FALSE(status) << c.says;
        EXPECT_EQ(status.message(), c.says);
    }
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == before);
    EXPECT_FALSE(window->CanUndo());

    EXPECT_TRUE(Run(kAddStaffs, {{"type", "D"}, {"count", "8"}}));
    EXPECT_EQ(documentDocStaffs.Count(Score()), 18);
}

TEST_F(StructureRange, AMeasureAloneInTheScoreStays) {
    OpenPages(1, "S", 1, 1);
    EXPECT_FALSE(Run(kRemoveMeasures, {{"from", "1"}}));
    EXPECT_FALSE(Run(kRemovePages, {{"from", "1"}}));
    // A page without systems does not hold the score.
    ASSERT_TRUE(Run(kAddPages, {{"count", "1"}}));
    ASSERT_TRUE(Run(kRemoveMeasures, {{"from", "1"}}));
    EXPECT_EQ(Shape(), "1");
    EXPECT_EQ(Signs(1, 1), "1 0 4/4");
}

TEST_F(StructureRange, CurrentPageAndCaretStayValid) {
    OpenPages(3);
    window->SetCurrentPage(PageNumber(2));
    window->caret = {MeasureNumber(17), StaffNumber(1), FrameOf(MeasureNumber(17)).XOf(250), true};
    ASSERT_TRUE(Run(kAddMeasures, {{"count", "3"}, {"after", "15"}}));
    EXPECT_EQ(window->caret.measure, MeasureNumber(20)) << "the caret stays with its measure";
    EXPECT_EQ(window->caret.x, FrameOf(MeasureNumber(20)).XOf(250));
    ASSERT_TRUE(Run(kRemoveStaffs, {{"from", "1"}}));
    EXPECT_EQ(window->caret.measure, nullptr) << "its staff has gone";

    window->caret = {MeasureNumber(20), StaffNumber(1), 0, true};
    ASSERT_TRUE(Run(kRemoveMeasures, {{"from", "20"}}));
    EXPECT_EQ(window->caret.measure, nullptr);

    Page* third = PageNumber(3);
    ASSERT_TRUE(Run(kRemovePages, {{"from", "2"}}));
    EXPECT_EQ(window->CurrentPage(), third) << "the page behind the one that went";
    window->Undo();
    EXPECT_EQ(window->CurrentPage(), PageNumber(2));
    window->Redo();
    EXPECT_EQ(window->CurrentPage(), third);
    ASSERT_TRUE(Run(kRemovePages, {{"from", "2"}}));
    EXPECT_EQ(window->CurrentPage(), PageNumber(1)) << "the last page went";
    ExpectFiled();
}

TEST_F(StructureRange, WithoutNumbersWhatIsSelectedGoes) {
    OpenPages(2);
    for (const int measure : {2, 3}) Fill(measure, 1, 4, 4);
    window->RefilePage();
    const StaffFrame staff = FrameOf(Crossing(2, 1)->_staff.Get());
    window->TheSelection().Add({FrameOf(MeasureNumber(2)).left, staff.top - 400,
                                FrameOf(MeasureNumber(4)).left, staff.Bottom() + 400});
    ASSERT_TRUE(Run(kRemoveMeasures));
    EXPECT_EQ(Shape(), "3 5 5/5 5 5");
    EXPECT_TRUE(window->TheSelection().IsEmpty());
    ASSERT_TRUE(Run(kRemovePages)) << "the current page";
    EXPECT_EQ(Shape(), "5 5 5");
}

// Hundreds of random commands with notes, signs and beams between them.
TEST_F(StructureRange, RandomCommandsStaySoundAndUndoEveryByte) {
    std::mt19937 random{7};
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    OpenPages(3, "DS", 4, 2);
    for (int step = 0; step < 150; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const System* end = pageSystems.Last(documentPages.Last(Score()));
        const int measures = systemMeasures.Last(end)->_number, pages = Score()->_pageCount;
        const int staves = documentDocStaffs.Count(Score());
        const int filled = pick(1, measures), staff = pick(1, staves);
        if (Events(filled, staff).empty()) BeamVoice(VoicePar(Fill(filled, staff, pick(1, 8), 8)[0]));
        const bool grow = measures < 60;
        const auto number = [](int n) { return std::to_string(n); };
        const int from = pick(1, measures);
        switch (pick(0, 9)) {
            case 0:
                RunAndBack(kAddPages, {{"after", number(pick(0, pages))}});
                break;
            case 1:
                RunAndBack(kAddMeasures,
                           {{"after", number(pick(0, measures))}, {"count", number(pick(1, 3))}});
                break;
            case 2:
                RunAndBack(32788, {{"count", number(pick(1, 9))}, {"from", number(from)}});
                break;
            case 3:
                RunAndBack(32789, {{"count", number(pick(1, 4))}, {"from", number(pick(1, pages))}});
                break;
            case 4:
                RunAndBack(32781, {{"fifths", number(pick(-7, 7))}, {"from", number(from)}});
                break;
            case 5:
                RunAndBack(32779, {{"num", number(pick(2, 6))}, {"den", "4"}, {"from", number(from)}});
                break;
            case 6:
                if (staves < 5)
                    RunAndBack(kAddStaffs,
                               {{"type", pick(0, 1) ? "D" : "B"}, {"after", number(pick(0, staves))}});
                else
                    RunAndBack(kRemoveStaffs, {{"from", number(pick(1, staves))}});
                break;
            case 7:
                if (pages > 2 && !grow) RunAndBack(kRemovePages, {{"from", number(pick(1, pages))}});
                break;
            default:
                if (measures > 10)
                    RunAndBack(kRemoveMeasures,
                               {{"from", number(from)}, {"to", number(std::min(measures, from + 4))}});
        }
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace corvane
