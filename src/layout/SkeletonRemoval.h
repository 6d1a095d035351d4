// Takes parts out of the skeleton and releases them, once nothing stands in them any more. Numbers of pages
// and measures and the layout of what stays are left to the caller.
#pragma once

#include <functional>

#include "model/Relations.h"

namespace corvane {

// A system without measures, with its staffs and connections.
void ReleaseSystem(System* system);
// A page without systems, with its texts.
void ReleasePage(Page* page);

// Before staffs of a system go: what joins them reaches to the outermost that stay; joining one staff only,
// where it joined several, it goes.
void NarrowConnections(System* system, const std::function<bool(const Staff*)>& goes);
// A staff that nothing joins and no crossing names any more; with the last one of its part what joins them.
void ReleaseStaff(Staff* staff);

}  // namespace corvane
