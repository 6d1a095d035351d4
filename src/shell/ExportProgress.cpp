#include "shell/ExportProgress.h"

#include <QProgressDialog>

#include "shell/BusyCursor.h"

namespace corvane {
namespace {

constexpr int kWhole = 1000, kShownAfter = 400;  // milliseconds

}  // namespace

Status ExportWithProgress(QWidget* parent, WindowTarn& window, ExportJob job) {
    const ExportKind* kind = ExportKindOf(job.path);
    if (!kind || !kind->takesLong) {
        const BusyCursor busy;
        return ExportScore(window, job);
    }
    QProgressDialog box("Exporting " + QString::fromStdString(job.path), "Cancel", 0, kWhole, parent);
    box.setWindowTitle("Export");
    box.setWindowModality(Qt::ApplicationModal);  // the score stays as it is
    box.setMinimumDuration(kShownAfter);
    job.goOn = [&box](int perMille) {
        box.setValue(perMille);
        return !box.wasCanceled();
    };
    return ExportScore(window, job);
}

}  // namespace corvane
