// Keeps the note areas of a system's measures in their proportions while headers or the width of the system
// change: made before the change, applied after it. Measures move and grow or shrink together over the
// system's width.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

class NoteAreas {
public:
    explicit NoteAreas(System* system);
    // Nothing is written where every header, and the system less what stands at its end, is as wide as
    // before.
    void Apply() const;

private:
    System* _system;
    std::vector<int32_t> _headers, _areas;
    int32_t _width;  // of the measures
};

}  // namespace corvane
