#include "edit/Lasso.h"

#include "edit/ControlPoints.h"
#include "edit/WindowTarn.h"

namespace corvane {

Lasso::Lasso(WindowTarn& window, Point anchor, bool adding) : _window(window), _anchor(anchor) {
    if (adding || window.TheSelection().IsEmpty()) return;
    window.TheSelection().Clear();
    window.SelectionChanged();
}

void Lasso::Move(Point to) {
    const Rect band = Rect{_anchor.x, _anchor.y, to.x, to.y}.Normalised();
    if (band == _band) return;
    _band = band;
    _window.Shell().Refresh(_window);
}

void Lasso::Release(Point at) {
    Move(at);
    if (_band.IsEmpty()) return;
    _window.TheSelection().Add(_band);
    _window.Handles().SelectIn(_band);
    _window.SelectionChanged();
}

}  // namespace corvane
