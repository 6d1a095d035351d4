// An imported score before any of it is made: what its file says, in measures, staves and symbols.
#pragma once

#include <string>
#include <vector>

#include "interchange/BarGrid.h"
#include "interchange/ImportOptions.h"
#include "interchange/ImportProgress.h"
#include "interchange/ImportTrack.h"
#include "interchange/VoicePlan.h"

namespace corvane {

struct TrackPlan {
    std::string name;
    std::vector<KeyAt> keys;
    std::array<ChannelSound, 16> sounds;
    ChannelTable channels;
    std::vector<VoicePlan> voices;
    bool isLow = false;     // most notes are below middle C
    bool hasSplit = false;  // its second voice is the first one's notes
};

struct ScorePlan {
    explicit ScorePlan(int ticksPerQuarter) : bars(ticksPerQuarter) {}

    std::string title;  // empty for none
    BarGrid bars;
    std::vector<TrackPlan> tracks;
    int splitVoice = 0;
    bool isSingle = true;  // no track uses more than one channel
};

// The staves that the score will have: one for each track and one more for a track of more than eight
// channels.
int StavesOf(const ScorePlan& plan);
// Of a score of so many staves.
int MeasuresPerSystem(int staves);

// Reads the tempo map and all tracks of a file. Damaged for bytes that mean nothing, and for what no score
// holds.
Status PlanScore(const MidiFile& file, size_t fileSize, const ImportOptions& options,
                 ImportProgress& progress, ScorePlan& plan);

}  // namespace corvane
