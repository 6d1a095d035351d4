// The steady count of 4 ms units that drives the playback walker. A clock knows nothing of tempo.
#pragma once

#include <atomic>
#include <cstdint>

#include "play/ClockDealer.h"

namespace corvane {

// At most one at a time. Callbacks come as a chain of one-shots a millisecond apart: each arms the next, if
// the out side is on, before it calls the dealers. So one more callback comes after the out side is turned
// off, an in side alone gets a single callback, and the chain ends by itself.
class SoundClock {
public:
    static constexpr int kUnitMilliseconds = 4;

    // The present clock, null when there is none. Any thread; the caller sees to it that the clock outlives
    // its use.
    static SoundClock* Instance();

    // Returns once no dealer is being called any more: destroy the clock before anything that its dealers
    // use.
    virtual ~SoundClock();
    SoundClock(const SoundClock&) = delete;
    SoundClock& operator=(const SoundClock&) = delete;

    // Reads the time and begins the chain, in place of one that still runs.
    virtual void Start() = 0;
    virtual void EnableOut() = 0;
    virtual void EnableIn() = 0;
    virtual void DisableOut() = 0;
    virtual void DisableIn() = 0;
    // Time of the latest callback, or of `Start`, in units of 4 ms. Any thread.
    virtual int32_t Time() const = 0;

    // As given to the constructor; only the walker's arithmetic has a use for them.
    int Resolution() const { return _resolution; }
    int Unit() const { return _unit; }

protected:
    // Dealers may be null and must outlive the clock.
    SoundClock(int resolution, int unit, ClockDealer* out, ClockDealer* in);

    ClockDealer* OutDealer() const { return _out; }
    ClockDealer* InDealer() const { return _in; }

private:
    int _resolution;
    int _unit;
    ClockDealer* _out;
    ClockDealer* _in;
};

// A clock that stands still until told to go on: for tests, dry play and rendering. One thread.
class ManualClock : public SoundClock {
public:
    ManualClock(int resolution, int unit, ClockDealer* out, ClockDealer* in = nullptr);

    void Start() override;
    void EnableOut() override { _outOn = true; }
    void EnableIn() override { _inOn = true; }
    void DisableOut() override { _outOn = false; }
    void DisableIn() override { _inOn = false; }
    int32_t Time() const override { return _time; }

    // One callback, a millisecond of clock time: four come at each time, beginning with four at 0.
    // False, and nothing is called, where the chain has ended or has not begun.
    bool Fire();
    // Four callbacks, a unit of 4 ms; false once the chain has ended.
    bool Advance();

private:
    int32_t _time = 0;
    int64_t _milliseconds = 0;
    bool _outOn = false;
    bool _inOn = false;
    bool _armed = false;
};

}  // namespace corvane
