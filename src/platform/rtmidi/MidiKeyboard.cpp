#include "platform/rtmidi/MidiKeyboard.h"

#include "platform/jack/JackServer.h"
#include "platform/rtmidi/MidiSystems.h"

namespace corvane {
namespace {

// The status and up to two data bytes, from the lowest byte up; 0 for what is longer.
uint32_t MessageOf(const std::vector<unsigned char>& bytes) {
    if (bytes.empty() || bytes.size() > 3) return 0;
    uint32_t message = 0;
    for (size_t i = 0; i < bytes.size(); ++i) message |= uint32_t{bytes[i]} << (8 * i);
    return message;
}

template <SoundPort::InputUse Use>
void Receive(double, std::vector<unsigned char>* bytes, void*) {
    if (const uint32_t message = MessageOf(*bytes)) SoundPort::PassInput(message, Use);
}

}  // namespace

MidiKeyboard::MidiKeyboard() = default;
MidiKeyboard::~MidiKeyboard() = default;

void MidiKeyboard::Close() {
    _device.reset();
    _jack.reset();
}

bool MidiKeyboard::IsOpen() const { return _device != nullptr; }

Status MidiKeyboard::Open(int16_t number, SoundPort::InputUse use) {
    Close();
    const Status invalid(Fault::NotFound, "Invalid input port/device");
    const auto places = InputPlaces();
    if (number < 0 || static_cast<size_t>(number) >= places.size()) return invalid;
    const MidiPlace& place = places[static_cast<size_t>(number)];
    if (place.api == RtMidi::UNIX_JACK) _jack = std::make_unique<JackWatch>();
    try {
        auto device = std::make_unique<RtMidiIn>(place.api, "Corvane");
        using Use = SoundPort::InputUse;
        device->setCallback(use == Use::Record ? Receive<Use::Record> : Receive<Use::Echo>);
        device->openPort(place.index, "in");
        if (!device->isPortOpen()) return invalid;
        _device = std::move(device);
    } catch (const std::exception&) {
        return invalid;
    }
    return Status::Ok();
}

}  // namespace corvane
