// A text typed over the score with real keys.
#include <QKeyEvent>

#include "ViewFixture.h"
#include "edit/TextEntry.h"
#include "layout/Lyrics.h"
#include "shell/ScoreView.h"
#include "shell/TextEditor.h"

namespace corvane {
namespace {

class TextEditorTest : public ViewTest {
protected:
    void Begin(int item, Point at) {
        SetToolMode(ModePencil);
        SetPaletteGroup(8);
        SetItem(static_cast<uint16_t>(item));
        MouseDown(*window, at.x, at.y, 0);
        ASSERT_TRUE(window->textEntry);
    }
    // Types into a new editor for what is being typed, as the view makes one for each text.
    void Type(const QString& text, int lastKey) {
        QWidget parent;
        TextEditor editor(&parent, *window);
        editor.insertPlainText(text);
        Press(editor, lastKey);
    }
    static void Press(TextEditor& editor, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&editor, &event);
    }
    std::string PageTextStanding() {
        const PageText* text = pageTexts.First(window->CurrentPage());
        return text ? std::string(TextOf(text->_text.Get())) : std::string();
    }
};

TEST_F(TextEditorTest, ReturnTakesATextAndEscapeLeavesEverything) {
    Begin(3, {5000, 900});
    Type("Arie", Qt::Key_Escape);
    EXPECT_EQ(PageTextStanding(), "");
    EXPECT_FALSE(window->textEntry);
    Begin(3, {5000, 900});
    Type("Arie für Größe", Qt::Key_Return);
    EXPECT_EQ(PageTextStanding(), "Arie für Größe");
    EXPECT_FALSE(window->textEntry);
}

// Shortcuts that are letters alone come to the menus only where nobody types.
TEST_F(TextEditorTest, LettersAreLettersNotShortcuts) {
    Begin(3, {5000, 900});
    QWidget parent;
    TextEditor editor(&parent, *window);
    for (const char letter : {'b', 'c', 'h', 'i', 'l', 'q', 't', 'u', 'w', 'y'}) {
        const int key = Qt::Key_A + (letter - 'a');
        QKeyEvent asks(QEvent::ShortcutOverride, key, Qt::NoModifier, QString(QChar(letter)));
        asks.ignore();
        QApplication::sendEvent(&editor, &asks);
        EXPECT_TRUE(asks.isAccepted()) << letter;
    }
}

TEST_F(TextEditorTest, KeysMakeATextBoldOrLarger) {
    Begin(3, {5000, 900});
    QWidget parent;
    TextEditor editor(&parent, *window);
    editor.insertPlainText("Arie");
    Press(editor, Qt::Key_B, Qt::ControlModifier);
    Press(editor, Qt::Key_BracketRight, Qt::ControlModifier);
    Press(editor, Qt::Key_Return);
    const PageText* text = pageTexts.First(window->CurrentPage());
    ASSERT_TRUE(text);
    EXPECT_EQ(LookOf(text->_text.Get()), (TextLook{"Times New Roman", 210, 1}));
}

TEST_F(TextEditorTest, AHyphenOfASongGoesOnToTheNextNoteAndOfATextIsALetter) {
    EnterSome();
    Begin(2, PlaceOf(1, -3));
    const auto* chord = static_cast<Chords*>(voiceSymbols.Last(measureStaffVoices.First(
        measureStaffs.First(systemMeasures.First(pageSystems.First(window->CurrentPage()))))));
    Type("la", Qt::Key_Minus);
    const Liriche* syllable = SyllableOf(chord, 1);
    ASSERT_TRUE(syllable);
    EXPECT_EQ(syllable->_joint, LyricJoint::Hyphen);
    ASSERT_TRUE(window->textEntry) << "the next note waits for its syllable";
    Type("le", Qt::Key_Return);
    EXPECT_TRUE(SyllableOf(NextSung(chord), 1));

    Begin(3, {5000, 900});
    QWidget parent;
    TextEditor editor(&parent, *window);
    editor.insertPlainText("Da");
    QKeyEvent hyphen(QEvent::KeyPress, Qt::Key_Minus, Qt::NoModifier, "-");
    QApplication::sendEvent(&editor, &hyphen);
    Press(editor, Qt::Key_Return);
    EXPECT_EQ(PageTextStanding(), "Da-");
}

}  // namespace
}  // namespace corvane
