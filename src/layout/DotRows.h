// Rows of dots of an event, each at the left edge of its first dot.
#pragma once

#include <vector>

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// One for each head, from the highest down, behind all heads at the chord's place. No two rows lie in one
// space, those of other voices at that place counted: a head that finds its own taken goes on into the next,
// down from a head above it, up from one below. Heads that voices share have one row.
std::vector<Point> RowsOf(const Chords* chord);
std::vector<Point> RowsOf(const Pause* pause);

}  // namespace corvane
