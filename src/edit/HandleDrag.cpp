// A press on a handle: a click selects it, a drag moves what all selected ones steer.
#include <algorithm>
#include <utility>

#include "edit/Drag.h"
#include "edit/HandleFamily.h"
#include "edit/TarnClick.h"

namespace corvane {
namespace {

class HandleDrag : public Drag {
public:
    HandleDrag(WindowTarn& window, const Handle& pressed, Point from, bool wasSelected)
        : Drag(window, {}, from),
          _pressed(pressed),
          _wasSelected(wasSelected),
          _handles(window.Handles().Selected()),
          _generation(window.Handles().Generation()) {}
    ~HandleDrag() override { PutDown(); }

    void Move(Point to) override {
        Drag::Move(to);
        if (_moving && IsThere()) _window.Handles().ShowMoved(MovesOf(_handles, _by));
    }
    void Draw(GraphicPort& port, const DrawContext& context) const override {
        if (!_moving || !IsThere()) return;
        ForEachKind(_handles, [&](const HandleFamily& family, const std::vector<Handle>& handles) {
            family.Draw(port, family.Moved(handles, _by), context);
        });
    }
    void Release(Point at) override {
        Move(at);
        if (!IsThere()) return;
        if (!_moving && _wasSelected) _window.Handles().Deselect(_pressed);
        if (!_moving) return;
        const std::vector<HandleMove> moves = MovesOf(_handles, _by);
        PutDown();
        ApplyMoves(_window, moves);
    }

private:
    void Begin() override {
        std::vector<DrawPatch> lifted;
        for (const Handle& handle : _handles)
            for (const DrawPatch& patch : FamilyOf(handle.kind).Lifted(handle))
                if (std::find(lifted.begin(), lifted.end(), patch) == lifted.end()) lifted.push_back(patch);
        _window.Sheet().Lift(lifted);
    }
    void PutDown() {
        if (!std::exchange(_moving, false)) return;
        _window.Sheet().PutDown();
        _window.Handles().ShowMoved({});
    }
    // Whatever changes the score or the page ends the drag.
    bool IsThere() const override { return _window.Handles().Generation() == _generation; }

    const Handle _pressed;
    const bool _wasSelected;
    const std::vector<Handle> _handles;  // as they stood at the press
    const unsigned _generation;
};

}  // namespace

bool PressHandle(WindowTarn& window, Point p, uint32_t modifiers) {
    ControlPoints& handles = window.Handles();
    const std::optional<Handle> pressed = handles.At(p);
    if (!pressed && !(modifiers & kShift)) handles.SelectNothing();
    if (!pressed) return false;
    const bool wasSelected = handles.IsSelected(*pressed);
    if (!wasSelected) {
        handles.SelectNothing();
        handles.Select(*pressed);
        window.TheSelection().Clear();
    }
    window.SelectionChanged();
    window.interaction = std::make_unique<HandleDrag>(window, *pressed, p, wasSelected);
    return true;
}

}  // namespace corvane
