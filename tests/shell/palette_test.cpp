// Palettes stand in the room that the window has, and scroll what does not fit.
#include <QScrollArea>
#include <QToolButton>

#include "ViewFixture.h"
#include "shell/PaletteDock.h"
#include "shell/SignDock.h"

namespace corvane {
namespace {

class PaletteTest : public ViewTest {
protected:
    // However low the dock is, each column of its buttons is seen.
    static void ExpectLowAndWhole(QDockWidget& dock) {
        EXPECT_LT(dock.minimumSizeHint().height(), 240);
        dock.resize(dock.minimumSizeHint());
        dock.show();
        QCoreApplication::processEvents();
        const QWidget* viewport = dock.findChild<QScrollArea*>()->viewport();
        int buttons = 0;
        for (const QToolButton* button : dock.widget()->findChildren<QToolButton*>()) {
            if (!button->objectName().startsWith("item")) continue;
            const QRect area(button->mapTo(viewport, QPoint(0, 0)), button->size());
            EXPECT_GE(area.left(), 0) << button->objectName().toStdString();
            EXPECT_LE(area.right(), viewport->width()) << button->objectName().toStdString();
            ++buttons;
        }
        EXPECT_GE(buttons, 3);
    }
};

TEST_F(PaletteTest, NoPaletteMakesTheWindowGrow) {
    PaletteDock notes;
    ExpectLowAndWhole(notes);
    for (const SignSheet& sheet : SignSheets()) {
        SCOPED_TRACE(sheet.title);
        SignDock dock(sheet);
        ExpectLowAndWhole(dock);
    }
}

}  // namespace
}  // namespace corvane
