// From what a press hits to the record that it picks, and back to what the sheet shows of it.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

// The head under the point, the spanner or beam of a mark, anything else itself; null for a column away from
// its heads, and for a mark of nothing.
void* RecordAt(const DrawPatch& patch, Point p);
// Those on the window's current page that draw a picked record: of a spanner each of its marks, of a head the
// column that holds it.
std::vector<DrawPatch> PatchesOf(const WindowTarn& window, const Pick& pick);
// Where it is seen, in absolute page units: a head by itself, long thin things along their lines.
std::vector<Rect> AreasOf(const WindowTarn& window, const Pick& pick);

}  // namespace corvane
