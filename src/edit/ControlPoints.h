// The handles of a window: small squares over its page on what stands by a stored distance that no other
// gesture reaches. They are of its current page, found anew on first need after everything that changes the
// score, and no part of the score or its picture. Lengths are absolute page units. Main thread only.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "base/Geometry.h"

namespace corvane {

class WindowTarn;

enum class HandleKind : uint8_t { Stem, Tie, Staff, Tuplet, Barline, Slur };
inline constexpr size_t kHandleKinds = 6;

struct Handle {
    HandleKind kind = HandleKind::Stem;
    void* target = nullptr;  // the record that it steers
    int part = 0;            // which point of it
    Point place;
    std::optional<Point> tip;  // of a curve's shoulder: a thin line leads there

    // The same point of the same record, wherever it stands now.
    bool IsSame(const Handle& other) const {
        return kind == other.kind && target == other.target && part == other.part;
    }
};

// A handle and where it goes.
struct HandleMove {
    Handle handle;
    Point to;

    Point By() const { return to - handle.place; }
};

class ControlPoints {
public:
    explicit ControlPoints(WindowTarn& window) : _window(window) {}

    bool IsOn(HandleKind kind) const { return _on[static_cast<size_t>(kind)]; }
    bool IsAnyOn() const;
    void Show(HandleKind kind, bool on);
    // All kinds are off from now on; the shell is told where any was on.
    void End();
    // The score has changed: places and targets are found anew, and a drag that is under way is over.
    void Renew();
    unsigned Generation() const { return _generation; }

    // All that are on; what is dragged stands where it would come to stand.
    const std::vector<Handle>& All();
    bool Has(HandleKind kind);
    // The nearest one within reach of a point.
    std::optional<Handle> At(Point p);
    // How far from its middle a press is still on one. Views keep it in step with their zoom.
    void SetReach(int32_t reach) { _reach = reach; }

    bool IsSelected(const Handle& handle) const;
    bool IsNoneSelected() const { return _selected.empty(); }
    void Select(const Handle& handle);
    void Deselect(const Handle& handle);
    void SelectNothing() { _selected.clear(); }
    // Those in a rubber band, in addition.
    void SelectIn(const Rect& band);
    std::vector<Handle> Selected();

    // While they are dragged, where they are shown; empty at its end.
    void ShowMoved(const std::vector<HandleMove>& moves);

private:
    static constexpr int32_t kUsualReach = 50;

    WindowTarn& _window;
    std::array<bool, kHandleKinds> _on{};
    std::vector<Handle> _found, _selected;
    bool _stale = true;
    unsigned _generation = 0;
    int32_t _reach = kUsualReach;
};

// A press with the arrow on a handle: it is selected and can be dragged with all that are; pressed once more
// it is no longer. False where there is none; then, without Shift, none stays selected.
bool PressHandle(WindowTarn& window, Point p, uint32_t modifiers);

// By keys: the one behind the selected one, or before it, is selected instead, round the page; false where
// there is none.
bool WalkHandles(WindowTarn& window, bool forward);
// What all selected ones steer goes so far, as one undoable step; false where none is selected.
bool NudgeHandles(WindowTarn& window, Point by);

}  // namespace corvane
