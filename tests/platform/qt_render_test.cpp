// Pages in files, looked at with the tools that people open them with.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include "graphics/MemoryPort.h"
#include "platform/freetype/FreeTypeMeasures.h"
#include "platform/qt/HeadlessQt.h"
#include "platform/qt/Render.h"

namespace corvane {
namespace {

constexpr int32_t kWide = 12197, kHigh = 15785;  // 8.5 by 11 inches

void DrawPage(GraphicPort& port, int page) {
    port.SetFontName("Marcelane");
    port.SetPenSize(14, 14);  // a pixel at 100 dots to the inch
    for (int i = 0; i < 5; ++i) port.DrawLine(1000, 2000 + 100 * i, 11000, 2000 + 100 * i);
    for (int size : {400, 385, 300, 250}) {
        port.SetFontSize(size);
        port.DrawChar(38, 1100 + 5 * size, 2300);
        port.DrawChar(207, 1600 + 10 * size, 2200, 'l');
    }
    port.SetPenSize(1, 50);
    port.DrawLine(6000, 1700, 7000, 1600);
    port.DrawBezier({{6000, 2700}, {6500, 3000}, {7000, 3000}, {7500, 2700}});
    port.SetFontName("Times New Roman");
    port.SetFontStyle(kItalicStyle);
    port.SetFontSize(300);
    port.DrawString("Andante più mosso " + std::to_string(page), 1000, 1500);
    port.SetFontStyle(kPlainStyle);
    port.SetFontSize(250);
    port.DrawStringRight("J. S. Bach", 11000, 1500);
}

class Render : public testing::Test {
protected:
    Render() {
        InstallFreeTypeMeasures();
        StartHeadlessQt();
    }
    std::string In(const char* name) const { return folder.filePath(name).toStdString(); }
    static QString Run(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished() || process.exitCode() != 0) return "cannot run " + program;
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    static PagesToRender Pages(int last) { return {kWide, kHigh, 1, last, DrawPage, "A title"}; }

    QTemporaryDir folder;
};

double DarkShare(const QImage& image) {
    double dark = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) dark += 1 - qGray(image.pixel(x, y)) / 255.0;
    return dark / (double{1} * image.width() * image.height());
}

// The mean difference of two pictures of nearly one size, each shrunk so that smoothing plays no part.
double Difference(const QImage& a, const QImage& b) {
    const QSize size(170, 220);
    const QImage p = a.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage q = b.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    double sum = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) sum += std::abs(qGray(p.pixel(x, y)) - qGray(q.pixel(x, y)));
    return sum / (255.0 * size.width() * size.height());
}

TEST_F(Render, PdfHasTrueSizeEmbeddedFontsAndTextToSelect) {
    ASSERT_TRUE(RenderPdf(In("a.pdf"), Pages(2)).ok());
    const QString file = folder.filePath("a.pdf");
    const QString info = Run("pdfinfo", {file});
    EXPECT_TRUE(info.contains(QRegularExpression("Pages: +2\n"))) << info.toStdString();
    EXPECT_TRUE(info.contains(QRegularExpression("Page size: +612 x 792 pts"))) << info.toStdString();
    EXPECT_TRUE(info.contains("A title"));
    const QString text = Run("pdftotext", {"-layout", file, "-"});
    for (const char* expected : {"Andante più mosso 1", "Andante più mosso 2", "J. S. Bach"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(expected))) << text.toStdString();
    // Two lines of heading, then one font a line: a font of four sizes is embedded once.
    const QStringList fonts = Run("pdffonts", {file}).trimmed().split('\n').mid(2);
    EXPECT_EQ(fonts.size(), 3) << fonts.join('\n').toStdString();
    for (const QString& font : fonts)
        EXPECT_TRUE(font.contains(QRegularExpression("yes +no +yes"))) << font.toStdString();
}

