#include "shell/ViewOverlays.h"

#include <QPainter>
#include <QRegion>

#include "edit/CaretLine.h"
#include "edit/PaletteTable.h"
#include "edit/SessionChoices.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "model/Par.h"
#include "platform/qt/QtPort.h"
#include "play/PlayCursor.h"
#include "shell/ItemPicture.h"
#include "shell/ViewScale.h"

namespace corvane {
namespace {

constexpr double kGhostOpacity = 0.55;
constexpr int kSelectionFill = 90, kSelectionEdge = 220, kBandFill = 35, kBandEdge = 255;  // of 255
constexpr double kSelectionMargin = 2.5;  // points, so that the colour shows around black ink
const QColor kPlayColour(0xD0, 0x30, 0x20), kMarginColour(0x60, 0x90, 0xC8);

const PaletteItem* ItemAtHand() {
    const ToolState& tools = Tools();
    if (tools.toolMode != ModePencil || IsPlaying() || tools.paletteGroup != kNoteGroup) return nullptr;
    const PaletteItem* item = FindPaletteItem(tools.paletteGroup, tools.items[tools.paletteGroup]);
    return item && !item->stroke ? item : nullptr;
}

Colour PortColour(const QColor& colour) {
    return MakeColour(static_cast<uint8_t>(colour.red()), static_cast<uint8_t>(colour.green()),
                      static_cast<uint8_t>(colour.blue()));
}

// Where the item would go.
struct GhostPlace {
    StaffFrame staff;
    int line;
    int32_t x;
};

bool FindPlace(WindowTarn& window, Point p, GhostPlace& place) {
    System* system = window.CurrentPage() ? FindSystem(window.CurrentPage(), p.y) : nullptr;
    if (!system || systemStaffs.IsEmpty(system) || systemMeasures.IsEmpty(system)) return false;
    MeasureStaff* crossing = FindMeasureStaff(system, p);
    if (!crossing || !crossing->_staff.Get()) return false;
    place.staff = FrameOf(crossing->_staff.Get());
    if (place.staff.lineDistance <= 0) return false;
    place.line = StaffPosition(place.staff, p.y);
    place.x = p.x;
    return true;
}

void DrawLedgerLines(GraphicPort& port, const GhostPlace& place) {
    const int32_t width = place.staff.lineDistance * 4 / 5;
    const auto draw = [&](int line) {
        port.DrawLine(place.x - width, place.staff.YOfLine(line), place.x + width, place.staff.YOfLine(line));
    };
    port.SetPenSize(place.staff.lineDistance / 7, place.staff.lineDistance / 7);
    for (int line = 2 * place.staff.lineCount + 1; line <= place.line; line += 2) draw(line);
    for (int line = -1; line >= place.line; line -= 2) draw(line);
}

QRect PixelRect(const OverlayPaint& paint, const Rect& units) {
    return QRect(QPoint(paint.X(units.left), paint.Y(units.top)),
                 QPoint(paint.X(units.right), paint.Y(units.bottom)));
}

// An area of the accent's colour with an edge around the whole of it.
void PaintArea(const OverlayPaint& paint, const QRegion& area, int fill, int edge) {
    const int width = std::max(1, paint.scale.PixelsOf(1));
    QRegion inner = area;
    for (const QPoint by : {QPoint(width, 0), QPoint(-width, 0), QPoint(0, width), QPoint(0, -width)})
        inner &= area.translated(by);
    const auto tint = [&](const QRegion& region, int alpha) {
        QColor colour = paint.accent;
        colour.setAlpha(alpha);
        for (const QRect& rect : region) paint.painter.fillRect(rect, colour);
    };
    tint(inner, fill);
    tint(area - inner, edge);
}

}  // namespace

int32_t OverlayPaint::X(int32_t units) const { return corner.x + scale.Pixels(units); }
int32_t OverlayPaint::Y(int32_t units) const { return corner.y + scale.Pixels(units); }

void PaintMargins(const OverlayPaint& paint, const Page& page) {
    const Rect paper = PageRect(&page);
    const QRect free(
        QPoint(paint.X(paper.left + page._leftMargin), paint.Y(paper.top + page._topMargin)),
        QPoint(paint.X(paper.right - page._rightMargin), paint.Y(paper.bottom - page._bottomMargin)));
    paint.painter.save();
    paint.painter.setPen(QPen(kMarginColour, std::max(1, paint.scale.PixelsOf(1)), Qt::DashLine));
    paint.painter.setBrush(Qt::NoBrush);
    paint.painter.drawRect(free);
    paint.painter.restore();
}

void PaintSelection(const OverlayPaint& paint, const WindowTarn& window) {
    const int margin = paint.scale.PixelsOf(kSelectionMargin);
    QRegion selected;
    for (const Rect& rect : SelectionRects(window))
        selected += PixelRect(paint, rect).adjusted(-margin, -margin, margin, margin);
    PaintArea(paint, selected, kSelectionFill, kSelectionEdge);
    const Rect band = window.interaction ? window.interaction->Band() : Rect{};
    if (!band.IsEmpty()) PaintArea(paint, PixelRect(paint, band), kBandFill, kBandEdge);
}

void PaintCaret(const OverlayPaint& paint, const Caret& caret, const Page* page) {
    if (!caret.visible || !caret.measure || PagePar(caret.measure) != page) return;
    const System* system = SystemPar(caret.measure);
    const Point origin = OriginOf(system);
    const int32_t overhang = 150;
    const int top = paint.Y(origin.y - overhang);
    const int bottom = paint.Y(origin.y + system->_bottom - system->_top + overhang);
    const int width = std::max(1, paint.scale.PixelsOf(1.5));
    paint.painter.fillRect(paint.X(CaretLineX(caret)) - width / 2, top, width, bottom - top, paint.accent);
}

void PaintPlayMark(const OverlayPaint& paint, const CursorMark& mark) {
    const int32_t x = mark.x, reach = mark.triangle;
    const auto triangle = [&](int32_t base, int32_t tip) {
        const QPointF corners[] = {QPointF(paint.X(x - reach), paint.Y(base)),
                                   QPointF(paint.X(x + reach), paint.Y(base)),
                                   QPointF(paint.X(x), paint.Y(tip))};
        paint.painter.drawPolygon(corners, 3);
    };
    const int width = std::max(1, paint.scale.PixelsOf(1.5));
    paint.painter.save();
    paint.painter.setRenderHint(QPainter::Antialiasing);
    paint.painter.setPen(Qt::NoPen);
    paint.painter.setBrush(kPlayColour);
    paint.painter.drawRect(QRectF(paint.X(x) - width / 2.0, paint.Y(mark.top - reach), width,
                                  paint.scale.Pixels(mark.bottom - mark.top + 2 * reach)));
    triangle(mark.top - 2 * reach, mark.top - reach);
    triangle(mark.bottom + 2 * reach, mark.bottom + reach);
    paint.painter.restore();
}

bool HasGhost() { return ItemAtHand() != nullptr; }

void PaintDragged(const OverlayPaint& paint, const WindowTarn& window) {
    if (!window.interaction) return;
    paint.painter.save();
    paint.painter.scale(paint.scale.Ratio(), paint.scale.Ratio());
    {
        QtPort port(paint.painter, paint.scale.Dpi());
        port.SetZoomRatio(paint.scale.Zoom());
        port.SetDeviceOffset(paint.corner.x, paint.corner.y);
        port.SetColor(PortColour(paint.accent));  // of outlines
        window.interaction->Draw(port, ContextFor(false));
    }
    paint.painter.restore();
}

void PaintGhost(const OverlayPaint& paint, WindowTarn& window, Point p) {
    const PaletteItem* item = ItemAtHand();
    GhostPlace place;
    if (!item || !FindPlace(window, p, place)) return;
    const ItemPicture picture = GhostPicture(*item);
    paint.painter.save();
    paint.painter.setOpacity(kGhostOpacity);
    paint.painter.scale(paint.scale.Ratio(), paint.scale.Ratio());  // the port counts in pixels by itself
    {
        QtPort port(paint.painter, paint.scale.Dpi());
        port.SetZoomRatio(paint.scale.Zoom());
        port.SetDeviceOffset(paint.corner.x, paint.corner.y);
        port.SetColor(PortColour(paint.accent));
        if (picture.onHead) DrawLedgerLines(port, place);
        const int line = picture.hasLine ? place.line : place.staff.lineCount;
        const int32_t half = InkOf(picture).Width() * place.staff.lineDistance / 200;
        DrawPicture(port, picture, {place.x - half, place.staff.YOfLine(line)}, place.staff.lineDistance);
    }
    paint.painter.restore();
}

void PaintPen(const OverlayPaint& paint, Point place) {
    const int x = paint.X(place.x), y = paint.Y(place.y);
    const int arm = paint.scale.PixelsOf(9), width = std::max(1, paint.scale.PixelsOf(2));
    paint.painter.fillRect(x - arm, y - width / 2, 2 * arm, width, paint.accent);
    paint.painter.fillRect(x - width / 2, y - arm, width, 2 * arm, paint.accent);
}

}  // namespace corvane
