#include "shell/ScoreView.h"

#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "edit/ControlPoints.h"
#include "edit/SessionChoices.h"
#include "edit/ToolState.h"
#include "edit/WindowTarn.h"
#include "layout/Frames.h"
#include "shell/HandleOverlay.h"
#include "shell/TextEditor.h"
#include "shell/ToolCursors.h"
#include "shell/ViewOverlays.h"

namespace corvane {
namespace {

constexpr int kDesk = 24;        // points around the page
constexpr int kScrollStep = 40;  // points
constexpr int kZoomSteps[] = {10, 25, 50, 75, 100, 125, 150, 200, 300, 400, 600, 800, 1200, 1600};

}  // namespace

ScoreView::ScoreView(WindowTarn& window) : _window(window) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    horizontalScrollBar()->setSingleStep(kScrollStep);
    verticalScrollBar()->setSingleStep(kScrollStep);
    setAccessibleName("Score");
    ToolChanged();
}

// ---- places

Rect ScoreView::PageUnits() const {
    const Page* page = _window.CurrentPage();
    return page ? PageRect(page) : Rect{};
}

QSize ScoreView::PagePixels() const {
    const Rect pixels = _scale.Pixels(PageUnits());
    return {pixels.Width(), pixels.Height()};
}

// Centred where there is room, else as scrolled; always on a whole pixel.
Point ScoreView::PageCorner() const {
    const int32_t desk = _scale.PixelsOf(kDesk);
    const QSize page = PagePixels();
    const auto place = [&](int32_t room, int32_t size, const QScrollBar* bar) {
        const int32_t free = room - size;
        return free >= 2 * desk ? free / 2 : desk - _scale.PixelsOf(bar->value());
    };
    return {place(_scale.PixelsOf(viewport()->width()), page.width(), horizontalScrollBar()),
            place(_scale.PixelsOf(viewport()->height()), page.height(), verticalScrollBar())};
}

Point ScoreView::UnitsAt(const QPointF& points) const {
    const Point corner = PageCorner();
    return {_scale.Units(_scale.PixelsOf(points.x()) - corner.x),
            _scale.Units(_scale.PixelsOf(points.y()) - corner.y)};
}

QPoint ScoreView::PageCornerOnScreen() const {
    const Point corner = PageCorner();
    const QPoint origin = viewport()->mapToGlobal(QPoint(0, 0));
    return {_scale.PixelsOf(origin.x()) + corner.x, _scale.PixelsOf(origin.y()) + corner.y};
}

// ---- zoom and scrolling

void ScoreView::FitScale() {
    const double ratio = viewport()->devicePixelRatioF();
    if (_scale.Set(static_cast<int16_t>(_zoom.percent), Round(viewport()->logicalDpiX() * ratio), ratio))
        _tiles.Clear();
}

void ScoreView::FitScrollBars() {
    const QSize page = PagePixels();
    const auto fit = [&](QScrollBar* bar, int room, int pixels) {
        const int size = static_cast<int>(std::ceil(pixels / _scale.Ratio())) + 2 * kDesk;
        bar->setPageStep(room);
        bar->setRange(0, std::max(0, size - room));
    };
    fit(horizontalScrollBar(), viewport()->width(), page.width());
    fit(verticalScrollBar(), viewport()->height(), page.height());
}

int ScoreView::PercentThatFits(Zoom::Kind kind) const {
    const Rect page = PageUnits();
    if (page.IsEmpty()) return Zoom::kTrueSize;
    const double perPercent = 0.01 * viewport()->logicalDpiX() / GraphicPort::kUnitsPerInch;
    const auto fits = [&](int room, int32_t units) { return (room - 2 * kDesk) / (units * perPercent); };
    // The room without scroll bars for a whole page, beside the upright one for its width.
    const QSize room = maximumViewportSize();
    double percent = fits(
        room.width() - (kind == Zoom::FitWidth ? verticalScrollBar()->sizeHint().width() : 0), page.Width());
    if (kind == Zoom::FitPage) percent = std::min(percent, fits(room.height(), page.Height()));
    return std::clamp(static_cast<int>(percent), Zoom::kLeast, Zoom::kMost);
}

