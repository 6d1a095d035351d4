// Measures that stand for several measures' rest.
#pragma once

#include "model/Relations.h"

namespace corvane {

// As MakeMeasure; every staff shows a rest over `count` measures.
MultiMeasure* MakeMultiMeasure(System* system, Measure* behind, int count);

}  // namespace corvane
