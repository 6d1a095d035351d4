// A MIDI file through the window: the dialog that asks how to read it, what is kept of it, and giving up.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>

#include "platform/files/FileSettings.h"
#include "platform/files/PosixFiles.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "shell/ImportDialog.h"
#include "shell/MainFrame.h"
#include "shell/ScoreTabs.h"

namespace corvane {
namespace {

class ImportDialogTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "test", *arguments[] = {name, nullptr};
        if (!qApp) new QApplication(count, arguments);  // for the rest of the run
        InstallFreeTypeMeasures();
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }
    // The lists of a dialog, a line each with the chosen entry marked, in order of the alphabet.
    static std::string Lists(const QWidget& dialog) {
        QStringList lists;
        for (const QComboBox* list : dialog.findChildren<QComboBox*>()) {
            QStringList entries;
            for (int i = 0; i < list->count(); ++i)
                entries += (i == list->currentIndex() ? "*" : "") + list->itemText(i);
            lists += entries.join(' ') + "\n";
        }
        lists.sort();
        return lists.join("").toStdString();
    }
    static void Choose(const QWidget& dialog, const QString& among, const QString& entry) {
        for (QComboBox* list : dialog.findChildren<QComboBox*>())
            if (list->findText(among) >= 0) list->setCurrentText(entry);
    }

    QTemporaryDir folder;
    PosixFiles files;
    FileSettings settings{files, folder.path().toStdString()};
};

TEST_F(ImportDialogTest, SaysWhatItAsks) {
    const ImportDialog dialog(nullptr, ImportOptions());
    const auto* pages = dialog.findChild<QTabWidget*>();
    ASSERT_TRUE(pages);
    ASSERT_EQ(pages->count(), 2);
    EXPECT_EQ(pages->tabText(1), "Advanced settings");
    EXPECT_EQ(Lists(dialog),
              "*Don't split Voice 1 Voice 2 Voice 3 Voice 4 Voice 5 Voice 6 Voice 7 Voice 8\n"
              "*Triplet Quintuplet 7tuplet 9tuplet 11tuplet\n"
              "Half Quarter Eighth 16th *32nd 64th 128th\n"
              "None Half Quarter Eighth *16th 32nd 64th 128th\n");
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) texts += label->text().remove('&');
    for (const char* text : {"Quantization level", "Smallest Tuplet", "Resolution",
                             "Note: for a generic MIDI file try first to set the\n"
                             "quantization level to 16th or 32th",
                             "If you wish to split on two different voices notes\n"
                             "recorded simultaneously on the same voice, insert\n"
                             "the second voice on voice"})
        EXPECT_TRUE(texts.contains(text)) << text;
    EXPECT_EQ(dialog.findChild<QCheckBox*>()->text().remove('&'), "Allow tuplets");
}

TEST_F(ImportDialogTest, WhatIsChosenIsReadAndKept) {
    ImportDialog dialog(nullptr, ReadImportOptions(settings));
    Choose(dialog, "16th", "64th");  // the level and the resolution
    Choose(dialog, "Don't split", "Voice 3");
    Choose(dialog, "Quintuplet", "9tuplet");
    auto* tuplets = dialog.findChild<QCheckBox*>();
    EXPECT_TRUE(tuplets->isChecked());
    tuplets->click();
    int greyed = 0;
    for (const QComboBox* list : dialog.findChildren<QComboBox*>()) greyed += !list->isEnabledTo(&dialog);
    EXPECT_EQ(greyed, 2) << "what only counts with tuplets";
    WriteImportOptions(settings, dialog.Options());
    const ImportOptions kept = ReadImportOptions(settings);
    EXPECT_EQ(kept.level, 6);
    EXPECT_EQ(kept.splitVoice, 3);
    EXPECT_FALSE(kept.tuplets);
    EXPECT_EQ(kept.tupletKind, 4);
    EXPECT_EQ(kept.tupletResolution, 64);
    EXPECT_EQ(Lists(ImportDialog(nullptr, kept)), Lists(dialog));
    for (const char* name : {"Level", "Split", "Smallest Tuplet", "Resolution"})
        settings.WriteText("Settings/Quantizzazione", name, "4711");
    const ImportDialog healed(nullptr, ReadImportOptions(settings));
    for (const QComboBox* list : healed.findChildren<QComboBox*>()) EXPECT_GE(list->currentIndex(), 0);
}

// The whole way from the menu. Each modal dialog is answered as soon as it stands.
class ImportByMenu : public ImportDialogTest {
protected:
    ImportByMenu() : frame(Parts(files, settings), settings) {
        frame.Start({});
        QObject::connect(&hand, &QTimer::timeout, [this] { Answer(QApplication::activeModalWidget()); });
    }
    static SessionParts Parts(FileLayer& files, SettingsStore& settings) {
        SessionParts parts;
        parts.files = &files;
        parts.settings = &settings;
        return parts;
    }
    void Answer(QWidget* asking) {
        if (auto* chooser = qobject_cast<QFileDialog*>(asking)) {
            seen += "file ";
            chooser->findChild<QLineEdit*>()->setText(path);
            static_cast<QDialog*>(chooser)->accept();
        } else if (auto* progress = qobject_cast<QProgressDialog*>(asking)) {
            if (!givesUp || progress->wasCanceled()) return;
            seen += "progress ";
            EXPECT_EQ(progress->windowTitle(), "Import");
            progress->findChild<QPushButton*>()->click();
        } else if (auto* dialog = dynamic_cast<ImportDialog*>(asking)) {
            seen += "options ";
            dialog->findChild<QDialogButtonBox*>()->button(button)->click();
        }
    }
    // How many scores are open afterwards.
    int Import() {
        seen.clear();
        hand.start(0);
        frame.Files().ImportMidi();
        hand.stop();
        return frame.Tabs().count();
    }

    MainFrame frame;
    QTimer hand;
    QString path = CORVANE_SOURCE_DIR "/tests/data/midi/m21-test02.mid";
    QDialogButtonBox::StandardButton button = QDialogButtonBox::Ok;
    bool givesUp = false;
    std::string seen;
};

TEST_F(ImportByMenu, CancelCancelsAndOkMakesAScore) {
    const WindowTarn* before = frame.CurrentScore();
    button = QDialogButtonBox::Cancel;
    EXPECT_EQ(Import(), 1);
    EXPECT_EQ(seen, "file options ");
    EXPECT_EQ(frame.CurrentScore(), before);
    button = QDialogButtonBox::Ok;
    givesUp = true;
    EXPECT_EQ(Import(), 1);
    EXPECT_EQ(seen, "file options progress ");
    EXPECT_EQ(frame.CurrentScore(), before) << "given up, there is nothing of it";
    givesUp = false;
    Import();
    ASSERT_NE(frame.CurrentScore(), before);
    EXPECT_EQ(frame.CurrentScore()->Title(), "m21-test02");
    EXPECT_EQ(documentDocStaffs.Count(frame.CurrentScore()->GetDocument()), 4);
}

}  // namespace
}  // namespace corvane
