// The classes of the model that the store has rules of its own for, by number, and what it knows of their
// insides. The model holds these against its records. DO NOT CHANGE: files rest on them.
#pragma once

#include <cstdint>

namespace corvane::named {

inline constexpr int16_t kDocument = 1, kSimpleStaff = 5, kStaffBot = 8, kStaff = 9, kStringa = 11,
                         kTarnFont = 12, kDocStaff = 16, kCompositeSymbol = 23, kSimpleFont = 24, kTime = 32,
                         kGenericText = 92, kTempo = 99;

// The voices of a DocStaff: where the first stands, the size of each, their count.
inline constexpr uint32_t kVoiceRecords = 24, kVoiceRecordSize = 36, kVoiceRecordCount = 8;

// A Tempo's clocks are fewer.
inline constexpr int32_t kClocksPerBeat = 32000;

}  // namespace corvane::named
