// What keys that are no characters mean in a score.
#pragma once

#include <optional>

#include "edit/KeyWalk.h"

class QKeyEvent;

namespace corvane {

// The command that a key is for while the arrow is at hand; 0 for none.
int ArrowCommandOf(const QKeyEvent& event);
// How far it moves what selected control points steer, page units; with Shift five times as far.
std::optional<Point> NudgeOf(const QKeyEvent& event);
// Where it moves the pencil or the eraser.
std::optional<PenMove> PenMoveOf(const QKeyEvent& event);
bool IsEnter(const QKeyEvent& event);

}  // namespace corvane
