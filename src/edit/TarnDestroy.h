// The cascade that takes a part of a score out with all that hangs on it, from the leaves upward, and repairs
// what leaned on it from outside: ties and tuplets go as a whole, notes that stay sound on their own; beams
// dissolve into flags; a spanner goes with any of its marks, an ending's bracket shrinks. Each belongs to the
// caller's step, while the sheet holds nothing of what goes (StructureStep). Numbers and layout of what stays
// are the caller's.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

void DestroyPage(WindowTarn& window, Page* page);
void DestroySystem(WindowTarn& window, System* system);
void DestroyMeasure(WindowTarn& window, Measure* measure);
// A staff of the score in all its systems and measures. Systems and their other staffs stay as they are.
void DestroyDocStaff(WindowTarn& window, DocStaff* docStaff);
void DestroyMeasureStaff(WindowTarn& window, MeasureStaff* crossing);
void DestroyVoice(WindowTarn& window, Voice* voice);
// An event without regard to the time of the events beside it, which go too.
void DestroyVoiceSymbol(WindowTarn& window, VoiceSymbol* symbol);
void DestroyStaffMeasureSymbol(StaffMeasureSymbol* symbol);
void DestroyMeasureSymbol(MeasureSymbol* symbol);

}  // namespace corvane
