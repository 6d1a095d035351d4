// The rubber band: a rectangle from the press to the pointer, whichever way, which is selected at the
// release.
#pragma once

#include "edit/Interaction.h"

namespace corvane {

class WindowTarn;

class Lasso : public Interaction {
public:
    // A press there. Without `adding` what was selected is no longer, at once.
    Lasso(WindowTarn& window, Point anchor, bool adding);
    void Move(Point to) override;
    void Release(Point at) override;
    Rect Band() const override { return _band; }

private:
    WindowTarn& _window;
    const Point _anchor;
    Rect _band;
};

}  // namespace corvane
