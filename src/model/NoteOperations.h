// What chords, rests, stems and notes answer of themselves.
#pragma once

#include "model/Relations.h"

namespace corvane {

// 1, 2, 4 ... 128, and kDoubleWhole.
bool IsNoteValue(uint8_t value);
// Note value of an event: 1, 2, 4 ... 128, or 11.
uint8_t ValueOf(const VoiceSymbol* symbol);
// Fraction of a whole note that a value counts; 11 counts 1.0. An unknown value is an assertion.
double BaseFraction(uint8_t value);
// The same where the double whole counts 2.0, as spacing and the fullness of a measure want it.
double SpacingFraction(uint8_t value);
int DotCount(const VoiceSymbol* symbol);
// Starts at 1000.0 and multiplies by inTimeOf / count for each tuplet with a count.
double TupletRatio(const VoiceSymbol* symbol);
// Thousandths of a whole note: a quarter is 250.0.
double Duration(const VoiceSymbol* symbol);
// Of all before it in its voice, in the same unit; grace chords take no time.
double OnsetOf(const VoiceSymbol* symbol);
// The denominator of a measure as timing takes it: itself where it is a power of two, else 2 to the truncated
// log2.
int EffectiveDenominator(int denominator);

// The head nearest to the free end, whose distance from it is the stem's length; null for a stem without
// heads.
GenericNote* NoteOuter(const Stem* stem);
// The head at the other end, from which the stem is drawn.
GenericNote* NoteInner(const Stem* stem);
// Not all heads lie on one staff.
bool IsMultiStaff(const Stem* stem);
// Stores the code and gives every head its side: seconds alternate around the stem.
void SetDirection(Stem* stem, StemDirection direction);
// Puts a head that hangs in its chord into its stem, the highest first.
void AddNoteToStem(Stem* stem, GenericNote* note);

Beam* BeamOf(const BeamSymbol* symbol);          // null for a symbol under no beam
BeamMarker* MarkerOf(const BeamSymbol* symbol);  // null likewise
Flag* FlagOf(const BeamSymbol* symbol);
bool IsGrace(const VoiceSymbol* symbol);
bool IsGrace(const Stem* stem);  // false for a stem without heads
// The only stem of a chord, or its first; null for none.
Stem* StemOf(const Chords* chord);
Accident* AccidentOf(const GenericNote* note);
// Per mille x of an event: its stem's or the rest's own.
int32_t XOf(const VoiceSymbol* symbol);
// The event's attributes of one kind.
Dot* DotOf(const VoiceSymbol* symbol);

// The voice of that number in a crossing; null if it has none.
Voice* FindVoice(const MeasureStaff* measureStaff, int number);

}  // namespace corvane
