// Exports with a box that tells how far it is, where that takes long.
#pragma once

#include "shell/ScoreExport.h"

class QWidget;

namespace corvane {

// As ExportScore; the person can give it up.
Status ExportWithProgress(QWidget* parent, WindowTarn& window, ExportJob job);

}  // namespace corvane
