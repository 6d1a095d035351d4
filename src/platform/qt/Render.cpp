#include "platform/qt/Render.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <algorithm>

#include "base/Rounding.h"
#include "platform/qt/HeadlessQt.h"
#include "platform/qt/ImagePort.h"

namespace corvane {
namespace {

constexpr double kMetresPerInch = 0.0254;
constexpr int kMostPixels = 1 << 28;

Status CannotWrite(const std::string& path) { return {Fault::ReadOnly, "Cannot write \"" + path + "\""}; }

// Runs `write` on a file that replaces the one at `path` only if all went well.
template <typename Write>
Status ReplaceFile(const std::string& path, Write write) {
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly)) return CannotWrite(path);
    // Committing would pass over a failure to write what is still buffered.
    if (!write(file) || !file.flush()) return CannotWrite(path);
    return file.commit() ? Status::Ok() : CannotWrite(path);
}

QSizeF PaperInches(const PagesToRender& pages) {
    return QSizeF(pages.width, pages.height) / kUnitsPerPaperInch;
}

}  // namespace

void PaintPage(QPainter& painter, const PagesToRender& pages, int page) {
    painter.save();
    const double scale = double{1} * painter.device()->logicalDpiX() / kUnitsPerPaperInch;
    painter.scale(scale, scale);
    QtPort port(painter, GraphicPort::kUnitsPerInch);  // a unit is a pixel
    port.SetZoomRatio(100);
    pages.draw(port, page);
    painter.restore();
}

bool PrintPages(QPagedPaintDevice& device, const PagesToRender& pages) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const int dpi = device.logicalDpiX();
    const QRectF paper = device.pageLayout().fullRectPixels(dpi),
                 printable = device.pageLayout().paintRectPixels(dpi);
    const QSizeF trueSize = PaperInches(pages) * dpi;
    // Within half a point a page is as large as the paper: sizes of paper are told in whole points.
    const double slack = 0.5 * dpi / 72;
    const double fit = std::min(
        {1.0, (paper.width() + slack) / trueSize.width(), (paper.height() + slack) / trueSize.height()});
    // To whole dots: coordinates with a long fraction are half of a file.
    const QPointF middle(Round(0.5 * (paper.width() - fit * trueSize.width())),
                         Round(0.5 * (paper.height() - fit * trueSize.height())));
    for (int page = pages.firstPage; page <= pages.lastPage; ++page) {
        if (page != pages.firstPage && !device.newPage()) return false;
        painter.save();
        painter.translate(middle - printable.topLeft());
        painter.scale(fit, fit);
        PaintPage(painter, pages, page);
        painter.restore();
    }
    return painter.end();
}

Status RenderPdf(const std::string& path, const PagesToRender& pages) {
    StartHeadlessQt();
    return ReplaceFile(path, [&](QIODevice& file) {
        QPdfWriter writer(&file);
        writer.setResolution(kUnitsPerPaperInch);
        writer.setTitle(QString::fromStdString(pages.title));
        writer.setCreator("Corvane");
        const QPageSize paper(PaperInches(pages), QPageSize::Inch, {}, QPageSize::ExactMatch);
        writer.setPageLayout(QPageLayout(paper, QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        return PrintPages(writer, pages);
    });
}

Status RenderSvg(const std::string& path, const PagesToRender& pages) {
    return ReplaceFile(path, [&](QIODevice& file) {
        QSvgGenerator generator;
        generator.setOutputDevice(&file);
        generator.setResolution(kUnitsPerPaperInch);
        generator.setSize(QSize(pages.width, pages.height));
        generator.setViewBox(QRect(0, 0, pages.width, pages.height));
        generator.setTitle(QString::fromStdString(pages.title));
        QPainter painter;
        if (!painter.begin(&generator)) return false;
        PaintPage(painter, pages, pages.firstPage);
        return painter.end();
    });
}

Status RenderPng(const std::string& path, const PagesToRender& pages, int32_t dpi, int16_t percent) {
    const double scale = 0.01 * percent * dpi / GraphicPort::kUnitsPerInch;
    const double pixels = pages.width * scale * pages.height * scale;
    if (!(pixels >= 1 && pixels <= kMostPixels))
        return {Fault::Refused, "A picture of this size cannot be made"};
    ImagePort port({0, 0, pages.width, pages.height}, percent, dpi);
    pages.draw(port, pages.firstPage);
    QImage image = port.Image().copy();
    image.setDotsPerMeterX(Round(dpi / kMetresPerInch));
    image.setDotsPerMeterY(Round(dpi / kMetresPerInch));
    return ReplaceFile(path, [&](QIODevice& file) { return image.save(&file, "PNG"); });
}

}  // namespace corvane
