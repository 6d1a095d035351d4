// What one voice of an imported staff will hold, measure by measure, before any of it is made.
#pragma once

#include <cstdint>
#include <vector>

namespace corvane {

struct PlannedNote {
    int32_t previous;  // the part before of a note that was cut, among the voice's planned notes; -1 for none
    uint8_t key;
};

struct PlannedSymbol {
    uint32_t firstNote = 0;
    int16_t bar = 0;        // from 0
    uint8_t noteCount = 0;  // 0 for a rest
    uint8_t figure = 4;     // note value, 1 to 128
    uint8_t dots = 0;
    uint8_t tupletCount = 0, inTimeOf = 0;  // 0 outside a tuplet
    bool startsTuplet = false;
};

struct VoicePlan {
    int staff = 0, voice = 1;  // 0 the upper, 1 the lower; from 1
    std::vector<PlannedSymbol> symbols;
    std::vector<PlannedNote> notes;
};

}  // namespace corvane
