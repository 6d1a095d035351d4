#include "edit/PencilStroke.h"

namespace corvane {

void PencilStroke::Move(Point to) {
    if (to == _to) return;
    _to = to;
    _window.Shell().Refresh(_window);
}

void PencilStroke::Release(Point at) { _item.stroke(_window, _item, _from, at, _voice); }

Rect PencilStroke::Band() const { return Rect{_from.x, _from.y, _to.x, _to.y}.Normalised(); }

}  // namespace corvane
