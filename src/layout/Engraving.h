// The follow-up work of an edit on one column: stems, sides, accidentals, dots, flags.
#pragma once

#include <functional>
#include <string>

#include "model/Relations.h"

namespace corvane {

// Code of a stem from the value, the line of its head and the voice's preference.
StemDirection DefaultStemDirection(const Voice* voice, uint8_t value, int line);
// Whether the voice's stems follow its number: other voices of the crossing hold events, or they are not
// automatic.
bool StemsAreForced(const Voice* voice);
bool ForcedStemsUp(const Voice* voice);
// Default direction and length for a chord as it stands. Grace chords point up unless the voice's stems are
// forced. A hidden stem stays hidden.
void RestemChord(Chords* chord);
// The same for every stem of the voice that stands under no beam; its beams are refitted.
void RestemVoice(Voice* voice);
// The free end at the preferred length from the outer head, or at the one that a person has told.
void SetDefaultStemLength(Stem* stem);
// From a head to the middle line of its staff, upward or downward, in hundredths of a line distance; negative
// for a head beyond it.
int32_t LengthToMiddleLine(const GenericNote* note, bool up);
// Stores the code, the heads' sides and the flags' symbols ("up" and "down" swapped).
void ChangeStemDirection(Stem* stem, StemDirection direction);
// Whether a person has pointed it against the rules; it then keeps its direction through later edits.
inline bool IsPointed(const Stem* stem) { return (stem->_said & kSaidDirection) != 0; }
// The same of its length; a beam goes where the first stem under it that has one ends.
inline bool IsLengthTold(const Stem* stem) { return (stem->_said & kSaidLength) != 0; }
// Notes that a person has said something of a stem, or takes it back: one of kSaid...
void Say(Stem* stem, uint8_t what, bool said);
// What a person says of a chord without a beam. Where the rules say the same it follows them again.
void PointChord(Chords* chord, bool up);
// The same up or down, hidden where the stem was hidden or the value has none.
void PointStem(Stem* stem, bool up);

// Gives a column that stands under no beam another value: heads that show their value, its flags, whether it
// has a stem. Lengths and dots are the caller's.
void ChangeValue(ChordSymbol* column, uint8_t value);

// The flag of a value from 8 on, named for the stem's direction; grace flags for a grace chord. Null, and
// nothing made, for longer values.
Flag* AttachFlag(Stem* stem, uint8_t value);
void RemoveFlag(Stem* stem);

// The accidental symbol's name of an alteration: "#" or "#G", the letter, "(" for brackets.
std::string AccidentName(Alteration alteration, bool grace, bool bracketed);
Accident* AttachAccident(GenericNote* note, Alteration alteration, bool bracketed = false);
void RemoveAccidents(GenericNote* note);

// Whether an accidental holds to the end of its measure, as the score's preferences tell; else for its note
// alone.
bool AccidentalsLast(const Document* document);

// What the key in force at a note gives its line.
Alteration KeyAlterationAt(const GenericNote* note);
// What a note is read as where it shows no accidental: as the one before it on its line, where that is still
// in force, else as the key has it.
Alteration AlterationInForce(const GenericNote* note);
// Gives a note the accidental that it needs, and the next one on its line: an accidental stays in force to
// the end of the measure or the next clef. The next note is handed to `changed`.
void UpdateAccidentals(GenericNote* note, const std::function<void(GenericNote*)>& changed);
// The nearest note on the same line of the same staff and measure, across voices, by x; null for none.
GenericNote* NoteBefore(const GenericNote* note);
GenericNote* NoteBehind(const GenericNote* note);

// Sets an event's dots, 0 to 3. One Dot serves all heads of a chord; where a file has one for each head, all
// of them follow.
void SetDots(VoiceSymbol* symbol, int count);

}  // namespace corvane
