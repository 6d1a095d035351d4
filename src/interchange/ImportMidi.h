// A MIDI file of format 1 as a score.
#pragma once

#include "interchange/ImportOptions.h"
#include "interchange/ImportProgress.h"
#include "interchange/MidiFile.h"
#include "model/Relations.h"

namespace corvane {

// Fills an empty score: one page, no staves, undo off, its pool the current one. On failure the score is good
// for nothing any more, and whoever made it throws it away.
//
// Damaged ("Invalid MIDI File") for bytes that mean nothing, and for what no score holds: too many measures
// or staves, or far more than bytes of the file's number can be meant to say. Unsupported for the formats 0
// and 2. Refused when the person has given up. Memory stays below 200 bytes for each byte of the file and 64
// MiB.
Status ImportMidi(Document* document, MidiBytes bytes, const ImportOptions& options,
                  ImportProgress& progress);

}  // namespace corvane
