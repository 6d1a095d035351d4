#include "platform/rtmidi/MidiKeyboard.h"

#include "platform/rtmidi/MidiSystems.h"
#include "play/SoundPort.h"

namespace corvane {
namespace {

// The status and up to two data bytes, from the lowest byte up; 0 for what is longer.
uint32_t MessageOf(const std::vector<unsigned char>& bytes) {
    if (bytes.empty() || bytes.size() > 3) return 0;
    uint32_t message = 0;
    for (size_t i = 0; i < bytes.size(); ++i) message |= uint32_t{bytes[i]} << (8 * i);
    return message;
}

template <void (SoundPort::*Take)(uint32_t)>
void Receive(double, std::vector<unsigned char>* bytes, void* port) {
    if (const uint32_t message = MessageOf(*bytes)) (static_cast<SoundPort*>(port)->*Take)(message);
}

}  // namespace

MidiKeyboard::MidiKeyboard() = default;
MidiKeyboard::~MidiKeyboard() = default;

void MidiKeyboard::Close() { _device.reset(); }

bool MidiKeyboard::IsOpen() const { return _device != nullptr; }

Status MidiKeyboard::Open(int16_t number, SoundPort& port, Use use) {
    Close();
    const Status invalid(Fault::NotFound, "Invalid input port/device");
    const auto places = InputPlaces();
    if (number < 0 || static_cast<size_t>(number) >= places.size()) return invalid;
    const MidiPlace& place = places[static_cast<size_t>(number)];
    try {
        auto device = std::make_unique<RtMidiIn>(place.api, "Corvane");
        device->setCallback(
            use == Use::Record ? Receive<&SoundPort::RecordInput> : Receive<&SoundPort::EchoInput>, &port);
        device->openPort(place.index, "in");
        if (!device->isPortOpen()) return invalid;
        _device = std::move(device);
    } catch (const std::exception&) {
        return invalid;
    }
    return Status::Ok();
}

}  // namespace corvane
