#include "shell/FileActions.h"

#include <QApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QUrl>
#include <utility>

#include "shell/BusyCursor.h"
#include "shell/ExportProgress.h"
#include "shell/MainFrame.h"
#include "shell/NewScoreDialog.h"
#include "shell/Notices.h"
#include "shell/Printing.h"
#include "shell/ScoreChoice.h"
#include "shell/ScoreExport.h"
#include "shell/ScoreTabs.h"

namespace corvane {
namespace {

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

QString OpenFilter() {
    QString patterns;
    for (const char* extension : ScoreExtensions()) patterns += QString(" *.") + extension;
    return "Corvane Files (" + patterns.trimmed() + " *.html *.htm);;All Files (*)";
}

QString WithExtension(const QString& path, const char* extension) {
    return QFileInfo(path).completeBaseName() + "." + extension;
}

// In local time, as backups tell theirs; empty for 0.
std::string TimeText(int64_t seconds) {
    return seconds ? QDateTime::fromSecsSinceEpoch(seconds).toString("yyyy-MM-dd HH:mm:ss").toStdString()
                   : "";
}

}  // namespace

QString FileActions::FolderOf(const WindowTarn* window) const {
    if (window && !window->NeverSaved()) return QFileInfo(ToQt(window->Path())).absolutePath();
    return _lastFolder.isEmpty() ? QDir::currentPath() : _lastFolder;
}

void FileActions::New() {
    Session& session = _frame.TheSession();
    NewScoreDialog dialog(&_frame, session.UsualLayout(), session.Preferences().staffString);
    if (dialog.exec() != QDialog::Accepted) return;
    _frame.ShowScore(*session.NewScore(dialog.Layout(), dialog.Staffs()));
}

void FileActions::NewDefault() {
    WindowTarn* window = _frame.TheSession().NewScore();
    _blank = window;
    _frame.ShowScore(*window);
}

void FileActions::DropBlank() {
    const WindowTarn* blank = std::exchange(_blank, nullptr);
    for (const auto& window : _frame.TheSession().Windows())
        if (window.get() == blank && window->NeverSaved() && !window->Modified())
            return _frame.DropScore(*window);
}

void FileActions::Open() {
    const QStringList paths =
        QFileDialog::getOpenFileNames(&_frame, "Open", FolderOf(_frame.Tabs().CurrentWindow()), OpenFilter());
    for (const QString& path : paths) {
        const QString kind = QFileInfo(path).suffix().toLower();
        if (kind == "html" || kind == "htm")
            QDesktopServices::openUrl(QUrl::fromLocalFile(path));
        else
            OpenPath(path.toStdString());
    }
}

bool FileActions::OpenPath(const std::string& path) {
    const QString absolute = QFileInfo(ToQt(path)).absoluteFilePath();
    for (const auto& window : _frame.TheSession().Windows())
        if (!window->NeverSaved() && ToQt(window->Path()) == absolute)
            return _frame.Tabs().Show(*window), true;
    Status status;
    std::vector<std::string> healed;
    WindowTarn* window = _frame.TheSession().Open(absolute.toStdString(), status, &healed);
    if (window) _lastFolder = QFileInfo(absolute).absolutePath();
    return ShowOpened(window, status, healed, path);
}

bool FileActions::ShowOpened(WindowTarn* window, const Status& status, const std::vector<std::string>& healed,
                             const std::string& about) {
    if (!window) return ShowMessage(&_frame, status.message(), about), false;
    _frame.ShowScore(*window);
    DropBlank();
    if (healed.empty()) return true;
    std::string lines;
    for (const std::string& line : healed) lines += line + "\n";
    ShowMessage(&_frame, "Some things in this score were not in order and have been mended.", lines);
    return true;
}

void FileActions::OfferRecovered(const std::vector<RecoveredScore>& scores) {
    std::vector<ScoreChoice::Row> rows;
    for (const RecoveredScore& score : scores)
        rows.push_back({score.title, TimeText(score.time), score.neverSaved ? "never saved" : score.path});
    ScoreChoice choice(&_frame, "Unsaved Scores",
                       "These scores had changes that were not saved when Corvane ended:", rows);
    choice.OfferDiscard();
    choice.exec();
    for (const int row : choice.Discarded())
        _frame.TheSession().DiscardRecovered(scores[static_cast<size_t>(row)]);
    for (const int row : choice.Opened()) {
        const RecoveredScore& score = scores[static_cast<size_t>(row)];
        Status status;
        std::vector<std::string> healed;
        WindowTarn* window = _frame.TheSession().OpenRecovered(score, status, &healed);
        ShowOpened(window, status, healed, score.title);
    }
}

void FileActions::OpenBackup() {
    const std::vector<Backup> backups = _frame.TheSession().FindBackups();
    if (backups.empty()) return _frame.Tell("There are no backups yet.");
    std::vector<ScoreChoice::Row> rows;
    for (const Backup& backup : backups) rows.push_back({backup.title, backup.when, backup.original});
    ScoreChoice choice(&_frame, "Open Backup",
                       "Versions of scores as they were before they were saved anew:", rows);
    choice.exec();
    for (const int row : choice.Opened()) {
        const Backup& backup = backups[static_cast<size_t>(row)];
        Status status;
        std::vector<std::string> healed;
        WindowTarn* window = _frame.TheSession().OpenBackup(backup, status, &healed);
        ShowOpened(window, status, healed, backup.path);
    }
}

bool FileActions::SaveTo(WindowTarn& window, const std::string& path) {
    Status status;
    {
        const BusyCursor busy;
        status = _frame.TheSession().Save(window, path);
    }
    if (!status)
        ShowMessage(&_frame, status.message());
    else
        _frame.Tell("Saved.");
    _frame.RefreshActions();
    return status.ok();
}

bool FileActions::Save(WindowTarn& window) {
    const bool otherKind = SavedExtension(window.Path()) != ExtensionOf(window.Path());
    return window.NeverSaved() || otherKind ? SaveAs(window) : SaveTo(window, window.Path());
}

bool FileActions::SaveAs(WindowTarn& window) {
    const std::string extension = SavedExtension(window.Path());
    const QString filter = "Corvane Files (*." + ToQt(extension) + ")";
    QFileDialog dialog(&_frame, "Save as", FolderOf(&window), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(ToQt(extension));
    dialog.selectFile(WithExtension(ToQt(window.Title()), extension.c_str()));
    if (dialog.exec() != QDialog::Accepted) return false;
    const QString path = dialog.selectedFiles().value(0);
    _lastFolder = QFileInfo(path).absolutePath();
    return SaveTo(window, path.toStdString());
}

void FileActions::Export(WindowTarn& window) {
    QStringList filters;
    const std::span<const ExportKind> kinds = ExportKinds();
    for (const ExportKind& kind : kinds) filters.append(QString("%1 (*.%2)").arg(kind.name, kind.extension));
    QFileDialog dialog(&_frame, "Export", FolderOf(&window));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(kinds[0].extension);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        const ExportKind& kind = kinds[static_cast<size_t>(std::max<qsizetype>(0, filters.indexOf(filter)))];
        dialog.setDefaultSuffix(kind.extension);
        const QString chosen = dialog.selectedFiles().value(0);
        if (!chosen.isEmpty() && !QFileInfo(chosen).isDir())
            dialog.selectFile(WithExtension(chosen, kind.extension));
    });
    dialog.selectFile(WithExtension(ToQt(window.Title()), kinds[0].extension));
    if (dialog.exec() != QDialog::Accepted) return;
    const std::string path = dialog.selectedFiles().value(0).toStdString();
    int page = 0;
    for (const ExportKind& kind : kinds)
        if (kind.onePage && ExtensionOf(path) == kind.extension) page = window.CurrentPage()->_pageNumber;
    ExportTo(window, path, page);
}

