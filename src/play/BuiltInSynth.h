// The synthesiser behind port -1, as the rest of the house sees it.
#pragma once

#include <cstdint>

namespace corvane {

class BuiltInSynth {
public:
    virtual ~BuiltInSynth() = default;

    // Takes one channel message; false if it could not. Never blocks, any thread.
    virtual bool Send(uint8_t status, uint8_t data1, uint8_t data2) = 0;

    // Every sound stops at once; programs, volumes and pans stay. Any thread.
    virtual void Reset() = 0;

    // It has started and found no way to be heard. False while that is not yet known.
    virtual bool IsSilent() const { return false; }
};

}  // namespace corvane
