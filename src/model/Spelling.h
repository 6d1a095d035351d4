// How pitches are written: which step, and how it is altered.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "model/Relations.h"

namespace corvane {

struct Spelling {
    int step = 0;  // diatonic, from middle C
    Alteration alteration = Alteration::None;
    friend bool operator==(const Spelling&, const Spelling&) = default;
};

Spelling SpellingOf(const GenericNote* note);
// MIDI key; quarter tones and arrows sound as a natural.
int HeightOf(const Spelling& spelling);
// None where more than a double accidental would be needed.
std::optional<Spelling> SpelledOnStep(int step, int height);
// All ways to write a MIDI key with up to double accidentals, from the lowest step up; one at least.
std::vector<Spelling> SpellingsOf(int height);
// The usual ways to write a MIDI key in a key of `fifths` sharps less flats, the most usual first: notes of
// the scale as they are in it, the others by its nearest neighbours in the circle of fifths.
std::vector<Spelling> SpellingsInKey(int height, int fifths);
// The next way to write what a spelling sounds like; those with one accidental at most, where there are two
// of them.
Spelling NextSpelling(const Spelling& spelling);

// From one written pitch to another, upward where positive.
struct Interval {
    int steps = 0, semitones = 0;
};
// "M3", "m2", "P5", "A4", "d5", "-P8" for downward, "AA4" doubly augmented; numbers 1 to 22. None for
// anything else.
std::optional<Interval> IntervalOf(std::string_view name);

}  // namespace corvane
