// Reads the chunks and events of a MIDI file, never beyond its bytes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "base/Status.h"
#include "interchange/MidiBytes.h"

namespace corvane {

using MidiBytes = std::span<const uint8_t>;

// A file of format 1.
struct MidiFile {
    int ticksPerQuarter = 0;  // at least 1; time codes count as a big number
    // What the track chunks hold, tags and lengths off; those that the header promises and the file has not
    // are left out, and one that ends beyond the file ends with it. The first is the tempo map.
    std::vector<MidiBytes> tracks;
};
// Damaged for what is no MIDI file, Unsupported for the formats 0 and 2.
Status ReadMidiFile(MidiBytes bytes, MidiFile& file);

struct MidiEvent {
    int32_t time = 0;    // ticks from the track's start
    uint8_t status = 0;  // 0x80 to 0xEF, or 0xFF
    uint8_t data1 = 0, data2 = 0;
    MetaKind kind{};  // of a meta event
    MidiBytes data;   // of a meta event
};

// The events of one track in order. System exclusive messages are passed over.
class MidiTrackReader {
public:
    explicit MidiTrackReader(MidiBytes track) : _bytes(track) {}
    // False at the track's end, which its chunk or the end of the file may be, or at bytes that mean nothing.
    bool Next(MidiEvent& event);
    // How the track ended.
    bool IsDamaged() const { return _damaged; }

private:
    bool ReadEvent(MidiEvent& event, uint8_t status);
    bool ReadMeta(MidiEvent& event);
    bool Byte(uint8_t& byte);
    bool Data(uint8_t& byte);
    bool Variable(uint32_t& value);
    bool Take(MidiBytes& data);
    bool Damage() {
        _damaged = true;
        return false;
    }

    MidiBytes _bytes;
    size_t _at = 0;
    int32_t _time = 0;
    uint8_t _running = 0;
    bool _damaged = false;
};

}  // namespace corvane
