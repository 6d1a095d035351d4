// One score on the screen: its current page as paper on a desk, scrolled and zoomed. Presses and keys go to
// the score in page units; what is selected, the rubber band, the caret and the ghost of what the pencil
// would enter lie over the pictures of the page.
#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <optional>

#include "layout/DrawPatch.h"
#include "play/PlayCursor.h"
#include "shell/TileCache.h"
#include "shell/ViewScale.h"

namespace corvane {

class TextEditor;
class WindowTarn;

// How large a page is shown.
struct Zoom {
    enum Kind { Percent, FitPage, FitWidth };
    static constexpr int kLeast = 10, kMost = 1600, kTrueSize = GraphicPort::kTrueSizeZoom;

    Kind kind = Percent;
    int percent = kTrueSize;  // as shown at the moment, whatever the kind
};

class ScoreView : public QAbstractScrollArea {
public:
    // The window must outlive the view.
    explicit ScoreView(WindowTarn& window);

    WindowTarn& Window() { return _window; }

    const Zoom& CurrentZoom() const { return _zoom; }
    // Keeps what is in the middle there.
    void SetZoom(Zoom::Kind kind, int percent = Zoom::kTrueSize);
    // To the next of the usual steps, up or down.
    void StepZoom(int steps);
    void OnZoomed(std::function<void()> told) { _zoomed = std::move(told); }

    void ShowMargins(bool show);
    // The current page is another one, or of another size.
    void PageChanged();
    void ToolChanged();
    void ScrollTo(const Rect& units);
    // Another text is being typed, or none any more.
    void TextEntryChanged();
    // A typed character for the tools; false, and nothing done, for any other key.
    bool TakeKey(const QKeyEvent& event);
    // The same for a key that walks the selection, or moves or uses the tool at hand.
    bool TakeMove(const QKeyEvent& event);

    // What of the page is seen.
    Rect VisibleUnits() const;
    // The play cursor on the current page; none to take it away.
    void ShowPlayMark(std::optional<CursorMark> mark);
    const std::optional<CursorMark>& PlayMark() const { return _playMark; }

    // The page's corner on the screen, and how many pixels a page unit takes.
    QPoint PageCornerOnScreen() const;
    const ViewScale& Scale() const { return _scale; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // Tab walks within the score; F6 leaves it.
    bool focusNextPrevChild(bool next) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    Rect PageUnits() const;
    QSize PagePixels() const;
    Point PageCorner() const;  // in the view, pixels
    void SelectUnder(Point p);
    void ShowWhatIsUnder(Point p);
    void TakeEscape();
    Point UnitsAt(const QPointF& points) const;  // of a place in the view
    void FitScale();
    void FitScrollBars();
    void ZoomAround(const QPointF& anchor, Zoom::Kind kind, int percent);
    int PercentThatFits(Zoom::Kind kind) const;
    void UpdateAround(const CursorMark& mark);
    void PaintDesk(QPainter& painter, const QRect& paper) const;
    void PaintOverlays(QPainter& painter, Point corner);

    WindowTarn& _window;
    TileCache _tiles;
    ViewScale _scale;
    Zoom _zoom;
    bool _margins = false;
    std::optional<Point> _hover;  // where the tool would act, page units
    bool _isOverHandle = false;
    bool _movedByKeys = false;  // and not by the pointer
    std::optional<CursorMark> _playMark;
    std::function<void()> _zoomed;
    TextEditor* _editor = nullptr;
};

}  // namespace corvane
