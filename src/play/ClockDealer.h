// Whom a clock calls.
#pragma once

#include <cstdint>

namespace corvane {

class ClockDealer {
public:
    // `time` is the clock's time at this callback, `now` the time read anew just before the call; both in
    // units of 4 ms. Called on the clock's own thread, never twice at once. Must not destroy the clock.
    virtual void Tick(int32_t time, int32_t now) = 0;
    virtual ~ClockDealer() = default;
};

}  // namespace corvane