TEST_F(Render, PdfAndSvgShowThePictureOfTheScreen) {
    ASSERT_TRUE(RenderPdf(In("a.pdf"), Pages(1)).ok());
    ASSERT_TRUE(RenderSvg(In("a.svg"), Pages(1)).ok());
    ASSERT_TRUE(RenderPng(In("a.png"), Pages(1), 100, 105).ok());
    const QImage png(folder.filePath("a.png"));
    EXPECT_NEAR(png.width(), 850, 4);
    EXPECT_NEAR(png.height(), 1100, 5);
    EXPECT_NEAR(png.dotsPerMeterX(), 100 / 0.0254, 1);
    const double share = DarkShare(png);
    EXPECT_GT(share, 0.001);
    EXPECT_LT(share, 0.05);

    Run("pdftoppm", {"-r", "100", "-png", "-singlefile", folder.filePath("a.pdf"), folder.filePath("pdf")});
    const QImage pdf(folder.filePath("pdf.png"));
    ASSERT_FALSE(pdf.isNull());
    EXPECT_NEAR(DarkShare(pdf), share, 0.15 * share);
    EXPECT_LT(Difference(pdf, png), 0.4 * share);

    QSvgRenderer renderer(folder.filePath("a.svg"));
    ASSERT_TRUE(renderer.isValid());
    QImage svg(png.size(), QImage::Format_RGB32);
    svg.fill(Qt::white);
    QPainter painter(&svg);
    renderer.render(&painter);
    painter.end();
    EXPECT_NEAR(DarkShare(svg), share, 0.15 * share);
    EXPECT_LT(Difference(svg, png), 0.4 * share);
    QFile source(folder.filePath("a.svg"));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    const QString head = QString::fromUtf8(source.read(500));
    EXPECT_TRUE(head.contains("viewBox=\"0 0 12197 15785\"")) << head.toStdString();
    EXPECT_TRUE(head.contains(QRegularExpression("width=\"21[56]\\.?\\d*mm\""))) << head.toStdString();
}

// The paper, and the box of what is not white, in inches.
std::pair<QSizeF, QRectF> InkOfPdf(const QString& file) {
    constexpr double kDpi = 100;
    QProcess::execute("pdftoppm", {"-r", "100", "-png", "-singlefile", file, file});
    const QImage image(file + ".png");
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
    return {QSizeF(image.size()) / kDpi,
            QRectF(ink.x() / kDpi, ink.y() / kDpi, ink.width() / kDpi, ink.height() / kDpi)};
}