void ScoreView::ZoomAround(const QPointF& anchor, Zoom::Kind kind, int percent) {
    const Point kept = UnitsAt(anchor);
    _zoom.kind = kind;
    _zoom.percent =
        kind == Zoom::Percent ? std::clamp(percent, Zoom::kLeast, Zoom::kMost) : PercentThatFits(kind);
    FitScale();
    FitScrollBars();
    const auto scroll = [&](QScrollBar* bar, int32_t units, double place) {
        bar->setValue(kDesk + static_cast<int>(_scale.Pixels(units) / _scale.Ratio() - place));
    };
    scroll(horizontalScrollBar(), kept.x, anchor.x());
    scroll(verticalScrollBar(), kept.y, anchor.y());
    viewport()->update();
    if (_zoomed) _zoomed();
}

void ScoreView::SetZoom(Zoom::Kind kind, int percent) {
    ZoomAround(QPointF(viewport()->width(), viewport()->height()) / 2, kind, percent);
}

void ScoreView::StepZoom(int steps) {
    for (; steps > 0; --steps) {
        const auto* next = std::upper_bound(std::begin(kZoomSteps), std::end(kZoomSteps), _zoom.percent);
        if (next != std::end(kZoomSteps)) SetZoom(Zoom::Percent, *next);
    }
    for (; steps < 0; ++steps) {
        const auto* next = std::lower_bound(std::begin(kZoomSteps), std::end(kZoomSteps), _zoom.percent);
        if (next != std::begin(kZoomSteps)) SetZoom(Zoom::Percent, *std::prev(next));
    }
}

void ScoreView::ScrollTo(const Rect& units) {
    const auto show = [&](QScrollBar* bar, int32_t from, int32_t to, int room) {
        const int first = static_cast<int>(_scale.Pixels(from) / _scale.Ratio());
        const int last = static_cast<int>(_scale.Pixels(to) / _scale.Ratio()) + 2 * kDesk;
        if (bar->value() > first)
            bar->setValue(first);
        else if (bar->value() + room < last)
            bar->setValue(last - room);
    };
    show(horizontalScrollBar(), units.left, units.right, viewport()->width());
    show(verticalScrollBar(), units.top, units.bottom, viewport()->height());
}

void ScoreView::resizeEvent(QResizeEvent*) {
    if (_zoom.kind == Zoom::Percent) {
        FitScale();
        FitScrollBars();
    } else {
        SetZoom(_zoom.kind);
    }
}

void ScoreView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    const double factor = std::pow(1.1, event->angleDelta().y() / 120.0);
    int percent = Round(_zoom.percent * factor);
    if (percent == _zoom.percent && event->angleDelta().y() != 0)
        percent += event->angleDelta().y() > 0 ? 1 : -1;
    ZoomAround(event->position(), Zoom::Percent, percent);
    event->accept();
}

// ---- what is shown

void ScoreView::ShowMargins(bool show) {
    _margins = show;
    viewport()->update();
}

void ScoreView::PageChanged() {
    _hover.reset();
    if (_zoom.kind != Zoom::Percent) return SetZoom(_zoom.kind);
    FitScrollBars();
    viewport()->update();
}

Rect ScoreView::VisibleUnits() const {
    const Point from = UnitsAt({0, 0});
    const Point to = UnitsAt(QPointF(viewport()->width(), viewport()->height()));
    return {from.x, from.y, to.x, to.y};
}

void ScoreView::UpdateAround(const CursorMark& mark) {
    const Point corner = PageCorner();
    const Rect units = mark.Bounds();
    const double ratio = _scale.Ratio();
    const QRectF pixels(corner.x + _scale.Pixels(units.left), corner.y + _scale.Pixels(units.top),
                        _scale.Pixels(units.Width()), _scale.Pixels(units.Height()));
    viewport()->update(
        QRectF(pixels.topLeft() / ratio, pixels.size() / ratio).toAlignedRect().adjusted(-2, -2, 2, 2));
}

