// What the arrow drags of what it has pressed. Until the release nothing of the score changes: the picture
// shows the thing where it would come to stand. The release is one undoable step. Each makes the drag of a
// press on a filed object of its kind; null where that one stays.
#pragma once

#include <memory>

#include "edit/WindowTarn.h"

namespace corvane {

using DragMaker = std::unique_ptr<Interaction> (*)(WindowTarn& window, const DrawPatch& patch, Point from);

// Texts, dynamics and symbols freely, signs on notes off their notes, rests and endings up and down, clefs
// within their measure: as they are.
std::unique_ptr<Interaction> DragSign(WindowTarn& window, const DrawPatch& patch, Point from);
// Heads from step to step.
std::unique_ptr<Interaction> DragHead(WindowTarn& window, const DrawPatch& patch, Point from);
// Hairpins, octave, trill and pedal lines as a whole, or by what is nearest of their ends and their opening.
std::unique_ptr<Interaction> DragLine(WindowTarn& window, const DrawPatch& patch, Point from);
// Arpeggios freely, or longer and shorter by their lower end.
std::unique_ptr<Interaction> DragArpeggio(WindowTarn& window, const DrawPatch& patch, Point from);
// Beams up and down by the third that is pressed, with their stems.
std::unique_ptr<Interaction> DragBeam(WindowTarn& window, const DrawPatch& patch, Point from);

}  // namespace corvane
