// Moves of handles of several kinds at once, by the pointer or by keys.
#include <algorithm>

#include "edit/HandleFamily.h"
#include "edit/ToolState.h"
#include "edit/WindowTarn.h"

namespace corvane {
namespace {

constexpr int32_t kSeen = 600;  // of the page around a handle that keys have reached, page units

bool IsAMove(const HandleMove& move) { return !(move.By() == Point{}); }

}  // namespace

std::vector<HandleMove> MovesOf(const std::vector<Handle>& handles, Point by) {
    std::vector<HandleMove> moves;
    ForEachKind(handles, [&](const HandleFamily& family, const std::vector<Handle>& ofKind) {
        const std::vector<HandleMove> moved = family.Moved(ofKind, by);
        moves.insert(moves.end(), moved.begin(), moved.end());
    });
    return moves;
}

void ApplyMoves(WindowTarn& window, const std::vector<HandleMove>& moves) {
    if (std::none_of(moves.begin(), moves.end(), IsAMove)) return;
    const EditStep step(window);
    for (size_t kind = 0; kind < kHandleKinds; ++kind) {
        std::vector<HandleMove> ofKind = moves;
        std::erase_if(ofKind, [kind](const HandleMove& move) {
            return static_cast<size_t>(move.handle.kind) != kind || !IsAMove(move);
        });
        if (!ofKind.empty()) FamilyOf(static_cast<HandleKind>(kind)).Apply(window, ofKind);
    }
}

bool WalkHandles(WindowTarn& window, bool forward) {
    ControlPoints& handles = window.Handles();
    const std::vector<Handle>& all = handles.All();
    if (all.empty() || IsPlaying()) return false;
    const auto isSelected = [&](const Handle& each) { return handles.IsSelected(each); };
    const auto first = std::find_if(all.begin(), all.end(), isSelected);
    auto next = first;
    if (first == all.end())
        next = forward ? all.begin() : all.end() - 1;
    else if (forward)
        next = first + 1 == all.end() ? all.begin() : first + 1;
    else
        next = (first == all.begin() ? all.end() : first) - 1;
    handles.SelectNothing();
    handles.Select(*next);
    window.TheSelection().Clear();
    window.SelectionChanged();
    const Point at = next->place;
    window.Shell().ScrollTo(window, {at.x - kSeen, at.y - kSeen, at.x + kSeen, at.y + kSeen});
    return true;
}

bool NudgeHandles(WindowTarn& window, Point by) {
    const std::vector<Handle> selected = window.Handles().Selected();
    if (selected.empty() || IsPlaying()) return false;
    ApplyMoves(window, MovesOf(selected, by));
    return true;
}

}  // namespace corvane
