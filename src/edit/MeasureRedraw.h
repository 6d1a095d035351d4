// While this lives, nothing of a staff's events in one measure is on the sheet, nor a spanner that runs over
// them; at its end everything is filed as it stands then. So an edit may release and move records freely, and
// the sheet never holds a stale one. One within another files nothing that the outer one has taken. Cost: the
// events of that staff in that measure, its spanners in the system; where accidentals of the first events
// move the note area, the system.
#pragma once

#include <vector>

#include "edit/WindowTarn.h"

namespace corvane {

class MeasureRedraw {
public:
    MeasureRedraw(WindowTarn& window, const MeasureStaff* measureStaff);
    ~MeasureRedraw();
    MeasureRedraw(const MeasureRedraw&) = delete;

private:
    void RedrawMoved() const;

    WindowTarn& _window;
    const Measure* const _measure;
    const int32_t _header;
    std::vector<const MeasureStaff*>
        _crossings;  // all of a measure in which beams or stems reach over staves
};

}  // namespace corvane
