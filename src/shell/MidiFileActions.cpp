// The entries of the File menu for MIDI files.
#include <QFileDialog>
#include <QFileInfo>
#include <QProgressDialog>
#include <algorithm>

#include "shell/FileActions.h"
#include "shell/ImportDialog.h"
#include "shell/MainFrame.h"
#include "shell/ScoreTabs.h"

namespace corvane {
namespace {

// The progress of an import, with a button to give up.
class ImportWindow : public ImportProgress {
public:
    explicit ImportWindow(QWidget& parent) : _dialog(&parent) {
        _dialog.setWindowTitle("Import");
        _dialog.setWindowModality(Qt::WindowModal);
        _dialog.setMinimumDuration(0);
        _dialog.setAutoReset(false);
    }
    bool At(const char* stage, int part, int parts) override {
        _dialog.setMaximum(std::max(1, parts));
        _dialog.setLabelText(parts > 1 ? QString("%1 %2").arg(stage).arg(part + 1) : QString(stage));
        _dialog.setValue(std::min(part, parts));
        return !_dialog.wasCanceled();
    }
    bool IsCancelled() const { return _dialog.wasCanceled(); }

private:
    QProgressDialog _dialog;
};

}  // namespace

void FileActions::ExportMidi(WindowTarn& window) {
    QFileDialog dialog(&_frame, "Export MIDI", FolderOf(&window), "Midi Files (*.mid)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("mid");
    dialog.selectFile(QFileInfo(QString::fromStdString(window.Title())).completeBaseName() + ".mid");
    if (dialog.exec() == QDialog::Accepted)
        ExportTo(window, dialog.selectedFiles().value(0).toStdString(), 0);
}

void FileActions::ImportMidi() {
    const QString path = QFileDialog::getOpenFileName(
        &_frame, "Import MIDI", FolderOf(_frame.Tabs().CurrentWindow()), "Midi Files (*.mid);;All Files (*)");
    if (path.isEmpty()) return;
    ImportDialog dialog(&_frame, ReadImportOptions(_frame.Settings()));
    if (dialog.exec() != QDialog::Accepted) return;
    WriteImportOptions(_frame.Settings(), dialog.Options());
    _lastFolder = QFileInfo(path).absolutePath();
    Status status;
    WindowTarn* window = nullptr;
    {
        ImportWindow progress(_frame);
        window = _frame.TheSession().Import(path.toStdString(), dialog.Options(), progress, status);
        if (progress.IsCancelled() && !window) return _frame.Tell("The import was cancelled.");
    }
    ShowOpened(window, status, {}, path.toStdString());
}

}  // namespace corvane
