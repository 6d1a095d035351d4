// Clefs and key signatures: codes, names, what they do to lines, and which one is in force.
#pragma once

#include <string_view>

#include "model/Relations.h"

namespace corvane {

// Percussion clefs are those from kPercussion on.
inline constexpr int kTreble = 1, kBass = 2, kPercussion = 11;

struct ClefInfo {
    uint8_t code;                 // 1 to 13
    const char* symbol;           // "ChiaveSol" and its kin
    int16_t line;                 // staff step on which the clef's own line stands, 1 the bottom line
    int16_t offset;               // added to a staff step before it is turned into semitones
};
// Whose lines name instruments, no pitches.
inline bool IsPercussion(int clefCode) { return clefCode >= 11 && clefCode <= 13; }
// The row of a code; code 1's for any other.
const ClefInfo& ClefOf(int code);

// The staff step that the clef's symbol is drawn from, on a staff of so many lines: its own line, the middle for a
// percussion clef.
int ClefLine(int code, int lineCount);

// The code of a clef's symbol name; 0 for any other name.
int ClefCodeOfSymbol(std::string_view name);

// The code in force at a place of a crossing: the last moving clef left of x (per mille), else its static clef, else
// the nearest earlier clef of the staff, else treble.
int ClefInForce(const MeasureStaff* measureStaff, int32_t x);
// The code by which a note is read.
int ClefCodeOf(const GenericNote* note);
// Sharps less flats, -7 to 7, in force in a crossing; 0 where none is found.
int KeyInForce(const MeasureStaff* measureStaff);

// The step of a line under a clef: 0 is middle C, each unit a diatonic step.
int DiatonicStep(int clefCode, int line);
// The line that shows a step under a clef.
int LineOfStep(int clefCode, int step);
// Semitones above middle C of a diatonic step, by truncating division.
int SemitonesOfStep(int step);
// What the key gives a diatonic step: -1, 0 or 1.
int KeyAlteration(int key, int step);
// Semitones that an alteration adds; quarter tones and arrows add none.
int SemitonesOf(Alteration alteration);
Alteration AlterationOfKey(int key, int step);
// MIDI key of a note before its staff's transposition: NoteHeight plus its alteration.
int NoteHeight(const GenericNote* note);
int SoundingHeight(const GenericNote* note);

}  // namespace corvane
