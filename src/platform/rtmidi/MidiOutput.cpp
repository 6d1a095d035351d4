#include "platform/rtmidi/MidiOutput.h"

#include "platform/jack/JackServer.h"
#include "platform/rtmidi/MidiSystems.h"

namespace corvane {
namespace {

constexpr bool IsShort(uint8_t status) { return (status & 0xE0) == 0xC0; }  // one data byte

}  // namespace

MidiOutput::MidiOutput(const JackWatch* jack) : _jack(jack) {}
MidiOutput::~MidiOutput() = default;

std::unique_ptr<MidiOutput> MidiOutput::Open(const MidiPlace& place, const JackWatch* jack) {
    std::unique_ptr<MidiOutput> output(new MidiOutput(jack));
    try {
        output->_device = std::make_unique<RtMidiOut>(place.api, "Corvane");
        output->_device->setErrorCallback(
            [](RtMidiError::Type, const std::string&, void* failed) {
                static_cast<std::atomic<bool>*>(failed)->store(true);
            },
            &output->_failed);
        output->_device->openPort(place.index, "out");
        if (output->_failed || !output->_device->isPortOpen()) return nullptr;
    } catch (const std::exception&) {
        return nullptr;
    }
    return output;
}

bool MidiOutput::Send(ShortMessage message) {
    const bool taken = _queue.Put(message, [this](const ShortMessage& m) { Deliver(m); });
    return !_failed.exchange(false) && taken;
}

void MidiOutput::Deliver(const ShortMessage& message) {
    // No wire carries a data byte above 127: a device would take it for another message.
    if ((message.data1 | message.data2) > 127) return;
    if (_jack && _jack->ServerIsGone()) {
        _failed = true;
        return;
    }
    const unsigned char bytes[] = {message.status, message.data1, message.data2};
    try {
        _device->sendMessage(bytes, IsShort(message.status) ? 2 : 3);
    } catch (const std::exception&) {
        _failed = true;
    }
}

}  // namespace corvane
