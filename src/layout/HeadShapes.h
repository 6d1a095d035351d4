// What differs from one shape of head to the next.
#pragma once

#include <cstdint>
#include <string>

#include "model/NoteRecords.h"

namespace corvane {

// Heights are in half line distances, added to the rounded height of the head's step.
struct HeadShape {
    const char* name;         // searched in the symbol's name; the first row that is found holds
    int8_t head;              // where the symbol is drawn
    int8_t stemUp, stemDown;  // where a stem attaches
    bool centred;             // its ink is centred on its step, whatever its size
    int8_t stemPercent;  // how far above or below its attachment the stem leaves the ink, hundredths of a
                         // line distance
};

const HeadShape& ShapeOf(const GenericNote* note);
// Whether the head is the one of its value, no cross, rhombus, slash or custom symbol.
bool ShowsValue(const GenericNote* note);
// The symbol's name of the head that shows a value.
std::string HeadNameOf(uint8_t value, bool grace);

}  // namespace corvane
