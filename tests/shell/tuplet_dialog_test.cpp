// The tuplet dialog shows what a new tuplet would be and says what was chosen in the command's words.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QSpinBox>

#include "ViewFixture.h"
#include "edit/CommandTable.h"
#include "shell/TupletDialog.h"

namespace corvane {
namespace {

using TupletDialogTest = ViewTest;

TEST_F(TupletDialogTest, EveryChoiceIsOneThatTheCommandTakes) {
    for (const int figure : {0, 1, 2, 3})
        for (const int bracket : {0, 1, 2}) {
            TupletDialog dialog(nullptr, {5, 4, TupletFigure::AsUsual, TupletBracket::UnlessBeamed});
            dialog.findChild<QComboBox*>("figure")->setCurrentIndex(figure);
            dialog.findChild<QComboBox*>("bracket")->setCurrentIndex(bracket);
            dialog.findChild<QSpinBox*>("count")->setValue(7);
            CommandArguments arguments = dialog.Arguments();
            EXPECT_EQ(arguments.at("count") + ":" + arguments.at("in"), "7:4");
            // Nothing is selected: that, and no argument, is what it refuses.
            EXPECT_EQ(RunCommand(*window, 32805, arguments).message(),
                      "Select the notes of the tuplet first");
        }
}

TEST_F(TupletDialogTest, ItStartsWithTheScoresOwnTuplet) {
    const TupletDialog dialog(nullptr, UsualTuplet(window->GetDocument()));
    const CommandArguments expected{
        {"count", "3"}, {"in", "2"}, {"figure", "usual"}, {"bracket", "unbeamed"}};
    EXPECT_EQ(dialog.Arguments(), expected);
}

}  // namespace
}  // namespace corvane
