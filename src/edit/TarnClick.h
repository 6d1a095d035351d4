// From a press on the page to the handler of the current tool.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

enum Modifier : uint32_t { kShift = 1, kCtrl = 2, kAlt = 4 };

// A press at absolute page units of the window's current page. Nothing happens while playing.
void MouseDown(WindowTarn& window, int32_t x, int32_t y, uint32_t modifiers);
// The second press of a quick pair: the arrow opens a text, every other tool presses again.
void MouseDoubleClick(WindowTarn& window, int32_t x, int32_t y, uint32_t modifiers);
// The pointer, pressed before, moves and is let go; nothing happens where the press began nothing.
void MouseMove(WindowTarn& window, int32_t x, int32_t y);
void MouseUp(WindowTarn& window, int32_t x, int32_t y);
// A typed character; those from 32 to 115 act, letters in both cases. False for one that means nothing here.
bool KeyChar(WindowTarn& window, char character);
// The character that takes an item of the note palette to hand; 0 for none.
char KeyOfNoteItem(int item);

// The system, staff and measure under a point; the walks always end on one. y on the boundary belongs to the
// lower system; the gap is shared in proportion to the heights. A page without systems, or a system without
// staves or measures, gives null.
System* FindSystem(const Page* page, int32_t y);
Staff* FindStaff(const System* system, int32_t y);
Measure* FindMeasure(const System* system, int32_t x);
MeasureStaff* FindMeasureStaff(const System* system, Point p);

}  // namespace corvane
