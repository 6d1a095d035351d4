#include "platform/rtmidi/RtMidiPort.h"

#include <chrono>
#include <thread>

#include "platform/jack/JackServer.h"
#include "platform/rtmidi/MidiOutput.h"
#include "platform/rtmidi/MidiSystems.h"

namespace corvane {

RtMidiPort::RtMidiPort(BuiltInSynth* synth) : _synth(synth) {
    for (const MidiPlace& place : OutputPlaces()) {
        const bool isJack = place.api == RtMidi::UNIX_JACK;
        if (isJack && !_jack) _jack = std::make_unique<JackWatch>();
        _outputs.push_back(MidiOutput::Open(place, isJack ? _jack.get() : nullptr));
    }
    if (_jack) _settling = 3 * JackPeriod();
    Settle();
}

RtMidiPort::~RtMidiPort() {
    Silence();
    Settle();
}

void RtMidiPort::Settle() const {
    if (_jack && !_jack->ServerIsGone()) std::this_thread::sleep_for(std::chrono::milliseconds(_settling));
}

MidiOutput* RtMidiPort::OutputOf(int16_t port) const {
    return port == kBuiltIn ? nullptr : _outputs[static_cast<size_t>(port)].get();
}

bool RtMidiPort::Send(int16_t port, uint8_t status, uint8_t data1, uint8_t data2) {
    if (MidiOutput* output = OutputOf(port)) return output->Send({status, data1, data2});
    return _synth && _synth->Send(status, data1, data2);
}

void RtMidiPort::ResetDevice(int16_t port) {
    if (port == kBuiltIn && _synth) _synth->Reset();
}

}  // namespace corvane
