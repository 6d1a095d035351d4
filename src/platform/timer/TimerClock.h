// The clock of live play: a thread that keeps a millisecond grid without drifting.
#pragma once

#include <atomic>
#include <cstdint>
#include <thread>

#include "play/SoundClock.h"

namespace corvane {

// Deadlines are absolute, so that lateness of one callback does not move those after it, and lie where units
// of 4 ms begin, so that a unit is seen as soon as it does. A callback that was armed while a dealer took its
// time comes at once; further milliseconds that passed meanwhile are left out.
class TimerClock : public SoundClock {
public:
    TimerClock(int resolution, int unit, ClockDealer* out, ClockDealer* in = nullptr);
    // Ends the chain and waits for the callback under way. Not from a dealer.
    ~TimerClock() override;

    // Main thread, not from a dealer.
    void Start() override;
    // Any thread.
    void EnableOut() override { _outOn = true; }
    void EnableIn() override { _inOn = true; }
    void DisableOut() override { _outOn = false; }
    void DisableIn() override { _inOn = false; }
    int32_t Time() const override { return _time; }

    // A callback is still to come or under way. Any thread.
    bool IsRunning() const { return _running; }
    // The present time in units of 4 ms, counted from the program's first look at it. Any thread.
    static int32_t Now();

private:
    void RunChain();
    void EndChain();
    bool Call();  // one callback; true if it armed the next

    std::atomic<int32_t> _time{0};
    std::atomic<bool> _outOn{false};
    std::atomic<bool> _inOn{false};
    std::atomic<bool> _killed{false};
    std::atomic<bool> _running{false};
    std::thread _thread;
};

}  // namespace corvane
