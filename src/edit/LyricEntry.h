// Typing of syllables, from note to note.
#pragma once

#include "edit/TextEntry.h"
#include "edit/WindowTarn.h"

namespace corvane {

std::unique_ptr<TextEntry> EntryOfSyllable(Liriche* syllable);
// At the sung note of the edited voice that is nearest to the point in a crossing; null where there is none.
std::unique_ptr<TextEntry> EntryAtNote(const MeasureStaff* crossing, Point p);

}  // namespace corvane
