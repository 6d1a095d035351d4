// Where the play cursor stands: the clock's thread names the place, the main thread asks for it and draws.
#pragma once

#include <atomic>
#include <cstdint>

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// An upright line over the staves of a system, a triangle above and below; page units.
struct CursorMark {
    int32_t x = 0, top = 0, bottom = 0;
    int32_t triangle = 0;  // its height; it is twice as wide
    Rect Bounds() const {
        return {x - triangle, top - 2 * triangle, x + triangle + 1, bottom + 2 * triangle};
    }
};

class PlayCursor {
public:
    enum class Step : int16_t { Beat = 0, HalfMeasure = 1, Measure = 2 };

    // At the first beat of a measure. Main thread, with no clock running.
    void SetStart(const Measure* measure, Step step);
    // Any thread; only whole steps move it.
    void Move(const Measure* measure, int beat);
    // Whether it has moved since this was asked last. Main thread.
    bool TakeMoved() { return _moved.exchange(false, std::memory_order_acquire); }

    struct Place {
        const Measure* measure = nullptr;
        int beat = 0;  // from 0
    };
    Place Where() const;

private:
    // The measure as it lies in the stored space, and the beat: one word, so that both belong together.
    std::atomic<uint64_t> _place{0};
    std::atomic<bool> _moved{false};
    Step _step = Step::Beat;
};

// Beats are spread evenly over the note area. Nothing for a measure without staves.
bool MarkOf(PlayCursor::Place place, CursorMark& mark);

}  // namespace corvane
