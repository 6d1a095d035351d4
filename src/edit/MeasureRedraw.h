// While this lives, nothing of a staff's events in one measure is on the sheet; at its end everything is filed as it
// stands then. So an edit may release and move records freely, and the sheet never holds a stale one. Cost: the events
// of that staff in that measure, and of the measures that its beams and ties reach.
#pragma once

#include <functional>

#include "edit/WindowTarn.h"

namespace corvane {

class MeasureRedraw {
public:
    MeasureRedraw(WindowTarn& window, MeasureStaff* measureStaff);
    ~MeasureRedraw();
    MeasureRedraw(const MeasureRedraw&) = delete;

private:
    WindowTarn& _window;
    MeasureStaff* _measureStaff;
};

// Calls visit(record start, voice number) for each drawable record of a staff's events in a measure.
void ForEachPatch(MeasureStaff* measureStaff, const std::function<void(void*, int)>& visit);

}  // namespace corvane
