// The tracks of an exported file behind the conductor: one for each voice that sounds on a staff, staff by
// staff, voices in the order in which the score brings them; a staff without notes has one for voice 1. All
// are written in one walk over the measures.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "interchange/MidiBytes.h"
#include "play/MIDIUtility.h"
#include "play/Simultaneity.h"

namespace corvane {

class VoiceTracks {
public:
    explicit VoiceTracks(const Document* document);
    // The chunks of the tracks. Once.
    std::vector<std::vector<uint8_t>> Write();

private:
    struct Track {
        const VoiceRecord* voice;
        MidiTrackWriter writer;
    };
    struct StaffTracks {
        const DocStaff* staff;
        std::vector<Track> tracks;
    };

    void Walk();
    bool EnterNext();
    void Enter(const Measure* measure);
    const TimeElement* FirstFromHere();
    const TimeElement* Behind(const TimeElement* element);
    int32_t DueTime(const TimeElement* element) const;
    void Fire(const TimeElement* element);
    // The track of an event's voice, begun where there is none; null for an event of no staff.
    Track* TrackOf(const SoundEvent* event);

    const Document* _document;
    std::vector<StaffTracks> _staves;
    std::unordered_map<const DocStaff*, size_t> _places;

    const Measure* _measure = nullptr;
    int32_t _start = 0, _length = 0, _carry = 0;
    int32_t _due = 0;  // of what fires now
    Simultaneity _together;
};

}  // namespace corvane
