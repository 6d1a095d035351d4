// One track of a MIDI file behind the tempo map: its notes, and what it says of the voices that they go to.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "interchange/BarGrid.h"
#include "interchange/Quantization.h"

namespace corvane {

// Which channels of a track are which voices of its two staves.
class ChannelTable {
public:
    static constexpr int kStaves = 2, kVoices = 8;
    struct Place {
        int staff, voice;  // 0 the upper, 1 the lower; voices from 1
    };

    // The place of a channel, the first free one where it has none yet.
    Place Register(int channel);
    // Staff 0 where a channel has none.
    Place PlaceOf(int channel) const;
    bool Has(int channel) const;
    // No voice but the first of a staff is used.
    bool IsSingle() const { return _single; }
    bool UsesLower() const { return _channels[1][0] >= 0; }

private:
    std::array<std::array<int, kVoices>, kStaves> _channels = {
        {{-1, -1, -1, -1, -1, -1, -1, -1}, {-1, -1, -1, -1, -1, -1, -1, -1}}};
    bool _single = true;
};

struct ChannelSound {
    int volume = -1;   // 0 to 127
    int program = -1;  // 0 to 127; both -1 where the track says nothing
};

struct ImportTrack {
    std::string name;  // empty for none
    std::vector<KeyAt> keys;
    std::array<ChannelSound, 16> sounds;
    ChannelTable channels;
    std::vector<NoteEvent> events;
};
// Damaged for bytes that mean nothing.
Status ReadImportTrack(MidiBytes bytes, ImportTrack& track);
// What the tempo map is called: the title of the music. Empty for nothing.
std::string ReadTitle(MidiBytes tempoMap);

}  // namespace corvane
