// What is dragged of a filed object. Keys and commands may take away or move what is dragged: then the drag
// is over. Lengths are absolute page units. UI thread.
#pragma once

#include <vector>

#include "edit/WindowTarn.h"

namespace corvane {

class Drag : public Interaction {
public:
    Drag(WindowTarn& window, const DrawPatch& patch, Point from)
        : _window(window), _patch(patch), _rect(window.Sheet().FiledRect(patch)), _from(from) {}

    void Move(Point to) override;

protected:
    virtual void Begin() {}
    // Asked before each move: the object stands where it stood at the press.
    virtual bool IsThere() const { return _window.Sheet().FiledRect(_patch) == _rect; }

    WindowTarn& _window;
    const DrawPatch _patch;
    const Rect _rect;  // as it stood at the press
    const Point _from;
    Point _by;             // so far
    bool _moving = false;  // beyond a tremble
};

// A drag of things that are out of the picture meanwhile: all that draws what has been pressed.
class LiftedDrag : public Drag {
public:
    using Drag::Drag;
    ~LiftedDrag() override;

    void Release(Point at) final;

protected:
    // Everything that is out of the picture: what draws the thing that is pressed.
    virtual std::vector<DrawPatch> Drawers() const;
    // Whether anything would be another one.
    virtual bool Changes() const = 0;
    // One step of its own; the patches are filed where they stood, and no longer lifted.
    virtual void Apply() = 0;

    bool IsLifted() const { return _count && _window.Sheet().Lifted().size() == _count; }
    const std::vector<DrawPatch>& Patches() const { return _patches; }

private:
    void Begin() final;
    bool IsThere() const final { return _moving ? IsLifted() : Drag::IsThere(); }

    std::vector<DrawPatch> _patches;
    size_t _count = 0;  // of them that are on the sheet
};

}  // namespace corvane
