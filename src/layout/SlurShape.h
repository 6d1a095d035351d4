// The curve of a slur on one system: where its tips stand and how it clears what lies between.
#pragma once

#include <optional>

#include "layout/SpannerMarks.h"
#include "layout/TaperedCurve.h"

namespace corvane {

// The events at its ends; null where the record names none.
const VoiceSymbol* FirstEventOf(const Slur* slur);
const VoiceSymbol* LastEventOf(const Slur* slur);
// On the side of the heads where all stems point one way, else above; in a voice beside another on that
// voice's side.
bool IsAbove(const Slur* slur);
// Empty for a mark that draws nothing.
TaperedCurve CurveOf(const MarkSlur& mark);

}  // namespace corvane
