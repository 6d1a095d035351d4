// Texts at a staff and on the page, typed, changed and taken away, and what survives a save.
#include "edit/TextEntry.h"
#include "edit/Texts.h"
#include "edit_fixture.h"
#include "layout/PageLayout.h"
#include "state_keeper.h"

namespace corvane {
namespace {

class TextTest : public EditTest {
protected:
    void UseItem(int item) {
        SetToolMode(ModePencil);
        SetPaletteGroup(8);
        SetItem(static_cast<uint16_t>(item));
    }
    MeasureStaffText* StaffText(int measure, int staff) {
        for (StaffMeasureSymbol* symbol : staffSymbols.Of(Crossing(measure, staff)))
            if (auto* text = As<MeasureStaffText>(symbol)) return text;
        return nullptr;
    }
    std::string Typed(const MeasureStaffText* text) { return std::string(TextOf(text->_text.Get())); }
};

TEST_F(TextTest, APressWithTheTextItemChangesNothingBeforeTheTextIsTyped) {
    window->Pool()->SetModified(false);
    UseItem(1);
    Press(1, 1, 300, -4);
    ASSERT_TRUE(window->textEntry);
    EXPECT_FALSE(window->Modified());
    CancelText(*window);
    EXPECT_FALSE(window->textEntry);
    EXPECT_FALSE(window->CanUndo()) << "a press that came to nothing leaves the last step undoable";

    Press(1, 1, 300, -4);
    ASSERT_TRUE(TypeText(*window, "dolce"));
    const MeasureStaffText* text = StaffText(1, 1);
    ASSERT_TRUE(text);
    EXPECT_EQ(Typed(text), "dolce");
    EXPECT_EQ(text->_x, 300);
    EXPECT_EQ(text->_y, 6500) << "six spaces and a half below the top line";
    EXPECT_EQ(LookOf(text->_text.Get()).style, kItalicStyle) << "expression marks are slanted";
    ExpectSound();
}

TEST_F(TextTest, ATextIsCutBetweenCharacters) {
    EXPECT_EQ(CutText("Größe", 4), "Gr\xC3\xB6");
    EXPECT_EQ(CutText("Größe", 3), "Gr") << "half an o with dots is none";
    EXPECT_EQ(CutText("Größe", 100), "Größe");
    EXPECT_EQ(CutText("\xE4\xBD\xA0", 2), "");
    SetTitle(Score(), std::string(118, 'a') + "ü");
    EXPECT_EQ(TitleOf(Score()), std::string(118, 'a'));
    SetTitle(Score(), "Short");
    EXPECT_EQ(TitleOf(Score()), "Short") << "nothing of the longer one stays";
}

TEST_F(TextTest, EveryStepOnATextCanBeUndone) {
    const PoolState empty = PoolState::Of(*window->Pool());
    MeasureStaffText* text =
        InsertMeasureStaffText(*window, Crossing(1, 1), At(1, 1, 100, -4), "arco", StaffTextLook(Score()));
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == empty);
    window->Redo();

    const PoolState one = PoolState::Of(*window->Pool());
    ChangeMeasureStaffText(*window, text, "pizz.", {"Courier New", 252, kBoldStyle});
    EXPECT_EQ(LookOf(text->_text.Get()), (TextLook{"Courier New", 252, kBoldStyle}));
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == one);

    ChangeTextStaves(*window, text, true);
    EXPECT_EQ(textMarks.Count(text), 1) << "the other staff of the pair";
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == one);

    InsertPageText(*window, window->CurrentPage(), {5000, 900}, "Sonata", PageTextLook(Score()));
    ExpectSound();
    window->Undo();
    EXPECT_TRUE(PoolState::Of(*window->Pool()) == one);
}

TEST_F(TextTest, ATextThatAllStavesShowIsHitWhereItStandsAndNotBetween) {
    MeasureStaffText* text =
        InsertMeasureStaffText(*window, Crossing(1, 1), At(1, 1, 100, 13), "rit.", StaffTextLook(Score()));
    ChangeTextStaves(*window, text, true);
    const Point own = At(1, 1, 100, 13) + Point{20, -20}, other = At(1, 2, 100, 13) + Point{20, -20};
    EXPECT_EQ(window->Sheet().HitSymbol(own).Object(), text);
    EXPECT_EQ(window->Sheet().HitSymbol(other).Object(), text);
    EXPECT_FALSE(window->Sheet().HitSymbol(At(1, 1, 103, -2)));
    ChangeTextStaves(*window, text, false);
    EXPECT_FALSE(window->Sheet().HitSymbol(other));
}

TEST_F(TextTest, TheArrowOpensATextByADoubleClickAndAnEmptyOneGoes) {
    MeasureStaffText* text =
        InsertMeasureStaffText(*window, Crossing(1, 1), At(1, 1, 100, 13), "rit.", StaffTextLook(Score()));
    const Point on = At(1, 1, 100, 13) + Point{20, -20};
    SetToolMode(ModeArrow);
    MouseDoubleClick(*window, on.x, on.y, 0);
    ASSERT_TRUE(window->textEntry);
    EXPECT_EQ(window->textEntry->Text(), "rit.");
    EndText(*window, "rall.");
    EXPECT_EQ(Typed(text), "rall.");
    MouseDoubleClick(*window, on.x, on.y, 0);
    EndText(*window, "");
    EXPECT_FALSE(StaffText(1, 1));
    ExpectSound();
    EXPECT_FALSE(TypeText(*window, "lost")) << "nothing is being typed";
}

TEST_F(TextTest, AnythingElseThatChangesTheScoreEndsTheTyping) {
    UseItem(1);
    Press(1, 1, 300, -4);
    ASSERT_TRUE(window->textEntry);
    InsertPageText(*window, window->CurrentPage(), {5000, 900}, "Sonata", PageTextLook(Score()));
    EXPECT_FALSE(window->textEntry);
    Press(1, 1, 300, -4);
    window->Undo();
    EXPECT_FALSE(window->textEntry) << "its measure may be gone";
}

TEST_F(TextTest, TheEraserTakesTexts) {
    const Point at = At(1, 1, 100, 13), on = at + Point{20, -20};
    InsertMeasureStaffText(*window, Crossing(1, 1), at, "rit.", StaffTextLook(Score()));
    InsertPageText(*window, window->CurrentPage(), {5000, 900}, "Sonata", PageTextLook(Score()));
    SetToolMode(ModeEraser);
    MouseDown(*window, on.x, on.y, 0);
    EXPECT_FALSE(StaffText(1, 1));
    MouseDown(*window, 5020, 880, 0);
    EXPECT_TRUE(pageTexts.IsEmpty(window->CurrentPage()));
    ExpectSound();
}

}  // namespace
}  // namespace corvane
