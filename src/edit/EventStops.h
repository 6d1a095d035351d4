// The places of one staff at which a walk over its events stops.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

// The events of a crossing from the left to the right: of a voice or, for 0, of all.
std::vector<VoiceSymbol*> EventsFromLeft(const MeasureStaff* crossing, int voice);
// The middle of its heads, or of the rest, in absolute page units.
int32_t MiddleOf(const VoiceSymbol* event);
// The next crossing of the same staff that is shown, behind it or before; null at the ends.
MeasureStaff* ShownBeside(const MeasureStaff* crossing, bool behind);
// That of the nearest staff above or below in the same measure; null for none.
MeasureStaff* ShownAbove(const MeasureStaff* crossing, bool above);
// The first of a page; null for none.
MeasureStaff* FirstShown(const Page* page);

}  // namespace corvane
