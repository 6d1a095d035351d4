// Moves the events of a track to a grid.
#pragma once

#include <cstdint>
#include <vector>

#include "interchange/ImportOptions.h"

namespace corvane {

// A note's beginning or end. Notes of one track, in time order.
struct NoteEvent {
    int32_t time;   // ticks
    int32_t plain;  // the same without regard to tuplets
    uint8_t channel, key;
    bool isOn;
};

// The grid of a level above 0, in thousandths of a tick.
int64_t GridOf(int ticksPerQuarter, int level);

// At a level above 0: each event to the nearest place of the level's grid or, with tuplets, of a tuplet's
// where that is nearer and the event before is not too near. Times never run backward, moments are in order.
void Quantize(std::vector<NoteEvent>& events, int ticksPerQuarter, const ImportOptions& options);

// Of one moment, notes that began before it end first.
void OrderMoments(std::vector<NoteEvent>& events);

}  // namespace corvane
