// The system's MIDI devices and how they are numbered: through all MIDI systems that are there, one after the
// other.
#pragma once

#include <rtmidi/RtMidi.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

struct MidiDevice {
    int16_t number;  // outputs and inputs are numbered apart, both from 0
    bool isOutput;
    std::string name;
    std::string system;  // such as "ALSA" or "Jack"
};

// Outputs, then inputs. Empty where there is no MIDI system. Main thread.
std::vector<MidiDevice> ListMidiDevices();

// Where a device is found by the library.
struct MidiPlace {
    RtMidi::Api api;
    unsigned index;
    std::string name;
};

// In the order of their numbers; at most SoundPort::kMaxDevices. Main thread.
std::vector<MidiPlace> OutputPlaces();
std::vector<MidiPlace> InputPlaces();

}  // namespace corvane
