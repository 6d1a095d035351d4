// Removes notes and rests: what hangs on them goes, what leaned on them is repaired.
#pragma once

#include "edit/WindowTarn.h"

namespace corvane {

struct DeletionChoice {
    int voice = 1;
    bool allVoices = true;  // else only what is in `voice` is deleted
    bool toRest = false;    // the last note of a chord leaves a rest of its value; never a grace note
    bool space = true;      // respace the voice
};

// True if the whole chord went.
bool DeleteNote(WindowTarn& window, GenericNote* note, const DeletionChoice& choice);
void DeletePause(WindowTarn& window, Pause* pause, const DeletionChoice& choice);
// Removes a sign of a head, a tie with its other end.
void DeleteNoteAttribute(WindowTarn& window, NoteAttribute* attribute);
void DeleteTie(WindowTarn& window, TieValue* tie);
void DeleteVoiceSymbolAttribute(WindowTarn& window, VoiceSymbolAttribute* attribute);

}  // namespace corvane
