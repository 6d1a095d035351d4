// Paper.
#pragma once

class QWidget;

namespace corvane {

class WindowTarn;

// Asks for a printer and pages, then prints; tells what fails.
void PrintScore(QWidget* parent, WindowTarn& window);

}  // namespace corvane
