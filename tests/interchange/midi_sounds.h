// What is heard of a MIDI file, as text.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "interchange/MidiFile.h"

namespace corvane {

// Each beginning and end of a note in a file, less the ticks of lead, sorted by time within its track.
inline std::vector<std::string> SoundsOf(const std::vector<uint8_t>& bytes, int lead) {
    MidiFile file;
    EXPECT_TRUE(ReadMidiFile(bytes, file));
    std::vector<std::string> sounds;
    for (size_t track = 1; track < file.tracks.size(); ++track) {
        MidiTrackReader reader(file.tracks[track]);
        const size_t first = sounds.size();
        for (MidiEvent event; reader.Next(event);) {
            char line[64];
            std::snprintf(line, sizeof line, "%zu %08d %02X %d %d", track, event.time - lead, event.status,
                          event.data1, event.data2);
            if ((event.status & 0xF0) == 0x90) sounds.push_back(line);
        }
        std::sort(sounds.begin() + static_cast<std::ptrdiff_t>(first), sounds.end());
    }
    return sounds;
}

}  // namespace corvane
