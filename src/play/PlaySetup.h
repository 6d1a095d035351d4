// What a play is asked for.
#pragma once

#include <cstdint>

#include "model/HierarchyRecords.h"

namespace corvane {

inline constexpr int kNormalResolution = 240;  // ticks of a quarter at 60

struct ClickSettings {
    bool on = false;
    int16_t port = -10;  // -10 for none
    int channel = 10;
    int barPitch = 76, barVolume = 127, barDuration = 6;  // durations in sixtieths of a second
    int beatPitch = 77, beatVolume = 100, beatDuration = 6;
    int countOffMeasures = 0;
    bool muteAfterCountOff = false;
};

// The beats between which a recording takes what the keyboard plays; beats from 1, both included.
struct RecordingLimits {
    const Measure* first = nullptr;  // null: from the first click behind the count-off
    int firstBeat = 1;
    const Measure* last = nullptr;  // null: to the end
    int lastBeat = 1;
};

// Told on the clock's thread: may set atomics, nothing else.
class PlayListener {
public:
    virtual ~PlayListener() = default;
    virtual void Counter(const Measure*, int /*beat, from 1*/) {}
    virtual void Elapsed(int32_t /*ticks since the count-off*/) {}
    virtual void TempoChanged(const Measure*, int /*figure*/, int /*bpm*/) {}
    virtual void MoveCursor(const Measure*, int /*beat, from 0*/) {}
    virtual void NewBar() {}
    virtual void Click(const Measure*, int /*beat, from 0*/, bool /*on*/) {}
};

struct PlaySetup {
    int resolution = kNormalResolution;
    ClickSettings click{};
    bool followsTexts = false;  // D.C., D.S., Coda and Fine turn the order of measures
    RecordingLimits limits{};
    PlayListener* listener = nullptr;  // outlives the play
};

}  // namespace corvane
