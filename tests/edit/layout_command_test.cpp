// Spacing and page setup by command: one undoable step each, with the figures worked out by hand from the
// default page of 15785 by 12197 with the margins 1800, 750, 1600 and 550.
#include "edit/CommandValues.h"
#include "layout/ListaEventi.h"
#include "model/FontTable.h"
#include "model/Preferences.h"
#include "structure_fixture.h"

namespace corvane {
namespace {

constexpr int kPageSetup = 57606, kModifyPage = 32776, kStaffSettings = 32777, kSpacingOptions = 32786,
              kNameOptions = 32787, kSpacing = 32807, kSpacingTable = 33177, kAddPages = 32790,
              kTimeOptions = 32798, kFontTable = 33090;

class LayoutCommands : public StructureTest {
protected:
    ~LayoutCommands() override {
        spacingTable = SpacingTable();
        UseFontList({});
    }
    std::vector<int32_t> Xs(int measure, int staff) {
        std::vector<int32_t> xs;
        for (const VoiceSymbol* symbol : voiceSymbols.Of(measureStaffVoices.First(Crossing(measure, staff))))
            xs.push_back(XOf(symbol));
        return xs;
    }
    // As if a hand had moved them.
    void Squeeze(int measure, int staff) {
        int32_t x = 0;
        for (VoiceSymbol* symbol : voiceSymbols.Of(measureStaffVoices.First(Crossing(measure, staff))))
            StemOf(As<Chords>(symbol))->_x = x += 10;
    }
    static std::vector<int32_t> Tops(const Page* page) {
        std::vector<int32_t> tops;
        for (const System* system : pageSystems.Of(page)) tops.push_back(system->_top);
        return tops;
    }
    using Xv = std::vector<int32_t>;
};

TEST_F(LayoutCommands, EachIsOneStepThatGoesBackWhole) {
    const struct {
        const char* why;
        int id;
        CommandArguments arguments;
    } cases[] = {
        {"by the engraver", kSpacing, {{"from", "1"}, {"to", "20"}}},
        {"in proportion", kSpacing, {{"mode", "mathematical"}}},
        {"wider gaps", kSpacingOptions, {{"first", "300"}, {"clef", "150"}}},
        {"another paper", kPageSetup, {{"height", "14000"}, {"width", "10000"}}},
        {"margins of one page", kModifyPage, {{"left", "1000"}, {"top", "1000"}, {"from", "2"}}},
        {"margins of all", kModifyPage, {{"right", "1500"}, {"from", "1"}, {"to", "2"}}},
        {"a small upper staff", kStaffSettings, {{"from", "1"}, {"size", "70"}}},
        {"all staves of three lines", kStaffSettings, {{"from", "1"}, {"to", "2"}, {"lines", "3"}}},
        {"room for names", kNameOptions, {{"indent", "1200"}}},
    };
    OpenPages(2);
    for (const int measure : {1, 2, 16}) {
        Fill(measure, 1, 8, 8);
        Fill(measure, 2, 4, 4);
        Squeeze(measure, 1);
    }
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        RunAndBack(c.id, c.arguments);
        window->Undo();
        EXPECT_EQ(Document::pageHeight, 15785) << "the paper goes back too";
        if (HasFailure()) return;
    }
}

TEST_F(LayoutCommands, SpacingReachesItsRangeAndNoFurther) {
    OpenPages(1, "SS");
    for (const int measure : {2, 3, 4})
        for (const int staff : {1, 2}) {
            Fill(measure, staff, 4, 4);
            Squeeze(measure, staff);
        }
    const Xv squeezed{10, 20, 30, 40}, even{0, 238, 476, 714};
    ASSERT_TRUE(Run(kSpacing, {{"from", "3"}, {"to", "2"}, {"mode", "mathematical"}}));
    EXPECT_EQ(Xs(2, 1), even);
    EXPECT_EQ(Xs(3, 2), even);
    EXPECT_EQ(Xs(4, 1), squeezed);
    // Each quarter of the usable width, whatever that is, but for the last one's own share.
    ASSERT_TRUE(Run(kSpacing, {{"from", "4"}}));
    const Xv engraved = Xs(4, 1);
    EXPECT_EQ(Xs(4, 2), engraved);
    EXPECT_NEAR(engraved[2] - engraved[1], engraved[1], 1);
    EXPECT_EQ(Xs(3, 1), even);
}

TEST_F(LayoutCommands, WhatMakesRoomIsTheScoresChoice) {
    OpenPages(1);
    for (const char* name : {"dots", "clefs", "accidentals", "lyrics"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(ValuesAtHand(*window, kSpacing).at(name), "1");
        RunAndBack(kSpacing, {{name, "0"}});
        EXPECT_EQ(ValuesAtHand(*window, kSpacing).at(name), "0") << "what the dialog offers next";
        ASSERT_TRUE(Run(kSpacing, {{name, "1"}}));
    }
}

TEST_F(LayoutCommands, GraceNotesKeepTheirPlacesAmongTheEvents) {
    constexpr int kThirtySecond = 13;
    const auto grace = [&](int perMille) {
        Tools().graceMode = true;
        Enter(kEighth, 1, 1, perMille, 5);
        Tools().graceMode = false;
    };
    Switches().autoSpace = false;
    Enter(kQuarter, 1, 1, 5, 3);
    for (int i = 1; i < 8; ++i) Enter(kThirtySecond, 1, 1, 5 + 100 * i, 3);
    for (int i = 0; i < 8; ++i) grace(55 + 100 * i);  // nothing follows the last one
    ASSERT_EQ(Xs(1, 1).size(), 16u);
    Switches().autoSpace = true;
    // The long note gives its room to the short ones, so that the first of them begins where it does.
    ASSERT_TRUE(Run(kSpacingTable, {{"1/32", "10"}}));
    RunAndBack(kSpacing, {{"from", "1"}, {"to", "1"}});
    const Xv crowded = Xs(1, 1);
    EXPECT_TRUE(std::is_sorted(crowded.begin(), crowded.end()));
}

TEST_F(LayoutCommands, OneVoiceOfASelectionIsSpacedAlone) {
    OpenPages(1, "SS");
    for (const int staff : {1, 2}) {
        Fill(2, staff, 4, 4);
        Squeeze(2, staff);
    }
    window->RefilePage();
    const Staff* upper = Crossing(2, 1)->_staff;
    const StaffFrame frame = FrameOf(upper);
    window->TheSelection().Add({frame.left, frame.top - 200, frame.right, frame.Bottom() + 200});
    const Status status = Run(kSpacing, {{"mode", "mathematical"}, {"all", "0"}});
    ASSERT_TRUE(status) << status.message();
    EXPECT_EQ(Xs(2, 1), (Xv{0, 238, 476, 714}));
    EXPECT_EQ(Xs(2, 2), (Xv{10, 20, 30, 40}));
    EXPECT_FALSE(window->TheSelection().IsEmpty()) << "what is spaced stays selected";
}

TEST_F(LayoutCommands, TheTableIsReadWhereItIsSpaced) {
    OpenPages(1, "S");
    Fill(2, 1, 3, 4);
    ASSERT_TRUE(Run(kSpacing, {}));
    const Xv usual = Xs(2, 1);
    ASSERT_TRUE(Run(kSpacingTable, {{"1/4", "7.5"}, {"min", "2"}}));
    EXPECT_EQ(spacingTable.WidthOf(0.25), 7.5F);
    EXPECT_EQ(spacingTable.WidthOf(0.01), 2.0F);
    EXPECT_EQ(spacingTable.WidthOf(0.125), 2.81F) << "what is not told stays";
    EXPECT_EQ(Xs(2, 1), usual) << "until it is spaced";
    ASSERT_TRUE(Run(kSpacing, {}));
    EXPECT_NE(Xs(2, 1), usual);
}

TEST_F(LayoutCommands, PaperAndMarginsMoveSystems) {
    OpenPages(2, "D");
    // 8000 - 2550 leaves 5450: bands of 1817 for systems 1400 high.
    ASSERT_TRUE(Run(kPageSetup, {{"height", "8000"}, {"width", "6000"}}));
    EXPECT_EQ(Tops(PageNumber(2)), (Xv{1800, 3617, 5434}));
    EXPECT_EQ(SystemNumber(2, 1)->_right, 6000 - 1600 - 550);
    // 8000 - 1000 - 750 = 6250, of the second page alone.
    ASSERT_TRUE(Run(kModifyPage, {{"top", "1000"}, {"left", "500"}, {"from", "2"}}));
    EXPECT_EQ(Tops(PageNumber(2)), (Xv{1000, 3083, 5166}));
    EXPECT_EQ(SystemNumber(2, 3)->_right, 6000 - 500 - 550);
    EXPECT_EQ(Tops(PageNumber(1)), (Xv{1800, 3617, 5434}));
    ExpectFitted();
}

TEST_F(LayoutCommands, TheLeastPaperHoldsThreeSystems) {
    OpenPages(1, "S", 2, 3);
    // 5950 - 1800 - 750 leaves 3400: bands of 1133; 4060 - 1600 - 550 leaves 1910 for two measures.
    RunAndBack(kPageSetup, {{"height", "5950"}, {"width", "4060"}});
    EXPECT_EQ(Tops(PageNumber(1)), (Xv{1800, 2933, 4066}));
    EXPECT_EQ(SystemNumber(1, 1)->_right, 1910);
    EXPECT_EQ(SystemNumber(1, 3)->_bottom, 4066 + 400) << "it ends with its only staff";
}

TEST_F(LayoutCommands, StavesKeepTheDistancesThatNobodyChanged) {
    OpenPages(2, "SSS", 2, 2);
    const auto tops = [&] {
        Xv all;
        for (const Staff* staff : StaffsFromTop(SystemNumber(2, 2))) all.push_back(staff->_top);
        return all;
    };
    ASSERT_EQ(tops(), (Xv{0, 2122, 4244}));
    ASSERT_TRUE(Run(kStaffSettings, {{"from", "2"}, {"size", "60"}, {"lines", "3"}}));
    EXPECT_EQ(tops(), (Xv{0, 2122, 2122 + 120 + 1722}));
    ASSERT_TRUE(Run(kStaffSettings, {{"from", "1"}, {"to", "3"}, {"distance", "500"}}));
    EXPECT_EQ(tops(), (Xv{0, 900, 1520}));
    const System* system = SystemNumber(2, 2);
    EXPECT_EQ(system->_bottom - system->_top, 1920) << "the system ends with its last staff";
}

TEST_F(LayoutCommands, TheFirstSystemIsIndentedWhicheverItIs) {
    OpenPages(2);
    ASSERT_TRUE(Run(kNameOptions, {{"indent", "1000"}}));
    EXPECT_EQ(SystemNumber(1, 1)->_left, 1000);
    EXPECT_EQ(systemMeasures.Last(SystemNumber(1, 1))->_right, 12197 - 1600 - 550 - 1000);
    EXPECT_EQ(SystemNumber(1, 2)->_left, 0);
    ASSERT_TRUE(Run(kAddPages, {{"count", "1"}, {"after", "0"}}));
    EXPECT_EQ(SystemNumber(1, 1)->_left, 1000);
    EXPECT_EQ(SystemNumber(2, 1)->_left, 0);
    ExpectFitted();
    ASSERT_TRUE(Run(kNameOptions, {{"indent", "0"}}));
    EXPECT_EQ(SystemNumber(1, 1)->_left, 0);
    ExpectFitted();
}

TEST_F(LayoutCommands, HeadersCloseUpWhereMetersAreNotShown) {
    OpenPages(1);
    const int32_t with = NoteAreaLeft(MeasureNumber(1));
    RunAndBack(kTimeOptions, {{"show", "0"}});
    EXPECT_LT(NoteAreaLeft(MeasureNumber(1)), with - 150);
    EXPECT_EQ(ValuesAtHand(*window, kTimeOptions).at("show"), "0");
}

TEST_F(LayoutCommands, AFontOfTheScoreIsDrawnWithAnother) {
    OpenPages(1);
    EXPECT_EQ(ValuesAtHand(*window, kFontTable).at("doc"), "Courier New") << "the first by name";
    ASSERT_TRUE(Run(kFontTable, {{"doc", "Times New Roman"}, {"sys", "Garamond"}}));
    EXPECT_EQ(FontName(DrawnFont("Times New Roman")), "Garamond");
    EXPECT_EQ(ValuesAtHand(*window, kFontTable).at("doc"), "Times New Roman") << "the one with a substitute";
    const Status status = Run(kFontTable, {{"doc", "Verdigris"}, {"sys", "Garamond"}});
    EXPECT_EQ(status.message(), "The score names no font \"Verdigris\"");
    ASSERT_TRUE(Run(kFontTable, {{"doc", "Times New Roman"}}));
    EXPECT_TRUE(TheFontList().Pairs().empty());
}

TEST_F(LayoutCommands, WhatADialogShowsFirstChangesNothing) {
    OpenPages(2, "SS");
    ASSERT_TRUE(Run(kNameOptions, {{"indent", "700"}}));
    ASSERT_TRUE(Run(kModifyPage, {{"from", "1"}, {"to", "2"}, {"left", "900"}}));
    for (const int staff : {1, 2}) Fill(2, staff, 4, 4);
    ASSERT_TRUE(Run(kSpacing, {}));
    const std::vector<std::string> before = Layouts();
    const Xv spaced = Xs(2, 1);
    for (const int id : {kPageSetup, kModifyPage, kStaffSettings, kSpacingOptions, kNameOptions,
                         kSpacingTable, kSpacing, kTimeOptions, kFontTable}) {
        const CommandArguments values = ValuesAtHand(*window, id);
        EXPECT_FALSE(values.empty()) << id;
        const Status status = Run(id, values);
        EXPECT_TRUE(status) << id << " " << status.message();
        EXPECT_EQ(Layouts(), before) << id;
    }
    EXPECT_EQ(Xs(2, 1), spaced);
    EXPECT_EQ(ValuesAtHand(*window, kSpacing).at("to"), "30") << "the whole score";
    EXPECT_EQ(ValuesAtHand(*window, kSpacingTable).at("1/8"), "2.810");
}

TEST_F(LayoutCommands, WhatMakesNoSenseIsRefusedAndChangesNothing) {
    const struct {
        int id;
        CommandArguments arguments;
        const char* message;
    } cases[] = {
        {kPageSetup,
         {{"height", "5949"}},
         "The minimum number of points per page in a custom pagesetting is: "
         "height 5950, width 4060"},
        {kPageSetup, {{"width", "4059"}}, "height 5950, width 4060"},
        {kModifyPage, {{"left", "9000"}, {"right", "3000"}}, "no room on the page"},
        {kModifyPage, {{"left", "-1"}}, "left is a whole number"},
        {kStaffSettings,
         {{"from", "1"}, {"size", "9"}},
         "The size of the staff must be between 10 and 1,000"},
        {kStaffSettings, {{"from", "1"}, {"size", "1001"}}, "between 10 and 1,000"},
        {kStaffSettings, {{"from", "1"}, {"distance", "10000"}}, "must be lower than 10,000!"},
        {kStaffSettings, {{"from", "3"}}, "from is a whole number from 1 to 2"},
        {kNameOptions, {{"indent", "9500"}}, "no room for the first system"},
        {kSpacing, {{"mode", "loose"}}, "mode is one of mathematical, engraver"},
        {kSpacing, {{"from", "99"}}, "there is no measure 99"},
        {kSpacingTable, {{"1/4", "wide"}}, "1/4 is a number from 0 to 1000"},
        {kSpacingTable, {{"1/3", "4"}}, "there is no argument"},
        {kSpacingOptions, {{"last", "1000"}}, "last is a whole number from 0 to 999"},
    };
    OpenPages(1);
    StateKeeper keeper(*window);
    for (const auto& c : cases) {
        const Status status = Run(c.id, c.arguments);
        EXPECT_FALSE(status) << c.message;
        EXPECT_NE(status.message().find(c.message), std::string::npos) << status.message();
    }
    EXPECT_EQ(keeper.commands, 0);
}

}  // namespace
}  // namespace corvane
