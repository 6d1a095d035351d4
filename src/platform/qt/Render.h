// Pages into files. Each draws what the screen draws, through the same calls. A failure leaves an old file as
// it was. Main thread only; needs no window and no display.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Status.h"

class QPagedPaintDevice;
class QPainter;

namespace corvane {

class GraphicPort;

// 1435 page units are an inch of paper.
inline constexpr int32_t kUnitsPerPaperInch = 1435;
// Of a picture for a screen.
inline constexpr int32_t kScreenDpi = 96;

struct PagesToRender {
    int32_t width = 0, height = 0;  // of a page, in page units
    int firstPage = 1, lastPage = 1;
    std::function<void(GraphicPort&, int page)> draw;
    std::string title;
};

// All pages, at their true size, with embedded fonts and text that can be selected.
Status RenderPdf(const std::string& path, const PagesToRender& pages);
// The first page, at its true size, in outlines.
Status RenderSvg(const std::string& path, const PagesToRender& pages);
// The first page, as large as a screen of `dpi` dots to the inch shows it at a zoom of `percent`.
Status RenderPng(const std::string& path, const PagesToRender& pages, int32_t dpi, int16_t percent);

// All pages at their true size, shrunk only where the paper is smaller, each in the middle of its sheet, on a
// printer that is set up. False where it refuses.
bool PrintPages(QPagedPaintDevice& device, const PagesToRender& pages);

// A page at its true size at the painter's 0, 0, on whatever device; its resolution says what an inch is.
void PaintPage(QPainter& painter, const PagesToRender& pages, int page);

}  // namespace corvane
