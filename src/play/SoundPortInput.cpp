// What the keyboard plays: kept while recording, and echoed.
#include "play/SoundClock.h"
#include "play/SoundPort.h"

namespace corvane {
namespace {

std::atomic<int16_t> thruPort{SoundPort::kNone};
std::atomic<int16_t> thruChannel{SoundPort::kNone};

// A port and a channel in one word; 0 for nowhere, since channels count from 1.
uint32_t PlaceOf(int16_t port, int16_t channel) {
    if (port == SoundPort::kNone || channel < 1) return 0;
    return uint32_t{static_cast<uint16_t>(port)} << 16 | static_cast<uint16_t>(channel);
}
int16_t PortOf(uint32_t place) { return static_cast<int16_t>(place >> 16); }
int16_t ChannelOf(uint32_t place) { return static_cast<int16_t>(place); }

}  // namespace

int16_t SoundPort::GetThruPort() { return thruPort; }
void SoundPort::SetThruPort(int16_t port) { thruPort = port; }
int16_t SoundPort::GetThruChannel() { return thruChannel; }
void SoundPort::SetThruChannel(int16_t channel) { thruChannel = channel; }

void SoundPort::RecordInput(uint32_t message) {
    const InputFlags& flags = TheInputFlags();
    if (!flags.ignore) {
        const SoundClock* clock = SoundClock::Instance();
        if (clock && flags.running)
            _input.Push(message, static_cast<uint32_t>(clock->Time()));
        else if (flags.mode == InputMode::Step)
            _input.Push(message, 0);
    }
    EchoInput(message);
}

void SoundPort::EchoInput(uint32_t message) {
    const int key = message >> 8 & 0xFF;
    if (key > 127) return;
    const bool noteOff = (message & 0xF0) == 0x80;
    const int velocity = noteOff ? 0 : static_cast<int>(message >> 16 & 0xFF);
    const uint32_t now = PlaceOf(thruPort, thruChannel);
    const uint32_t held = _echoed[static_cast<size_t>(key)].exchange(velocity ? now : 0);
    if (held && (held != now || !velocity)) SendNote(PortOf(held), ChannelOf(held), key, 0);
    if (now && (velocity || !held)) SendNote(PortOf(now), ChannelOf(now), key, velocity);
}

void SoundPort::EndEchoes() {
    for (int key = 0; key < 128; ++key)
        if (const uint32_t held = _echoed[static_cast<size_t>(key)].exchange(0))
            SendNote(PortOf(held), ChannelOf(held), key, 0);
}

}  // namespace corvane
