// What the program is.
#pragma once

class QWidget;

namespace corvane {

void ShowAboutBox(QWidget* parent);

}  // namespace corvane
