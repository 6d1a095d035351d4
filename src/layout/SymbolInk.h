// The ink of a symbol where it is drawn.
#pragma once

#include "base/Geometry.h"
#include "model/FontRecords.h"

namespace corvane {

// As DrawSymbol paints it at that point with that side letter: 'l' puts a character's left edge there, 'r'
// its right edge.
Rect InkOf(const FontSymbol* symbol, Point at, int32_t lineDistance, int32_t percent, char side = 'l');

}  // namespace corvane
