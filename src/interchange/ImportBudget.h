// What an imported score may cost, told before any of it is made: a file that asks for far more than its own
// bytes can be meant to say is no music.
#pragma once

#include <cstddef>

#include "interchange/VoicePlan.h"

namespace corvane {

class ImportBudget {
public:
    explicit ImportBudget(size_t fileSize) : _left(kFreeBytes + kBytesOfByte * fileSize) {}

    // Each false, and nothing spent, where that much is not left.
    bool Spend(const PlannedSymbol& symbol) {
        return Spend(symbol.noteCount ? kChordBytes + symbol.noteCount * kNoteBytes : kRestBytes);
    }
    bool SpendOnFrame(size_t staves, size_t measures, size_t measuresPerSystem) {
        const size_t crossings = measures * staves, heads = crossings / measuresPerSystem;
        return Spend(heads * kHeadBytes + crossings * kCrossingBytes + measures * kMeasureBytes);
    }
    // Whether so many notes could still be paid.
    bool Bears(size_t notes) const { return notes <= _left / kNoteBytes; }

private:
    // Bytes of memory that parts of a score take, measured; a head is a staff's beginning in a system.
    static constexpr size_t kChordBytes = 260, kNoteBytes = 280, kRestBytes = 100;
    static constexpr size_t kCrossingBytes = 155, kHeadBytes = 180, kMeasureBytes = 200;
    // Enough for any music. To save a score takes its size twice more.
    static constexpr size_t kFreeBytes = size_t{20} << 20, kBytesOfByte = 200;

    bool Spend(size_t bytes) {
        if (bytes > _left) return false;
        _left -= bytes;
        return true;
    }

    size_t _left;
};

}  // namespace corvane
