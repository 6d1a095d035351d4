// What the arrow tool does with a press: a note, a rest or a sign under it is selected, elsewhere the rubber
// band begins. With Shift what was selected stays.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

void PressWithArrow(WindowTarn& window, Point p, uint32_t modifiers);

// Selects heads as they stand now, in addition to what is.
void SelectHeads(WindowTarn& window, const std::vector<GenericNote*>& notes);

// While this lives, the selected heads and rests of the page may move: at its end they are selected where
// they stand then. They must not go.
class SelectionFollower {
public:
    explicit SelectionFollower(WindowTarn& window);
    ~SelectionFollower();
    SelectionFollower(const SelectionFollower&) = delete;

private:
    WindowTarn& _window;
    const bool _follows;
    std::vector<GenericNote*> _notes;
    std::vector<VoiceSymbol*> _rests;
};

}  // namespace corvane
