#include "shell/Printing.h"

#include <QPrintDialog>
#include <QPrinter>

#include "edit/WindowTarn.h"
#include "platform/qt/Render.h"
#include "shell/Notices.h"
#include "shell/ScoreExport.h"

namespace corvane {

void PrintScore(QWidget* parent, WindowTarn& window) {
    PagesToRender pages = PagesOf(window, 0);
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(window.Title()));
    const bool wide = pages.width > pages.height;
    const QSizeF inches = QSizeF(pages.width, pages.height) / kUnitsPerPaperInch;
    printer.setPageSize(QPageSize(wide ? inches.transposed() : inches, QPageSize::Inch));
    printer.setPageOrientation(wide ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setFullPage(true);
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

}  // namespace corvane
