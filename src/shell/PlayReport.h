// What the clock's thread tells of a play, kept for the main thread.
#pragma once

#include <atomic>

#include "model/HierarchyRecords.h"
#include "play/PlayCursor.h"
#include "play/PlaySetup.h"
#include "play/TarnPlay.h"

namespace corvane {

// Between these beats the palette lets play run; measures and beats from 1, both included.
struct PlayLimits {
    bool on = false;
    int firstMeasure = 1, firstBeat = 1, lastMeasure = 1, lastBeat = 1;
};

class PlayReport : public PlayListener {
public:
    // Before a play. Main thread, with no clock running.
    void Begin(const PlayLimits& limits) {
        _limits = limits;
        measure = beat = elapsed = bpm = 0;
    }
    PlayCursor cursor;
    std::atomic<int> measure{0}, beat{0};  // 0 before the first
    std::atomic<int32_t> elapsed{0};       // ticks of 4 ms
    std::atomic<int> bpm{0};

    void Counter(const Measure* at, int which) override {
        measure.store(at->_number, std::memory_order_relaxed);
        beat.store(which, std::memory_order_relaxed);
    }
    void Elapsed(int32_t ticks) override { elapsed.store(ticks, std::memory_order_relaxed); }
    void TempoChanged(const Measure*, int, int value) override {
        bpm.store(value, std::memory_order_relaxed);
    }
    void MoveCursor(const Measure* at, int which) override {
        if (_limits.on && IsBehindLimit(at->_number, which + 1)) ThePlayFlags().playing = false;
        cursor.Move(at, which);
    }

private:
    bool IsBehindLimit(int at, int which) const {
        return at > _limits.lastMeasure || (at == _limits.lastMeasure && which > _limits.lastBeat);
    }
    PlayLimits _limits;
};

}  // namespace corvane
