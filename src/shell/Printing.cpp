#include "shell/Printing.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "edit/WindowTarn.h"
#include "platform/qt/Render.h"
#include "shell/Notices.h"
#include "shell/ScoreExport.h"

namespace corvane {
namespace {

constexpr double kPreviewShare = 0.9;  // of the window

// Paper as large as the score's pages, the edge that no printer reaches included.
void Prepare(QPrinter& printer, const WindowTarn& window, const PagesToRender& pages) {
    printer.setDocName(QString::fromStdString(window.Title()));
    const bool wide = pages.width > pages.height;
    const QSizeF inches = QSizeF(pages.width, pages.height) / kUnitsPerPaperInch;
    printer.setPageSize(QPageSize(wide ? inches.transposed() : inches, QPageSize::Inch));
    printer.setPageOrientation(wide ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setFullPage(true);
}

}  // namespace

void PrintScore(QWidget* parent, WindowTarn& window) {
    PagesToRender pages = PagesOf(window, 0);
    QPrinter printer(QPrinter::HighResolution);
    Prepare(printer, window, pages);
    QPrintDialog dialog(&printer, parent);
    dialog.setMinMax(pages.firstPage, pages.lastPage);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
    if (dialog.exec() != QDialog::Accepted) return;
    if (printer.printRange() == QPrinter::PageRange) {
        pages.firstPage = printer.fromPage();
        pages.lastPage = printer.toPage();
    } else if (printer.printRange() == QPrinter::CurrentPage) {
        pages.firstPage = pages.lastPage = window.CurrentPage()->_pageNumber;
    }
    if (!PrintPages(printer, pages)) ShowMessage(parent, "The printer does not take the score.");
}

void PreviewPrint(QWidget* parent, WindowTarn& window) {
    const PagesToRender pages = PagesOf(window, 0);
    QPrinter printer(QPrinter::HighResolution);
    Prepare(printer, window, pages);
    QPrintPreviewDialog dialog(&printer, parent);
    dialog.setWindowTitle("Print preview - " + QString::fromStdString(window.Title()));
    dialog.resize(parent->size() * kPreviewShare);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested,
                     [&pages](QPrinter* paper) { PrintPages(*paper, pages); });
    dialog.exec();
}

}  // namespace corvane
