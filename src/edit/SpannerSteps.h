// Parts of making spanners that several of them share, and what strokes of the pencil make. A stroke is a
// press that is drawn to another point before it is let go; each of these is a step of its own, and tells why
// it makes nothing.
#pragma once

#include "edit/PaletteTable.h"

namespace corvane {

// Files the marks of a mark's spanner that the sheet's page shows.
void FileMarks(WindowTarn& window, const StaffMeasureSymbol* mark);

// From the note under the one point to that under the other; a click alone leads to the next note.
void SlurStroke(WindowTarn& window, const PaletteItem& item, Point from, Point to, int voice);
// A wedge opens to where the stroke ends, so one drawn backward closes.
void HairpinStroke(WindowTarn& window, const PaletteItem& item, Point from, Point to, int voice);
void OttavaStroke(WindowTarn& window, const PaletteItem& item, Point from, Point to, int voice);
void TrilloStroke(WindowTarn& window, const PaletteItem& item, Point from, Point to, int voice);
void PedaleStroke(WindowTarn& window, const PaletteItem& item, Point from, Point to, int voice);

// From the measure under the one point to that under the other, numbered behind the ending before it; a click
// on one takes it away.
void EndingsStroke(WindowTarn& window, const PaletteItem& item, Point from, Point to, int voice);

}  // namespace corvane
