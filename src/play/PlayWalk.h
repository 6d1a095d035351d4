// The order of measures as they are played, and how far a walk has come. Two walk side by side in play: the
// notes and the click.
#pragma once

#include <cstdint>

#include "play/MIDIUtility.h"
#include "play/MeasureClock.h"
#include "play/RepetitionRoute.h"

namespace corvane {

// Repeats are decided measure by measure: each end-repeat is taken once, and on the second pass measures
// under an ending whose text holds the digit 1 are left out. Repetition texts turn the order where the route
// knows of any.
class PlayOrder {
public:
    void Begin(const Measure* start, const Measure* repeatStart, const RepetitionRoute& route = {}) {
        _at = start;
        _repeatStart = repeatStart;
        _repeatPass = 0;
        _route = route;
    }
    // To a measure without regard to repeats.
    void MoveTo(const Measure* measure) { _at = measure; }

    // The measure to play behind the present one; null at the end. `jumped` tells of a jump, when the tempo
    // at the goal is to be applied.
    const Measure* Next(bool& jumped);
    // A measure that begins a repeated section becomes the goal of the next end-repeat.
    void NoteStartRepeat(const Measure* measure);

private:
    const Measure* NextPastFirstEndings() const;
    const Measure* NextInRepeat();
    void Forget() {
        _repeatStart = nullptr;
        _repeatPass = 0;
    }

    const Measure* _at = nullptr;
    const Measure* _repeatStart = nullptr;
    int _repeatPass = 0;  // 1 on the repeat
    RepetitionRoute _route;
};

// The nearest measure with a start-repeat, from this one backward; null if there is none.
const Measure* StartRepeatBefore(const Measure* measure);

// Where one walk is and how long its measure lasts, in ticks.
struct Lane {
    PlayOrder order;
    const Measure* measure = nullptr;
    int resolution = 240;
    int num = 0, den = 0;
    int32_t start = 0, duration = 0;
    int32_t ticks = 0;  // of the measure at factor 1.0
    int32_t carry = 0;  // what rounding left over, for the next measure
    double factor = 1.0;

    void Begin(int32_t time);
    // Takes the meter of a measure that begins where the present one ends.
    void Enter(const Measure* next);
    // The length of the measure it is in, with another resolution; what has passed by `now` keeps its share.
    void ChangeResolution(int ticksOfQuarter, double now);
    double TicksOfBeat() const { return num ? static_cast<double>(duration) / num : 0; }
};

}  // namespace corvane
