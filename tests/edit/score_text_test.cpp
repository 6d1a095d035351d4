// Title, names of staves and numbers of measures.
#include "edit/CommandTable.h"
#include "edit/ScoreTexts.h"
#include "edit/TextEntry.h"
#include "edit_fixture.h"
#include "layout/PageLayout.h"
#include "layout/StaffNames.h"
#include "layout/TextPlaces.h"
#include "state_keeper.h"

namespace corvane {
namespace {

class ScoreTextTest : public EditTest {
protected:
    System* SystemNumber(int number) {
        System* system = pageSystems.First(documentPages.First(Score()));
        while (--number > 0) system = pageSystems.Next(system);
        return system;
    }
    // The numbers that a system's measures show, each with the staves that show it.
    std::string Numbers() {
        std::string all;
        for (Measure* measure = MeasureNumber(1); measure; measure = NextMeasure(measure)) {
            const NumberPicture picture = NumberPictureOf(measure);
            if (!picture.places.empty())
                all += picture.text + "x" + std::to_string(picture.places.size()) + " ";
        }
        return all;
    }
    std::string NameAt(int system, int staff) {
        return std::string(
            NamePictureOf(StaffsFromTop(SystemNumber(system))[static_cast<size_t>(staff - 1)]).text);
    }
};

TEST_F(ScoreTextTest, ATitleStandsInTheMiddleOverTheMusicAndCanBeUndone) {
    const PoolState untitled = PoolState::Of(*window->Pool());
    ChangeTitle(*window, "Sonata");
    const Rect ink = PatchOf(Score()).Bounds();
    const Page* page = window->CurrentPage();
    const int32_t middle = (page->_leftMargin + Document::pageWidth - page->_rightMargin) / 2;
    EXPECT_NEAR((ink.left + ink.right) / 2, middle, 2);
    EXPECT_LT(ink.bottom, page->_topMargin);
    EXPECT_TRUE(window->Sheet().IsFiled(PatchOf(Score())));
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == untitled);
    EXPECT_FALSE(window->Sheet().IsFiled(PatchOf(Score())));

    ChangeTitle(*window, std::string(30, 'W'));
    EXPECT_GE(PatchOf(Score()).Bounds().left, page->_leftMargin) << "a long title is set smaller";
    ChangeTitle(*window, "");
    EXPECT_FALSE(window->Sheet().IsFiled(PatchOf(Score())));
}

TEST_F(ScoreTextTest, ADoubleClickOpensTheTitle) {
    ChangeTitle(*window, "Sonata");
    const Rect ink = PatchOf(Score()).Bounds();
    SetToolMode(ModeArrow);
    MouseDoubleClick(*window, ink.left + 50, (ink.top + ink.bottom) / 2, 0);
    ASSERT_TRUE(window->textEntry);
    EXPECT_EQ(window->textEntry->Text(), "Sonata");
    EndText(*window, "Sonatina");
    EXPECT_EQ(TitleOf(Score()), "Sonatina");
}

TEST_F(ScoreTextTest, NumbersStandWhereTheyAreAskedFor) {
    EXPECT_EQ(Numbers(), "4x1 ") << "a new score numbers its systems, but for the first";
    ChangeMeasureNumbers(*window, {true, Numbering::EverySoMany, 1, NumberStaves::All, 1});
    EXPECT_EQ(Numbers(), "2x2 3x2 4x2 5x2 6x2 ");
    ChangeMeasureNumbers(*window, {true, Numbering::EverySoMany, 5, NumberStaves::TopOfEach, 1});
    EXPECT_EQ(Numbers(), "5x1 ");
    ChangeMeasureNumbers(*window, {true, Numbering::EachSystem, 1, NumberStaves::Top, 21});
    EXPECT_EQ(Numbers(), "21x1 24x1 ");
    const PoolState shown = PoolState::Of(*window->Pool());
    EXPECT_TRUE(RunCommand(*window, 32782, {{"show", "0"}}));
    EXPECT_EQ(Numbers(), "");
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == shown);
    EXPECT_FALSE(RunCommand(*window, 32782, {{"step", "0"}}));
}

TEST_F(ScoreTextTest, NamesGetTheirRoomLeftOfTheSystems) {
    const PoolState unnamed = PoolState::Of(*window->Pool());
    const int32_t right = SystemNumber(1)->_right;
    ASSERT_TRUE(ChangeStaffName(*window, StaffNumber(1), "Pianoforte", ""));
    EXPECT_EQ(NameAt(1, 1), "Pianoforte");
    EXPECT_EQ(NameAt(1, 2), "") << "one name for the pair";
    EXPECT_EQ(NameAt(2, 1), "") << "without a short name later systems show none";
    const int32_t room = SystemNumber(1)->_left;
    EXPECT_GT(room, 0);
    EXPECT_EQ(SystemNumber(1)->_right, right);
    EXPECT_EQ(SystemNumber(2)->_left, 0);
    const System* system = SystemNumber(1);
    EXPECT_EQ(systemMeasures.Last(system)->_right, system->_right - system->_left);
    const StaffNamePicture name = NamePictureOf(StaffsFromTop(system)[0]);
    const StaffFrame first = FrameOf(StaffsFromTop(system)[0]), second = FrameOf(StaffsFromTop(system)[1]);
    EXPECT_GT(name.place.at.y, first.Bottom()) << "in the middle of the pair";
    EXPECT_LT(name.place.at.y, second.top);
    EXPECT_GE(InkOfText(name.text, name.look, name.place).left, window->CurrentPage()->_leftMargin);
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == unnamed);

    ASSERT_TRUE(RunCommand(*window, 40012, {{"staff", "1"}, {"name", "Violin"}, {"short", "Vln."}}));
    EXPECT_EQ(NameAt(1, 1), "Violin");
    EXPECT_EQ(NameAt(2, 1), "Vln.");
    EXPECT_GT(SystemNumber(1)->_left, SystemNumber(2)->_left);
    ASSERT_TRUE(RunCommand(*window, 32790, {{"count", "1"}}));
    EXPECT_EQ(pageSystems.First(documentPages.Last(Score()))->_left, SystemNumber(2)->_left)
        << "new systems have the room too";
    ExpectSound();
    ASSERT_TRUE(ChangeStaffName(*window, StaffNumber(1), "", ""));
    EXPECT_EQ(SystemNumber(1)->_left, 0);
    EXPECT_FALSE(RunCommand(*window, 40012, {{"staff", "3"}, {"name", "Viola"}}));
}

}  // namespace
}  // namespace corvane
