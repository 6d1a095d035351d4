#include "edit/Drag.h"

#include <cstdlib>

#include "layout/Frames.h"

namespace corvane {
namespace {

constexpr int32_t kSlack = 10;  // a hand's tremble is no drag, page units

}  // namespace

void Drag::Move(Point to) {
    const Page* page = _window.CurrentPage();
    if (!page || !PageRect(page).EnclosesStrictly(to) || !IsThere()) return;
    const Point by{to.x - _from.x, to.y - _from.y};
    if (!_moving && std::abs(by.x) <= kSlack && std::abs(by.y) <= kSlack) return;
    if (!_moving) Begin();
    _moving = true;
    if (by == _by) return;
    _by = by;
    _window.Shell().Refresh(_window);
}

}  // namespace corvane
