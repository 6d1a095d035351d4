#include "platform/rtmidi/MidiSystems.h"

#include <unistd.h>

#include "platform/jack/JackServer.h"
#include "play/SoundPort.h"

namespace corvane {
namespace {

// The library throws or prints where it finds no such system, so we look first.
bool IsThere(RtMidi::Api api) {
    if (api == RtMidi::LINUX_ALSA) return access("/dev/snd/seq", R_OK | W_OK) == 0;
    if (api == RtMidi::UNIX_JACK) return JackServerRuns();
    return true;
}

template <class Library>
void AddPlaces(RtMidi::Api api, std::vector<MidiPlace>& places) {
    try {
        Library library(api, "Corvane");
        const unsigned count = library.getPortCount();
        for (unsigned i = 0; i < count && places.size() < SoundPort::kMaxDevices; ++i)
            places.push_back({api, i, library.getPortName(i)});
    } catch (const std::exception&) {
        // A system that fails offers nothing.
    }
}

template <class Library>
std::vector<MidiPlace> Places() {
    std::vector<RtMidi::Api> apis;
    RtMidi::getCompiledApi(apis);
    std::vector<MidiPlace> places;
    for (const RtMidi::Api api : apis)
        if (IsThere(api)) AddPlaces<Library>(api, places);
    return places;
}

void AddDevices(const std::vector<MidiPlace>& places, bool isOutput, std::vector<MidiDevice>& devices) {
    int16_t number = 0;
    for (const MidiPlace& place : places)
        devices.push_back({number++, isOutput, place.name, RtMidi::getApiDisplayName(place.api)});
}

}  // namespace

std::vector<MidiPlace> OutputPlaces() { return Places<RtMidiOut>(); }
std::vector<MidiPlace> InputPlaces() { return Places<RtMidiIn>(); }

std::vector<MidiDevice> ListMidiDevices() {
    std::vector<MidiDevice> devices;
    AddDevices(OutputPlaces(), true, devices);
    AddDevices(InputPlaces(), false, devices);
    return devices;
}

}  // namespace corvane
