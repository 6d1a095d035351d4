// The bytes of a MIDI file as they are written.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace corvane {

// Kinds of meta event that files of ours hold or that are read from others.
enum class MetaKind : uint8_t {
    Text = 0x01,
    Name = 0x03,
    EndOfTrack = 0x2F,
    Tempo = 0x51,
    Meter = 0x58,
    Key = 0x59,
};

inline constexpr uint32_t kMostVariable = 0x0FFFFFFF;  // of a variable length number

// A track chunk in the making; times count in ticks from the track's start and never fall.
class MidiTrackWriter {
public:
    // `data2` below 0 for a message of two bytes.
    void Message(int32_t time, int status, int data1, int data2 = -1);
    void Meta(int32_t time, MetaKind kind, std::string_view data);
    // The chunk, with the end of the track at its last event. Takes the contents.
    std::vector<uint8_t> Finish();

private:
    void Delta(int32_t time);
    void Variable(uint32_t value);

    std::vector<uint8_t> _bytes = {'M', 'T', 'r', 'k', 0, 0, 0, 0};
    int32_t _last = 0;
};

// The header chunk of a format 1 file.
std::vector<uint8_t> MidiHeader(int tracks, int ticksPerQuarter);

}  // namespace corvane