void FileActions::ExportTo(WindowTarn& window, const std::string& path, int page) {
    const Status status = ExportWithProgress(&_frame, window, {path, page, GraphicPort::kTrueSizeZoom});
    if (status)
        _frame.Tell("Exported to " + path);
    else if (status.message().empty())
        _frame.Tell("The export was given up");
    else
        ShowMessage(&_frame, status.message());
}

void FileActions::Print(WindowTarn& window) { PrintScore(&_frame, window); }
void FileActions::Preview(WindowTarn& window) { PreviewPrint(&_frame, window); }

bool FileActions::AskToSave(WindowTarn& window) {
    if (!window.Modified()) return true;
    _frame.Tabs().Show(window);
    const QString question = "Save changes to '" + ToQt(window.Title()) + "'?";
    const auto answer =
        QMessageBox::question(&_frame, QApplication::applicationDisplayName(), question,
                              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    if (answer == QMessageBox::Yes) return Save(window);
    return answer == QMessageBox::No;
}

bool FileActions::Close(WindowTarn& window) {
    if (!AskToSave(window)) return false;
    _frame.DropScore(window);
    return true;
}

bool FileActions::CloseAll() {
    const auto& windows = _frame.TheSession().Windows();
    for (const auto& window : windows)
        if (!AskToSave(*window)) return false;
    while (!windows.empty()) _frame.DropScore(*windows.back());
    return true;
}

}  // namespace corvane
