// The measures of an imported score, laid over its file: what the first track says of meters,
// tempos and keys, and as many more measures as the notes need.
#pragma once

#include <cstdint>
#include <vector>

#include "interchange/FineTime.h"
#include "interchange/MidiFile.h"

namespace corvane {

inline constexpr size_t kMostMeasures = 32767;

struct TempoAt {
    int beat, metronome;
};
struct KeyAt {
    int32_t time;  // ticks
    int key;       // sharps less flats
};

struct Bar {
    FineTime start = 0, length = 0;
    int16_t num = 4, den = 4;
    bool showsMeter = false;
    std::vector<TempoAt> tempos;  // by beat, each beat once

    FineTime End() const { return start + length; }
};

class BarGrid {
public:
    explicit BarGrid(int ticksPerQuarter);
    // Takes what the tempo map says. Damaged for bytes that mean nothing and for too many measures.
    Status Read(MidiBytes tempoMap);
    // The number, from 0, of the measure in which a time lies; measures are added up to it. Below 0 where
    // that would be too many.
    int BarAt(FineTime time);
    // The same for a time that a measure holds.
    size_t BarOf(FineTime time) const;

    const Bar& operator[](size_t bar) const { return _bars[bar]; }
    size_t Size() const { return _bars.size(); }
    // Of a time in ticks.
    FineTime Fine(int32_t ticks) const { return FineOf(ticks, _ticksPerQuarter); }
    int TicksPerQuarter() const { return _ticksPerQuarter; }
    const std::vector<KeyAt>& Keys() const { return _keys; }

private:
    void AddBar(int num, int den);
    bool SetMeter(const MidiEvent& event);
    bool SetTempo(const MidiEvent& event);

    int _ticksPerQuarter;
    std::vector<Bar> _bars;
    std::vector<KeyAt> _keys;
};

// What a key event says, if it says a key.
bool ReadKey(const MidiEvent& event, KeyAt& key);

}  // namespace corvane
