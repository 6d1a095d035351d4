#include "edit/ControlPoints.h"

#include <algorithm>
#include <cstdlib>

#include "edit/HandleFamily.h"
#include "edit/WindowTarn.h"

namespace corvane {
namespace {

auto SameAs(const Handle& handle) {
    return [&handle](const Handle& other) { return other.IsSame(handle); };
}

int32_t DistanceBetween(Point a, Point b) { return std::max(std::abs(a.x - b.x), std::abs(a.y - b.y)); }

}  // namespace

const HandleFamily& FamilyOf(HandleKind kind) {
    constexpr const HandleFamily& (*kFamilies[])() = {StemHandles,   TieHandles,     StaffHandles,
                                                      TupletHandles, BarlineHandles, SlurHandles};
    static_assert(std::size(kFamilies) == kHandleKinds);
    return kFamilies[static_cast<size_t>(kind)]();
}

bool ControlPoints::IsAnyOn() const {
    return std::any_of(_on.begin(), _on.end(), [](bool on) { return on; });
}

void ControlPoints::Show(HandleKind kind, bool on) {
    _on[static_cast<size_t>(kind)] = on;
    Renew();
    _window.Shell().StateChanged(_window);
    _window.Shell().Refresh(_window);
}

void ControlPoints::End() {
    if (!IsAnyOn()) return;
    _on = {};
    Renew();
    _selected.clear();
    _window.Shell().StateChanged(_window);
    _window.Shell().Refresh(_window);
}

void ControlPoints::Renew() {
    _stale = true;
    ++_generation;
}

const std::vector<Handle>& ControlPoints::All() {
    if (!_stale) return _found;
    _stale = false;
    _found.clear();
    for (size_t kind = 0; kind < kHandleKinds && _window.CurrentPage(); ++kind)
        if (_on[kind]) FamilyOf(static_cast<HandleKind>(kind)).Find(_window.CurrentPage(), _found);
    // What has gone is no longer selected.
    std::erase_if(_selected, [this](const Handle& each) {
        return std::none_of(_found.begin(), _found.end(), SameAs(each));
    });
    return _found;
}

bool ControlPoints::Has(HandleKind kind) {
    const std::vector<Handle>& all = All();
    return std::any_of(all.begin(), all.end(), [kind](const Handle& each) { return each.kind == kind; });
}

std::optional<Handle> ControlPoints::At(Point p) {
    std::optional<Handle> nearest;
    for (const Handle& each : All()) {
        const int32_t distance = DistanceBetween(each.place, p);
        if (distance <= _reach && (!nearest || distance < DistanceBetween(nearest->place, p))) nearest = each;
    }
    return nearest;
}

bool ControlPoints::IsSelected(const Handle& handle) const {
    return std::any_of(_selected.begin(), _selected.end(), SameAs(handle));
}

void ControlPoints::Select(const Handle& handle) {
    if (!IsSelected(handle)) _selected.push_back(handle);
}

void ControlPoints::Deselect(const Handle& handle) { std::erase_if(_selected, SameAs(handle)); }

void ControlPoints::SelectIn(const Rect& band) {
    for (const Handle& each : All())
        if (band.EnclosesStrictly(each.place)) Select(each);
}

std::vector<Handle> ControlPoints::Selected() {
    std::vector<Handle> selected;
    for (const Handle& each : All())
        if (IsSelected(each)) selected.push_back(each);
    return selected;
}

void ControlPoints::ShowMoved(const std::vector<HandleMove>& moves) {
    _stale = true;
    if (moves.empty()) return;
    (void)All();
    for (const HandleMove& move : moves) {
        const auto found = std::find_if(_found.begin(), _found.end(), SameAs(move.handle));
        if (found != _found.end()) found->place = move.to;
    }
    // A shoulder's line follows its tip.
    for (Handle& each : _found)
        for (const HandleMove& move : moves)
            if (each.tip && *each.tip == move.handle.place) each.tip = move.to;
}

}  // namespace corvane
