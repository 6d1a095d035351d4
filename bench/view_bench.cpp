// From a press on the view to the note that it shows, wherever in the score that is.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <cstdlib>

#include "LargeScore.h"
#include "edit/ToolState.h"
#include "layout/Frames.h"
#include "model/Par.h"
#include "shell/ScoreView.h"

namespace corvane {
namespace {

void StartQt() {
    static int count = 1;
    static char name[] = "corvane_bench", *arguments[] = {name, nullptr};
    if (qApp) return;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static QApplication application(count, arguments);
}

// Counts what the viewport is really asked to paint.
class PaintCount : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

// The mouse on a view that shows a part of the current page.
class Hand {
public:
    explicit Hand(WindowTarn& window, const Rect& shown) : _view(window) {
        _view.resize(1280, 860);
        _view.show();
        _view.ScrollTo(shown);
        _view.viewport()->installEventFilter(&_count);
        QCoreApplication::processEvents();
        Paint();
    }
    void Press(Point units) {
        const QPoint corner =
            _view.PageCornerOnScreen() - _view.viewport()->mapToGlobal(QPoint(0, 0)) * _view.Scale().Ratio();
        const QPointF at = (QPointF(corner) + QPointF(units.x, units.y) * _view.Scale().PixelsPerUnit()) /
                           _view.Scale().Ratio();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, _view.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(_view.viewport(), &event);
        }
    }
    // All that is seen, from the tiles that are still right and those that are made anew.
    void Paint() { _view.viewport()->repaint(); }
    int Paints() const { return _count.paints; }

private:
    PaintCount _count;
    ScoreView _view;
};

// An eighth note in the first or the last measure of a score of so many.
void PressToPainted(benchmark::State& state, bool last) {
    StartUpForBench();
    StartQt();
    auto window = Reopened(*LargeScore(static_cast<int>(state.range(0)), "D", 4, true));
    const Document* document = window->GetDocument();
    window->SetCurrentPage(last ? documentPages.Last(document) : documentPages.First(document));
    Measure* measure = last ? LastMeasure(document) : FirstMeasure(document);
    const StaffFrame staff = FrameOf(measureStaffs.First(measure)->_staff.Get());
    const Point at{FrameOf(measure).XOf(700), staff.YOfLine(4)};
    Tools() = ToolState();
    Hand hand(*window, {at.x - 500, at.y - 500, at.x + 500, at.y + 500});
    const int before = hand.Paints();
    for (auto _ : state) {
        hand.Press(at);
        hand.Paint();
        state.PauseTiming();
        if (!window->CanUndo()) state.SkipWithError("the press entered nothing");
        window->Undo();
        hand.Paint();
        state.ResumeTiming();
    }
    const auto painted = static_cast<benchmark::IterationCount>(hand.Paints() - before);
    if (painted < 2 * state.iterations()) state.SkipWithError("nothing was painted");
}
BENCHMARK_CAPTURE(PressToPainted, FirstMeasure, false)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PressToPainted, LastMeasure, true)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace corvane
