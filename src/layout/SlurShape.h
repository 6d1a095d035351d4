// The curve of a slur on one system: where its tips stand and how it clears what lies between.
#pragma once

#include <array>

#include "layout/SpannerMarks.h"
#include "layout/TaperedCurve.h"

namespace corvane {

// The events at its ends; null where the record names none.
const VoiceSymbol* FirstEventOf(const Slur* slur);
const VoiceSymbol* LastEventOf(const Slur* slur);
// On the side of the heads where all stems point one way, else above; in a voice beside another on that
// voice's side.
bool IsAbove(const Slur* slur);
// How far its tips and shoulders are moved from where the rule puts them: x and y of tip, shoulder, shoulder,
// tip, hundredths of a line distance.
using SlurPoints = std::array<int32_t, 8>;
SlurPoints PointsOf(const Slur* slur);
void MovePoints(Slur* slur, const SlurPoints& points);
// Empty for a mark that draws nothing.
TaperedCurve CurveOf(const MarkSlur& mark);
// With its points moved so far.
TaperedCurve CurveOf(const MarkSlur& mark, const SlurPoints& points);

}  // namespace corvane
