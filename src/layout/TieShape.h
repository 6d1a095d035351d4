// The curve of a tie, a piece on each system that it touches.
#pragma once

#include <optional>

#include "layout/TaperedCurve.h"
#include "model/Relations.h"

namespace corvane {

struct TiePiece {
    TaperedCurve curve;  // empty for a mark that draws nothing
    bool up = false;
    int32_t height = 0;  // of the arch, thousandths of the line distance, away from the notes
    int32_t lineDistance = 100;
};
// What a mark draws; with a height that is none of the record's to see what it would draw then, 0 for by the
// rule.
TiePiece PieceOf(const MarkValue& mark);
TiePiece PieceOf(const MarkValue& mark, int32_t height);

// A tie never bends further to its notes than this, thousandths of the line distance.
inline constexpr int32_t kFlattestTie = -100;

}  // namespace corvane
