// Sounds a note for a moment when it is entered. Nobody waits: whoever is installed sends the note-off by a timer.
#pragma once

#include "model/Relations.h"

namespace corvane {

using Auditioner = void (*)(const GenericNote* note, int milliseconds);
// Null, as at the start, for silence.
void SetAuditioner(Auditioner auditioner);
// Only with "Playback notes" on and for a MIDI key in 0 to 127.
void AuditionNote(const GenericNote* note, int milliseconds = 100);

}  // namespace corvane
