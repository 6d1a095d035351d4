// Names of symbols that are put together from what they show, for LookupSymbol. The makers read them back.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

// The flag of a value of 8 to 128, such as "8", the byte 161, "up".
std::string FlagName(int value, bool up, bool grace);

// A key signature: sharps less flats, -7 to 7, for a clef's code. Accidentals of `previous` that the key does
// not keep become naturals where both keys go the same way or the key has none.
//
//   "cs" CLEF ("$" | "%") RUN    $ sharps, % flats, in their usual order and places
//
// RUN has a character for each of the seven: "-" absent, "b" a natural, "+" or none the accidental itself.
// The y to draw at is the middle line.
std::string KeySignatureName(int clefCode, int key, int previous = 0);

// What a time signature's symbol shows.
enum class TimeForm : int16_t {
    Stacked = 5,        // numerator above denominator, centred on each other
    Bracketed = 6,      // the same between big brackets
    Upper = 7,          // the numerator where it stands above a denominator, which is left out
    NumeratorOnly = 8,  // one row, on the middle line
    Sum = 9,            // the numerators joined by pluses above one denominator
};
inline constexpr int kTimeSignatureSize = 189;  // at which a digit's em is 4.2 line distances

//   "ts" [FONT] " " FORM " su " NUM " su " DEN " su " SIZE "*" { " + " NUM " su " DEN }
//
// FONT with underscores for blanks, the main music font where there is none. Each added part stands behind a
// plus. The y to draw at is the middle line; TimeMeasurePref's gaps move the rows away from it.
std::string TimeSignatureName(TimeForm form, int num, int den, int size = kTimeSignatureSize);
using TimeFraction = std::pair<int, int>;  // numerator, denominator
std::string TimeSignatureName(TimeForm form, std::span<const TimeFraction> fractions,
                              int size = kTimeSignatureSize);
// The letter C, or the C with a stroke: "tsC" or "tsCs", then " " FORM " su " SIZE "*" or nothing.
std::string CommonTimeName(bool cut, int size = kTimeSignatureSize);

// The repetition texts, each of them a symbol's name: "D.C. al fine" and its kin as they read, "Segno" and
// "Coda" their signs, "Al Coda" with the sign behind it.
std::span<const char* const> RepetitionTexts();

}  // namespace corvane
