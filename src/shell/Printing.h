// Paper.
#pragma once

class QWidget;

namespace corvane {

class WindowTarn;

// Asks for a printer and pages, then prints; tells what fails.
void PrintScore(QWidget* parent, WindowTarn& window);
// Shows the pages as the usual printer would put them onto its paper; from there they can be printed.
void PreviewPrint(QWidget* parent, WindowTarn& window);

}  // namespace corvane
