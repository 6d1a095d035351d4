// Which note values and rests write a length.
#pragma once

#include <optional>

#include "interchange/BarGrid.h"

namespace corvane {

struct Figure {
    int value = 4;  // 1 to 128
    int dots = 0;
    FineTime length = 0;
};

// The largest value that is not above a length, and its dots where they fit the rest of it exactly, at most
// two. Nothing below a 128th.
std::optional<Figure> FigureOf(FineTime length);
// How much of a note from `start` to `end`, of one measure, is written first: all where one figure writes it;
// else as far as the next beat, or the largest value where it begins on a beat.
FineTime FirstPiece(const Bar& bar, FineTime start, FineTime end);
// The rest that stands first where nothing sounds from `start` to `end`: as large as the beats let it be
// seen.
Figure RestAt(const Bar& bar, FineTime start, FineTime end);

// From the start of a measure to its second beat, three parts of a compound meter together.
FineTime BeatOf(const Bar& bar);

}  // namespace corvane
