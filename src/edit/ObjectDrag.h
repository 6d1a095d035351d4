// The arrow drags what it has pressed: texts, dynamics and symbols freely, signs on notes off their notes,
// rests up and down, heads from step to step. Until the release nothing of the score changes: the picture
// shows the object where it would come to stand. The release is one undoable step.
#pragma once

#include <memory>

#include "edit/WindowTarn.h"

namespace corvane {

// For a press on a filed object; null for one that cannot be dragged.
std::unique_ptr<Interaction> MakeDrag(WindowTarn& window, const DrawPatch& patch, Point from);

}  // namespace corvane
