// Which time elements of a walk fire together.
#pragma once

#include "model/Relations.h"

namespace corvane {

// One to a walk. An overfull voice does not run into the next measure: what stands behind the last beat fires
// together, and none of it starts.
class Simultaneity {
public:
    // The walk enters a measure.
    void Enter() { _overrun = false; }
    // Whether the candidate, of measure m2, fires together with what fired last, of m1. May turn on the
    // overrun or end it.
    bool Holds(const Measure* m1, const TimeElement* e1, const Measure* m2, const TimeElement* e2);
    // The walk is behind the last beat of its measure: only what ends still counts.
    bool IsOverrun() const { return _overrun; }

private:
    bool _overrun = false;
};

}  // namespace corvane
