// What a score view makes of the pointer and of keys.
#include <QMouseEvent>
#include <QScrollBar>

#include "edit/CommandTable.h"
#include "edit/ControlPoints.h"
#include "edit/TarnClick.h"
#include "edit/ToolState.h"
#include "edit/WindowTarn.h"
#include "shell/ScoreView.h"
#include "shell/ToolCursors.h"
#include "shell/ViewKeys.h"
#include "shell/ViewOverlays.h"

namespace corvane {
namespace {

uint32_t ModifiersOf(Qt::KeyboardModifiers modifiers) {
    uint32_t bits = 0;
    if (modifiers & Qt::ShiftModifier) bits |= kShift;
    if (modifiers & Qt::ControlModifier) bits |= kCtrl;
    if (modifiers & Qt::AltModifier) bits |= kAlt;
    return bits;
}

}  // namespace

// The menu of the right button is about what it is pressed on.
void ScoreView::SelectUnder(Point p) {
    if (Tools().toolMode != ModeArrow || IsPlaying()) return;
    const std::optional<Handle> handle = _window.Handles().At(p);
    if (handle && _window.Handles().IsSelected(*handle)) return;
    const std::vector<Rect> selected = SelectionRects(_window);
    if (std::any_of(selected.begin(), selected.end(), [p](const Rect& r) { return r.EnclosesStrictly(p); }))
        return;
    MouseDown(_window, p.x, p.y, 0);
    MouseUp(_window, p.x, p.y);
    viewport()->update();
}

void ScoreView::mousePressEvent(QMouseEvent* event) {
    const Point p = UnitsAt(event->position());
    if (event->button() == Qt::RightButton) SelectUnder(p);
    if (event->button() != Qt::LeftButton) return event->ignore();
    MouseDown(_window, p.x, p.y, ModifiersOf(event->modifiers()));
    viewport()->update();
}

// Notes are often entered faster than a double click, so the tool decides what it means.
void ScoreView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const Point p = UnitsAt(event->position());
    MouseDoubleClick(_window, p.x, p.y, ModifiersOf(event->modifiers()));
    viewport()->update();
}

void ScoreView::ShowWhatIsUnder(Point p) {
    const bool isOver = _window.Handles().At(p).has_value();
    if (isOver == std::exchange(_isOverHandle, isOver)) return;
    viewport()->setCursor(isOver ? QCursor(Qt::SizeAllCursor) : ToolCursor(Tools().toolMode));
}

void ScoreView::mouseMoveEvent(QMouseEvent* event) {
    const Point p = UnitsAt(event->position());
    if (event->buttons() & Qt::LeftButton) MouseMove(_window, p.x, p.y);
    ShowWhatIsUnder(p);
    _hover = p;
    _movedByKeys = false;
    if (HasGhost()) viewport()->update();
}

void ScoreView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const Point p = UnitsAt(event->position());
    MouseUp(_window, p.x, p.y);
}

void ScoreView::leaveEvent(QEvent*) {
    _hover.reset();
    viewport()->update();
}

bool ScoreView::TakeKey(const QKeyEvent& event) {
    const QString text = event.text();
    const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!plain || text.size() != 1 || text[0] < u' ' || text[0] > u'~') return false;
    // A space bar that is held down starts or stops once.
    return (event.isAutoRepeat() && text[0] == u' ') || KeyChar(_window, text[0].toLatin1());
}

bool ScoreView::TakeMove(const QKeyEvent& event) {
    if (IsPlaying()) return false;
    if (Tools().toolMode == ModeArrow) {
        const std::optional<Point> nudge = NudgeOf(event);
        if (nudge && NudgeHandles(_window, *nudge)) return true;
        const int id = ArrowCommandOf(event);
        if (!id) return false;
        if (const Status status = RunCommand(_window, id); !status) _window.Shell().Tell(status.message());
        return true;
    }
    const std::optional<PenMove> move = PenMoveOf(event);
    if (!move && !IsEnter(event)) return false;
    _hover = move || !_hover ? MovePen(_window, _hover, move.value_or(PenMove::Right))
                             : PressWithPen(_window, *_hover);
    _movedByKeys = true;
    viewport()->update();
    return true;
}

// While the pointer drags, Escape is not the menu's: it ends the drag.
bool ScoreView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && _window.interaction &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        event->accept();
    return QAbstractScrollArea::event(event);
}

// A drag ends without a trace. Else, of two presses the first takes the selection away, the second the pencil
// or the eraser.
void ScoreView::TakeEscape() {
    if (_window.interaction) {
        _window.interaction.reset();
        return _window.Shell().Refresh(_window);
    }
    if (Tools().toolMode == ModeArrow || IsPlaying()) return;
    SetToolMode(ModeArrow);
    ApplyToolMode();
}

bool ScoreView::focusNextPrevChild(bool next) {
    if (WalkHandles(_window, next)) return true;
    const QKeyEvent walk(QEvent::KeyPress, next ? Qt::Key_Right : Qt::Key_Left, Qt::NoModifier);
    return TakeMove(walk) || QAbstractScrollArea::focusNextPrevChild(next);
}

void ScoreView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F6) {
        QAbstractScrollArea::focusNextPrevChild(!(event->modifiers() & Qt::ShiftModifier));
        return;
    }
    if (event->key() == Qt::Key_Escape) return TakeEscape();
    if (!TakeKey(*event) && !TakeMove(*event)) QAbstractScrollArea::keyPressEvent(event);
}

}  // namespace corvane
