#include "edit/Drag.h"

#include <cstdlib>

#include "edit/PickPlaces.h"
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

LiftedDrag::~LiftedDrag() {
    if (_moving) _window.Sheet().PutDown();
}

std::vector<DrawPatch> LiftedDrag::Drawers() const {
    void* record = RecordAt(_patch, _from);
    return record ? PatchesOf(_window, {record, ClassNumberOf(record)}) : std::vector<DrawPatch>{};
}

void LiftedDrag::Begin() {
    _patches = Drawers();
    _window.Sheet().Lift(_patches);
    _count = _window.Sheet().Lifted().size();
}

void LiftedDrag::Release(Point at) {
    Move(at);
    if (!IsLifted()) return;
    _window.Sheet().PutDown();
    if (Changes()) Apply();
}

}  // namespace corvane
