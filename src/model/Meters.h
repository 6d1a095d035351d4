// What a time signature says: the meter of its measures and the way in which it is written.
#pragma once

#include <string>
#include <vector>

#include "model/HierarchyRecords.h"
#include "model/NoteRecords.h"

namespace corvane {

struct TimeSignature;

// TimeSignature::_kind.
enum class MeterKind : uint8_t {
    Normal = 0,          // in the form that the score's preferences tell
    Common = 1,          // the letter C, for 4/4
    Cut = 2,             // the C with a stroke, for 2/2
    Sum = 3,             // 3+2 above one denominator
    SumOfFractions = 4,  // 3/8 + 2/8
    NoteBelow = 5,       // the denominator as a note of its value
    NumeratorOnly = 6,   // the denominator is left out
    Bracketed = 7,       // between brackets
};
inline constexpr int kMeterKinds = 8;

inline constexpr int kMostBeats = 99;   // that a measure counts
inline constexpr int kMostParts = 128;  // of a whole note, the smallest note value

// Note values in the order of a tempo mark's figure codes.
inline constexpr int kFigureValues[] = {kDoubleWhole, 1, 2, 4, 8, 16, 32, 64, 128};

struct Meter {
    std::vector<int> summands{4};  // the numerator, in parts where it is written so
    int den = 4;
    MeterKind kind = MeterKind::Normal;
    bool pickup = false;  // shorter than the meter that it leads to, which a count-off takes

    int Num() const;
    friend bool operator==(const Meter&, const Meter&) = default;
};

// Null for a meter that can be written, else what is wrong, as a sentence.
const char* FaultOf(const Meter& meter);
// The name of its symbol in a score.
std::string SymbolNameOf(const Document* document, const Meter& meter);
// What a sign says.
Meter MeterOf(const TimeSignature* sign);

}  // namespace corvane
