// What makes and takes away ties, tuplets, slurs and the lines that span notes. Every Tie..., Make... and
// Insert... is one undoable step of its own, refused before it begins with a sentence that says why; every
// Set... and Delete... belongs to the caller's step.
#pragma once

#include <vector>

#include "base/Status.h"
#include "edit/WindowTarn.h"

namespace corvane {

// ---- Ties

// The note that a tie from this one would lead to: of the same height, in the next event of its voice, over
// the barline too, where a voice beside it will do; null for none.
GenericNote* NoteToTie(const GenericNote* note);
// Ties each note to the next one where both are given; where no two follow each other, to what follows it.
// Where all of these are tied already they are parted again.
Status TieNotesOf(WindowTarn& window, const std::vector<GenericNote*>& notes);
// Two notes of the same height, the first before the second, sound as one. The second shows no accidental if
// it stands in a later measure.
void SetTie(WindowTarn& window, GenericNote* first, GenericNote* second);
// Takes the tie between two notes away, if there is one.
void DeleteTieBetween(WindowTarn& window, GenericNote* a, GenericNote* b);
// Gives all notes that ties join to this one its alteration; belongs to a change of it.
void AlterTiedNotes(WindowTarn& window, GenericNote* note);

}  // namespace corvane
