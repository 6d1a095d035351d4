// Device coordinates as a surface gets them: exact, so that a surface may place ink between pixels. y grows
// downward.
#pragma once

#include <algorithm>
#include <vector>

namespace corvane {

struct DevicePoint {
    double x = 0, y = 0;
};

struct DeviceRect {
    double left = 0, top = 0, right = 0, bottom = 0;

    double Width() const { return right - left; }
    double Height() const { return bottom - top; }
};

// The outline of a line of a pen `width` wide whose ends are cut square: across at both ends' x for a line
// nearer to the horizontal, at both ends' y for one nearer to the vertical. Its thickness is `width` all
// along, whatever its slope. Four corners; none for a line without length.
std::vector<DevicePoint> SquareEndedLine(DevicePoint from, DevicePoint to, double width);

}  // namespace corvane
