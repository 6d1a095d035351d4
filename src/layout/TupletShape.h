// Where a tuplet's bracket and figure stand.
#pragma once

#include <string>

#include "base/Geometry.h"
#include "layout/DrawPatch.h"

namespace corvane {

// How far a bracket's ends are moved from their own places, hundredths of a line distance.
struct TupletEnds {
    Point left, right;
};
TupletEnds EndsOf(const Irregular* tuplet);
void MoveEnds(Irregular* tuplet, const TupletEnds& ends);

struct TupletPicture {
    std::string figure;
    Point baseline;  // its left end
    int32_t size = 0;
    Rect figureInk;
    bool bracketed = false;
    Point left, right;  // the line's ends
    int32_t hook = 0;   // downward
    int32_t weight = 0;
    int32_t lineDistance = 100;

    bool IsEmpty() const { return !bracketed && figureInk.IsEmpty(); }
};
// With its ends moved so far; empty for one that is not drawn.
TupletPicture PictureOf(const Irregular* tuplet, const TupletEnds& ends);
// Its first mark draws it.
void Paint(GraphicPort& port, const MarkIrreg& first, const TupletPicture& picture,
           const DrawContext& context);

}  // namespace corvane
