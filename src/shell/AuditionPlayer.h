// Sounds a note for a moment when it is entered, without waiting: the note-off comes by a timer.
#pragma once

namespace corvane {

// From now on entered notes sound. Before the sound port goes, EndAuditions.
void BeginAuditions();
void EndAuditions();

}  // namespace corvane
