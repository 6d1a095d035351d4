#include "shell/AboutBox.h"

#include <QApplication>
#include <QMessageBox>

namespace corvane {

void ShowAboutBox(QWidget* parent) {
    QMessageBox box(parent);
    box.setWindowTitle("About Corvane");
    box.setIconPixmap(parent->windowIcon().pixmap(64));
    box.setText("<b>Corvane " + QApplication::applicationVersion() + "</b>");
    box.setInformativeText(
        "An editor for music notation.\n\n"
        "Free software under the Apache License 2.0.\n"
        "The music fonts Marcelane and Bellarine are under the SIL Open Font License 1.1.");
    box.exec();
}

}  // namespace corvane
