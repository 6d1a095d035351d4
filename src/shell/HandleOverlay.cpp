#include "shell/HandleOverlay.h"

#include <QPainter>
#include <algorithm>

#include "edit/ControlPoints.h"
#include "edit/WindowTarn.h"
#include "shell/ViewScale.h"

namespace corvane {
namespace {

// Half a square's side: as large as notes ask for, within what a hand can hit and what leaves them seen.
constexpr int32_t kHalf = 42;                      // page units
constexpr double kLeastHalf = 2, kMostHalf = 4.5;  // points
constexpr double kSlack = 2.5;                     // points beside it that a press may miss by
constexpr int kDarkest = 150;                      // lightness that still stands out on paper, of 255
constexpr int kVeil = 150;                         // of 255

int HalfOf(const ViewScale& scale) {
    return std::clamp(scale.Pixels(kHalf), scale.PixelsOf(kLeastHalf), scale.PixelsOf(kMostHalf));
}

// The accent, dark enough for white paper.
QColor EdgeOn(const QColor& accent) {
    QColor edge = accent;
    while (edge.lightness() > kDarkest) edge = edge.darker(115);
    return edge;
}

}  // namespace

int32_t HandleReach(const ViewScale& scale) { return scale.Units(HalfOf(scale) + scale.PixelsOf(kSlack)); }

void PaintHandles(const OverlayPaint& paint, WindowTarn& window) {
    ControlPoints& handles = window.Handles();
    if (!handles.IsAnyOn()) return;
    const QColor edge = EdgeOn(paint.accent);
    const int half = HalfOf(paint.scale), line = std::max(1, paint.scale.PixelsOf(1));
    paint.painter.save();
    paint.painter.setRenderHint(QPainter::Antialiasing);
    paint.painter.setPen(QPen(edge, line));
    for (const Handle& handle : handles.All())
        if (handle.tip)
            paint.painter.drawLine(QPoint(paint.X(handle.place.x), paint.Y(handle.place.y)),
                                   QPoint(paint.X(handle.tip->x), paint.Y(handle.tip->y)));
    paint.painter.setRenderHint(QPainter::Antialiasing, false);
    paint.painter.setPen(QPen(edge, 0));
    for (const Handle& handle : handles.All()) {
        const QPoint middle(paint.X(handle.place.x), paint.Y(handle.place.y));
        const QRect outer(middle - QPoint(half, half), QSize(2 * half + 1, 2 * half + 1));
        if (handles.IsSelected(handle)) {
            paint.painter.fillRect(outer, edge);
            continue;
        }
        paint.painter.fillRect(outer, QColor(255, 255, 255, kVeil));  // what lies under it shows through
        for (int inset = 0; inset < line; ++inset)
            paint.painter.drawRect(outer.adjusted(inset, inset, -inset - 1, -inset - 1));
    }
    paint.painter.restore();
}

}  // namespace corvane