void ScoreView::ShowPlayMark(std::optional<CursorMark> mark) {
    if (_playMark) UpdateAround(*_playMark);
    _playMark = mark;
    if (_playMark) UpdateAround(*_playMark);
}

// The old editor may be the one that is telling, so it goes later.
void ScoreView::TextEntryChanged() {
    if (_editor) _editor->deleteLater();
    if (_editor) _editor->hide();
    _editor = _window.textEntry ? new TextEditor(viewport(), _window) : nullptr;
    if (!_editor) return setFocus();
    const Point at = _window.textEntry->Place();
    const int32_t size = _window.textEntry->Look().size;
    ScrollTo({at.x, at.y - size, at.x + 4 * size, at.y + size});
    _editor->PlaceAt(_scale, PageCorner());
    _editor->show();
    _editor->setFocus();
}

void ScoreView::ToolChanged() {
    viewport()->setCursor(ToolCursor(Tools().toolMode));
    viewport()->update();
}

void ScoreView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) viewport()->update();
    QAbstractScrollArea::changeEvent(event);
}

void ScoreView::PaintDesk(QPainter& painter, const QRect& paper) const {
    const QRect all(0, 0, _scale.PixelsOf(viewport()->width()), _scale.PixelsOf(viewport()->height()));
    painter.save();
    painter.setClipRegion(QRegion(all) - paper);
    painter.fillRect(all, palette().color(QPalette::Window).darker(112));
    const int pixel = std::max(1, _scale.PixelsOf(1));
    for (int depth = 4; depth > 0; --depth)
        painter.fillRect(
            paper.adjusted(-pixel * (depth - 1), -pixel * (depth - 2), pixel * (depth - 1), pixel * depth),
            QColor(0, 0, 0, 18));
    painter.fillRect(paper.adjusted(-pixel, -pixel, pixel, pixel), QColor(0, 0, 0, 60));
    painter.restore();
}

void ScoreView::PaintOverlays(QPainter& painter, Point corner) {
    const OverlayPaint paint{painter, _scale, corner, palette().color(QPalette::Highlight)};
    if (_margins && _window.CurrentPage()) PaintMargins(paint, *_window.CurrentPage());
    PaintSelection(paint, _window);
    PaintDragged(paint, _window);
    PaintHandles(paint, _window);
    PaintCaret(paint, _window.caret, _window.CurrentPage());
    if (_hover) PaintGhost(paint, _window, *_hover);
    if (_hover && _movedByKeys && !HasGhost() && Tools().toolMode != ModeArrow) PaintPen(paint, *_hover);
    if (_playMark) PaintPlayMark(paint, *_playMark);
}

void ScoreView::paintEvent(QPaintEvent* event) {
    FitScale();
    _window.Handles().SetReach(HandleReach(_scale));
    QPainter painter(viewport());
    painter.scale(1 / _scale.Ratio(), 1 / _scale.Ratio());  // a painter's unit is a pixel from here on
    const Point corner = PageCorner();
    const QRect paper(QPoint(corner.x, corner.y), PagePixels());
    PaintDesk(painter, paper);
    const QRectF box = event->region().boundingRect();
    const QRect exposed = QRectF(box.topLeft() * _scale.Ratio(), box.size() * _scale.Ratio()).toAlignedRect();
    painter.translate(corner.x, corner.y);
    _tiles.Paint(painter, _window.Sheet(), PageUnits(), _scale, ContextFor(false),
                 exposed.translated(-corner.x, -corner.y));
    painter.translate(-corner.x, -corner.y);
    PaintOverlays(painter, corner);
    if (_editor) _editor->PlaceAt(_scale, corner);
}

}  // namespace corvane
