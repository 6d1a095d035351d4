// What lies over a page on the screen and is no part of it: what is selected, the caret, the ghost of what
// the pencil would enter.
#pragma once

#include <QColor>

#include "base/Geometry.h"

class QPainter;

namespace corvane {

class ViewScale;
class WindowTarn;
struct Caret;
struct Page;
struct CursorMark;
struct Page;

struct OverlayPaint {
    QPainter& painter;  // in pixels
    const ViewScale& scale;
    Point corner;  // of the page, pixels
    QColor accent;

    int32_t X(int32_t units) const;
    int32_t Y(int32_t units) const;
};

// The edges of what a page's margins leave free.
void PaintMargins(const OverlayPaint& paint, const Page& page);

// What is selected, and the rubber band while one is drawn.
void PaintSelection(const OverlayPaint& paint, const WindowTarn& window);

// What the pressed pointer drags, where it would come to stand.
void PaintDragged(const OverlayPaint& paint, const WindowTarn& window);

// An upright line over the staves of the caret's system.
void PaintCaret(const OverlayPaint& paint, const Caret& caret, const Page* page);  // where it is on the page

// Where play is: an upright line with a triangle above and below.
void PaintPlayMark(const OverlayPaint& paint, const CursorMark& mark);

// Whether the tool at hand has a ghost.
bool HasGhost();
// The item at hand where a press at that place would enter it: on its line, at the chord that it would join.
void PaintGhost(const OverlayPaint& paint, WindowTarn& window, Point place);

// A cross where keys have brought a tool that has no ghost.
void PaintPen(const OverlayPaint& paint, Point place);

}  // namespace corvane
