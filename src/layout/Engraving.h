// The follow-up work of an edit on one column: stems, sides, accidentals, dots, flags.
#pragma once

#include <functional>
#include <string>

#include "model/Relations.h"

namespace corvane {

// Code of a new stem from the value, the line of the outer head and the voice's preference.
StemDirection DefaultStemDirection(const Voice* voice, uint8_t value, int line);
// Whether the voice's stems follow its number: other voices of the crossing hold events, or they are not automatic.
bool StemsAreForced(const Voice* voice);
bool ForcedStemsUp(const Voice* voice);
// Default direction and length for a chord as it stands; a grace chord keeps its own.
void RestemChord(Chords* chord);
// Every stem of the voice that stands under no beam takes its default direction and length
// anew; the caller beams afterwards.
void RestemVoice(Voice* voice);
// The free end at the preferred length from the outer head.
void SetDefaultStemLength(Stem* stem);
// Stores the code, the heads' sides and the flags' symbols ("up" and "down" swapped).
void ChangeStemDirection(Stem* stem, StemDirection direction);

// The flag of a value from 8 on, named for the stem's direction; grace flags for a grace chord. Null, and nothing made,
// for longer values.
Flag* AttachFlag(Stem* stem, uint8_t value);
void RemoveFlag(Stem* stem);

// The accidental symbol's name of an alteration: "#" or "#G", the letter, "(" for brackets.
std::string AccidentName(Alteration alteration, bool grace, bool bracketed);
Accident* AttachAccident(GenericNote* note, Alteration alteration, bool bracketed = false);
void RemoveAccidents(GenericNote* note);

// Runs the rule of accidentals in force to the end of the measure for a note and the next one on its line. The changed
// notes are handed to `changed`: what it draws must be filed anew.
void UpdateAccidentals(GenericNote* note, const std::function<void(GenericNote*)>& changed);
// The nearest note on the same line of the same staff and measure, across voices, by x; null for none.
GenericNote* NoteBefore(const GenericNote* note);
GenericNote* NoteBehind(const GenericNote* note);

// Sets an event's dots: makes, changes or removes its Dot objects (one for each head of a chord, or the rest's one).
void SetDots(VoiceSymbol* symbol, int count);

}  // namespace corvane