TEST_F(Render, APrintedPageHasItsTrueSizeInTheMiddleAndShrinksToSmallerPaper) {
    const auto print = [&](QPageSize::PageSizeId paper) {
        const QString file = folder.filePath("printed.pdf");
        QPdfWriter printer(file);
        printer.setPageLayout(QPageLayout(QPageSize(paper), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        EXPECT_TRUE(PrintPages(printer, Pages(1)));
        return InkOfPdf(file);
    };
    constexpr double kUnits = 1435, kPixel = 0.03;
    const auto [letter, usual] = print(QPageSize::Letter);
    EXPECT_NEAR(usual.width(), 10000 / kUnits, kPixel);
    EXPECT_NEAR(usual.left(), 1000 / kUnits, kPixel);
    const auto [a3, large] = print(QPageSize::A3);
    EXPECT_NEAR(large.width(), usual.width(), kPixel);
    EXPECT_NEAR(large.left(), usual.left() + (a3.width() - letter.width()) / 2, kPixel);
    EXPECT_NEAR(large.top(), usual.top() + (a3.height() - letter.height()) / 2, kPixel);
    const auto [a5, small] = print(QPageSize::A5);
    const double fit = a5.width() / letter.width();
    EXPECT_NEAR(small.width(), usual.width() * fit, kPixel);
    EXPECT_NEAR(small.left(), usual.left() * fit, kPixel);
    EXPECT_NEAR(small.top(), usual.top() * fit + (a5.height() - letter.height() * fit) / 2, kPixel);
}

// Paper is told in whole points; what stands on it keeps its size to the unit.
TEST_F(Render, APageInMillimetresIsNotFittedToItsRoundedPaper) {
    constexpr int32_t kA4Wide = 11864, kA4High = 16779;
    PagesToRender pages = Pages(1);
    pages.width = kA4Wide;
    pages.height = kA4High;
    pages.draw = [](GraphicPort& port, int) {
        port.FillPolygon({{2000, 4000}, {10000, 4000}, {10000, 4200}, {2000, 4200}});
    };
    ASSERT_TRUE(RenderPdf(In("a4.pdf"), pages).ok());
    // Dark pixels of a short line, of one unit each.
    const auto darkFrom = [&](int x) {
        Run("pdftoppm", {"-r", "1435", "-x", QString::number(x), "-y", "4100", "-W", "60", "-H", "1", "-png",
                         "-singlefile", folder.filePath("a4.pdf"), folder.filePath("a4")});
        const QImage line(folder.filePath("a4.png"));
        int dark = 0;
        for (int i = 0; i < line.width(); ++i) dark += qGray(line.pixel(i, 0)) < 128;
        return dark;
    };
    const int left = 2030 - darkFrom(1970), right = 9970 + darkFrom(9970);
    EXPECT_NEAR(right - left, 8000, 1);
}

// A file is told ink of one colour together; what lies on ink of another still covers it.
TEST_F(Render, InkCoversWhatWasPaintedBefore) {
    PagesToRender pages = Pages(1);
    pages.draw = [](GraphicPort& port, int) {
        port.SetColor(kBlack);
        port.SetPenSize(1000, 1000);
        port.DrawLine(1000, 2000, 9000, 2000);
        port.SetColor(kWhite);
        port.DrawLine(3000, 2000, 7000, 2000);
        port.SetColor(kBlack);
        port.SetFontName("Marcelane");
        port.SetFontSize(2000);
        port.DrawChar(207, 4500, 2000);
        port.FillPolygon({{6000, 1800}, {6800, 1800}, {6800, 2200}, {6000, 2200}});
        port.SetColor(kWhite);
        port.DrawLine(8000, 2000, 8500, 2000);
    };
    ASSERT_TRUE(RenderPdf(In("a.pdf"), pages).ok());
    Run("pdftoppm", {"-r", "100", "-png", "-singlefile", folder.filePath("a.pdf"), folder.filePath("pdf")});
    const QImage pdf(folder.filePath("pdf.png"));
    ASSERT_FALSE(pdf.isNull());
    const auto darkAt = [&](int units) {
        return qGray(pdf.pixel(units * 850 / kWide, 2000 * 850 / kWide)) < 128;
    };
    std::string seen;
    for (const int x : {500, 2000, 3500, 4900, 6400, 7500, 8250, 8750}) seen += darkAt(x) ? '#' : '.';
    EXPECT_EQ(seen, ".#.###.#");
}

TEST_F(Render, EverySurfaceGetsTheSameCalls) {
    std::vector<std::vector<std::string>> traces;
    PagesToRender traced = Pages(1);
    traced.draw = [&](GraphicPort& port, int page) {
        port.SetTrace(&traces.emplace_back());
        DrawPage(port, page);
        port.SetTrace(nullptr);
    };
    ASSERT_TRUE(RenderPdf(In("a.pdf"), traced).ok());
    ASSERT_TRUE(RenderSvg(In("a.svg"), traced).ok());
    ASSERT_TRUE(RenderPng(In("a.png"), traced, 96, 200).ok());
    MemoryPort memory;
    traced.draw(memory, 1);
    ASSERT_EQ(traces.size(), 4u);
    EXPECT_EQ(traces[0].size(), 17u);
    for (const auto& trace : traces) EXPECT_EQ(trace, traces[0]);
}

TEST_F(Render, AFailureSaysSoAndLeavesNothingBehind) {
    EXPECT_EQ(RenderPdf(In("no/such/folder.pdf"), Pages(1)).fault(), Fault::ReadOnly);
    EXPECT_EQ(RenderSvg(In("no/such/folder.svg"), Pages(1)).fault(), Fault::ReadOnly);
    EXPECT_EQ(RenderPng(In("no/such/folder.png"), Pages(1), 96, 100).fault(), Fault::ReadOnly);
    EXPECT_EQ(RenderPng(In("huge.png"), Pages(1), 10000, 30000).fault(), Fault::Refused);
    EXPECT_EQ(RenderPng(In("none.png"), Pages(1), 96, 0).fault(), Fault::Refused);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

}  // namespace
}  // namespace corvane
