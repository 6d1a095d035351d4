// What the arrow tool does with a press: a head, a rest, a sign, a spanner or a beam under it is selected by
// itself, elsewhere the rubber band begins. With Shift what was selected stays, but for what is pressed a
// second time.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

void PressWithArrow(WindowTarn& window, Point p, uint32_t modifiers);

// Selects heads as they stand now, in addition to what is.
void SelectHeads(WindowTarn& window, const std::vector<GenericNote*>& notes);

// While this lives, the selected heads and rests of the page may move: at its end they are selected, wherever
// they stand then, and nothing else. They must not go.
class SelectionFollower {
public:
    explicit SelectionFollower(WindowTarn& window);
    ~SelectionFollower();
    SelectionFollower(const SelectionFollower&) = delete;

private:
    WindowTarn& _window;
    std::vector<GenericNote*> _notes;
    std::vector<Pause*> _rests;
};

}  // namespace corvane
