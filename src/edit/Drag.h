// What is dragged of a filed object. Keys and commands may take away or move what is dragged: then the drag
// is over. Lengths are absolute page units. UI thread.
#pragma once

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

}  // namespace corvane
