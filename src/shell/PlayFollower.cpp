#include "shell/PlayFollower.h"

#include "edit/WindowTarn.h"
#include "layout/Frames.h"
#include "model/Par.h"
#include "shell/ScoreView.h"

namespace corvane {
namespace {

constexpr int32_t kMargin = 300;  // page units that stay in sight around what is shown

Rect RectOf(const System* system) {
    const Point origin = OriginOf(system);
    return Rect{origin.x, origin.y, origin.x + system->_right - system->_left,
                origin.y + system->_bottom - system->_top}
        .GrownBy(kMargin);
}

}  // namespace

void PlayFollower::Begin(WindowTarn& window, ScoreView& view, const Measure* start, PlayCursor::Step step) {
    _window = &window;
    _view = &view;
    _turnedIn = nullptr;
    _cursor.SetStart(start, step);
    Update();
}

void PlayFollower::End() {
    if (_view) _view->ShowPlayMark({});
    _window = nullptr;
    _view = nullptr;
}

void PlayFollower::Update() {
    if (!_window || !_cursor.TakeMoved()) return;
    const PlayCursor::Place place = _cursor.Where();
    if (!place.measure || place.measure == _turnedIn) return;
    _turnedIn = nullptr;
    Page* page = PagePar(place.measure);
    if (page != _window->CurrentPage()) _window->SetCurrentPage(page);
    CursorMark mark;
    if (!MarkOf(place, mark)) return _view->ShowPlayMark({});
    const System* system = SystemPar(place.measure);
    const bool last = systemMeasures.Last(system) == place.measure;
    if (last && TurnBehind(place.measure)) return;
    _view->ShowPlayMark(mark);
    ScrollToCursor(mark);
    if (last) ReadAhead(system);
}

// Horizontally to where the cursor stands at the left, so that the music ahead is seen.
void PlayFollower::ScrollToCursor(const CursorMark& mark) {
    const Rect seen = _view->VisibleUnits();
    Rect wanted = mark.Bounds().GrownBy(kMargin / 2);
    if (mark.x < seen.left || mark.x > seen.right - kMargin)
        wanted.right = wanted.left + seen.right - seen.left;
    _view->ScrollTo(wanted);
}

// In the last measure of a system the next one is brought into sight.
void PlayFollower::ReadAhead(const System* system) {
    const System* next = pageSystems.Next(system);
    if (!next) return;
    const Rect rect = RectOf(next);
    const Rect seen = _view->VisibleUnits();
    if (rect.bottom > seen.bottom) _view->ScrollTo({seen.left, rect.top, seen.left + 1, rect.bottom});
}

// In the last measure of a page the next page is shown; the music goes on without a cursor until it is there.
bool PlayFollower::TurnBehind(const Measure* measure) {
    const Page* page = PagePar(measure);
    Page* next = documentPages.Next(page);
    const System* first = next ? pageSystems.First(next) : nullptr;
    if (!first || systemMeasures.IsEmpty(first) || pageSystems.Last(page) != SystemPar(measure)) return false;
    _turnedIn = measure;
    _view->ShowPlayMark({});
    _window->SetCurrentPage(next);
    const Rect rect = RectOf(first);
    const Rect seen = _view->VisibleUnits();
    _view->ScrollTo({rect.left, rect.top, rect.left + seen.right - seen.left, rect.bottom});
    return true;
}

}  // namespace corvane
