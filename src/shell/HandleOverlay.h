// Control points over a page: squares of much the same size at every zoom, selected ones filled.
#pragma once

#include "shell/ViewOverlays.h"

namespace corvane {

void PaintHandles(const OverlayPaint& paint, WindowTarn& window);
// How far from its middle a press is on a handle, page units.
int32_t HandleReach(const ViewScale& scale);

}  // namespace corvane
