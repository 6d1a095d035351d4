// How a MIDI key is written under a key signature.
#pragma once

#include "model/NoteRecords.h"

namespace corvane {

struct Spelling {
    int step;  // diatonic, 0 middle C
    Alteration alteration;
};
// Without a key signature, and under one of sharps, what lies between the naturals is a sharp; the
// signature's own notes and their neighbours on the circle of fifths come first. Never a double accidental.
Spelling SpellingOf(int midiKey, int signature);

}  // namespace corvane
