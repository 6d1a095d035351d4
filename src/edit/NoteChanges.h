// What changes notes and rests that are there: how they are written, how long they are, how loud. Each is one
// undoable step, refused before it begins with a sentence that says why. Stems, beams, accidentals, spacing
// and events follow.
#pragma once

#include <optional>
#include <vector>

#include "base/Status.h"
#include "edit/WindowTarn.h"
#include "model/Spelling.h"

namespace corvane {

// Stems up or down, of beams as a whole. They keep it until they are told the direction that they would have
// anyway.
Status PointStems(WindowTarn& window, const std::vector<Chords*>& chords, bool up);

// Notes that a tie joins are one note: all of them move with any of them. Notes under percussion clefs have
// no pitch and stay. Where a note would need more than a double accidental it is written on the nearest step
// that does not.
Status Transpose(WindowTarn& window, const std::vector<GenericNote*>& notes, const Interval& interval);
// The same, each note written as its key has it.
Status TransposeBySemitones(WindowTarn& window, const std::vector<GenericNote*>& notes, int semitones);
// So many staff steps up or down; each note takes the alteration that the key gives its new line.
Status MoveBySteps(WindowTarn& window, const std::vector<GenericNote*>& notes, int steps);
// Gives each note an alteration.
Status AlterNotes(WindowTarn& window, const std::vector<GenericNote*>& notes, Alteration alteration);
// Writes each note in the next way that sounds the same.
Status ChangeSpelling(WindowTarn& window, const std::vector<GenericNote*>& notes);

struct DurationChange {
    std::optional<uint8_t> value;  // 1 to 128 or 11
    std::optional<int> dots;       // 0 to 3
    int doublings = 0;             // 1: twice as long, -1: half as long; not with a value
};
// All chords that share a stem change with any of them. While notes are spaced as they are entered, no
// measure becomes fuller than it can be.
Status ChangeDurations(WindowTarn& window, const std::vector<VoiceSymbol*>& events,
                       const DurationChange& change);

// Velocities of 0 to 127, rising or falling evenly in time from `start` to `end`.
Status ChangeVelocities(WindowTarn& window, const std::vector<GenericNote*>& notes, int start, int end);

}  // namespace corvane
