#include "shell/PaletteScroll.h"

#include <QScrollBar>
#include <algorithm>

namespace corvane {
namespace {
constexpr int kLeastHeight = 120;
constexpr int kMostWidth = 300;  // or the titles of many palettes in one place would take half the window
}  // namespace

PaletteScroll::PaletteScroll(QWidget* body) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(body);
    setMaximumWidth(std::max(kMostWidth, 2 * sizeHint().width()));
}

// With room for the bar, or it would cover the last column.
QSize PaletteScroll::sizeHint() const {
    return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

QSize PaletteScroll::minimumSizeHint() const {
    const QSize whole = widget()->minimumSizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
    return {whole.width(), std::min(whole.height(), kLeastHeight)};
}

}  // namespace corvane
