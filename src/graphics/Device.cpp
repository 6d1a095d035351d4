#include "graphics/Device.h"

#include <cmath>

namespace corvane {

std::vector<DevicePoint> SquareEndedLine(DevicePoint from, DevicePoint to, double width) {
    const double dx = to.x - from.x, dy = to.y - from.y;
    const double length = std::hypot(dx, dy);
    if (length == 0) return {};
    // Half of what a cut along the end's axis measures through the line.
    if (std::abs(dx) >= std::abs(dy)) {
        const double half = 0.5 * width * length / std::abs(dx);
        return {{from.x, from.y - half}, {to.x, to.y - half}, {to.x, to.y + half}, {from.x, from.y + half}};
    }
    const double half = 0.5 * width * length / std::abs(dy);
    return {{from.x - half, from.y}, {to.x - half, to.y}, {to.x + half, to.y}, {from.x + half, from.y}};
}

}  // namespace corvane
