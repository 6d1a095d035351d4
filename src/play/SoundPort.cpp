#include "play/SoundPort.h"

#include <algorithm>
#include <bit>
#include <thread>
#include <utility>

#include "base/Assert.h"
#include "base/Notify.h"

namespace corvane {
namespace {

// Status bytes less one, since channels count from 1.
constexpr int kNoteOn = 0x8F;
constexpr int kController = 0xAF;
constexpr int kProgram = 0xBF;

constexpr uint8_t kVolume = 7, kPan = 10, kPedal = 64, kAllNotesOff = 123;

std::atomic<SoundPort*> _instance{nullptr};
std::atomic<bool> portError{false};
std::atomic<SoundPort*> inputPort{nullptr};  // finished, unlike the instance that is still being made
std::atomic<int> inputsUnderWay{0};

SoundPort::Factory& TheFactory() {
    static SoundPort::Factory factory;
    return factory;
}

std::unique_ptr<SoundPort>& MadeByFactory() {
    static std::unique_ptr<SoundPort> port;
    return port;
}

}  // namespace

void SoundPort::SetFactory(Factory factory) { TheFactory() = std::move(factory); }

SoundPort* SoundPort::Existing() { return _instance.load(std::memory_order_acquire); }

SoundPort* SoundPort::Instance() {
    if (!Existing() && TheFactory()) {
        MadeByFactory() = TheFactory()();
        inputPort = MadeByFactory().get();
    }
    return Existing();
}

void SoundPort::Close() {
    inputPort = nullptr;
    while (inputsUnderWay > 0) std::this_thread::yield();
    MadeByFactory().reset();
}

void SoundPort::PassInput(uint32_t message, InputUse use) {
    ++inputsUnderWay;
    if (SoundPort* port = inputPort)
        use == InputUse::Record ? port->RecordInput(message) : port->EchoInput(message);
    --inputsUnderWay;
}

SoundPort::SoundPort(Standing standing) {
    if (standing == Standing::Apart) return;
    CORVANE_ASSERT(!_instance);
    _instance.store(this, std::memory_order_release);
}

SoundPort::~SoundPort() {
    SoundPort* self = this;
    _instance.compare_exchange_strong(self, nullptr);
}

// The port tested is the one before: what goes to device 0 depends on the synthesiser being open.
bool SoundPort::Passes(int16_t port, int channel) const {
    if (channel < 1) return false;
    if (port == kBuiltIn) return true;
    return port >= 0 && port < std::min(Count(), kMaxDevices) && IsOpen(static_cast<int16_t>(port - 1));
}

void SoundPort::SendChecked(int16_t port, int status, int channel, int data1, int data2) {
    AskedOf(port).channels.fetch_or(static_cast<uint16_t>(1u << (channel - 1)), std::memory_order_relaxed);
    const auto byte = [](int v) { return static_cast<uint8_t>(v); };
    if (!Send(port, byte(status + channel), byte(data1), byte(data2))) NoteError();
}

void SoundPort::SendNote(int16_t port, int channel, int pitch, int velocity) {
    if (!Passes(port, channel) || channel > 16 || pitch < 0 || pitch > 127) return;
    Asked& asked = AskedOf(port);
    const auto index = static_cast<size_t>(channel - 1);
    asked.channels.fetch_or(static_cast<uint16_t>(1u << index), std::memory_order_relaxed);
    const auto loudness = static_cast<uint8_t>(std::clamp(velocity, 0, 127));
    const bool sent =
        Send(port, static_cast<uint8_t>(kNoteOn + channel), static_cast<uint8_t>(pitch), loudness);
    // Noted behind the sending: a key that another thread's Silence misses still counts as sounding for the
    // next.
    std::atomic<uint64_t>& keys = asked.keys[index][static_cast<size_t>(pitch >> 6)];
    const uint64_t key = uint64_t{1} << (pitch & 63);
    if (loudness == 0)
        keys.fetch_and(~key, std::memory_order_relaxed);
    else if (sent)
        keys.fetch_or(key, std::memory_order_relaxed);
}

void SoundPort::SetVolume(int16_t port, int channel, int volume) {
    if (!Passes(port, channel)) return;
    CORVANE_ASSERT(channel <= 16);
    CORVANE_ASSERT(volume <= 127);
    SendChecked(port, kController, channel, kVolume, std::max(volume, 0));
}

void SoundPort::SetPan(int16_t port, int channel, int pan) { SendController(port, channel, kPan, pan); }

void SoundPort::SetInstrument(int16_t port, int channel, int instrument) {
    if (!Passes(port, channel)) return;
    CORVANE_ASSERT(channel <= 16);
    CORVANE_ASSERT(instrument <= 128);
    SendChecked(port, kProgram, channel, instrument - 1, 0);
}

void SoundPort::SendController(int16_t port, int channel, int controller, int value) {
    if (!Passes(port, channel)) return;
    CORVANE_ASSERT(channel <= 16);
    CORVANE_ASSERT(controller >= 0 && controller <= 127);
    CORVANE_ASSERT(value >= 0 && value <= 127);
    SendChecked(port, kController, channel, controller, value);
}

void SoundPort::StopKeys(int16_t port) {
    for (size_t channel = 0; channel < 16; ++channel)
        for (size_t half = 0; half < 2; ++half) {
            uint64_t keys = AskedOf(port).keys[channel][half].exchange(0, std::memory_order_relaxed);
            for (; keys; keys &= keys - 1)
                Send(port, static_cast<uint8_t>(kNoteOn + 1 + channel),
                     static_cast<uint8_t>(half * 64 + static_cast<size_t>(std::countr_zero(keys))), 0);
        }
}

void SoundPort::StopChannels(int16_t port) {
    unsigned channels = AskedOf(port).channels.load(std::memory_order_relaxed);
    for (; channels; channels &= channels - 1) {
        const auto status = static_cast<uint8_t>(kController + 1 + std::countr_zero(channels));
        Send(port, status, kPedal, 0);
        Send(port, status, kAllNotesOff, 0);
    }
}

void SoundPort::Silence() {
    const int16_t count = std::min(Count(), kMaxDevices);
    for (int16_t port = kBuiltIn; port < count; ++port) StopKeys(port);
    for (int16_t port = kBuiltIn; port < count; ++port) StopChannels(port);
    for (int16_t port = kBuiltIn; port < count; ++port)
        if (IsOpen(port)) ResetDevice(port);
}

void SoundPort::Panic() {
    const int16_t count = std::min(Count(), kMaxDevices);
    for (int16_t port = 0; port < count; ++port)
        AskedOf(port).channels.store(0xFFFF, std::memory_order_relaxed);
    Silence();
}

void SoundPort::NoteError() { portError.store(true, std::memory_order_relaxed); }

void SoundPort::PollError() {
    static bool shown = false;
    if (shown || !portError.exchange(false, std::memory_order_relaxed)) return;
    shown = true;
    Notify(Severity::Message, "MIDI device already in use.");
}

void SoundPort::PollSilence() {
    static bool shown = false;
    const SoundPort* port = Existing();
    if (shown || !port || !port->IsSilent()) return;
    shown = true;
    Notify(Severity::Message, "There is no sound card: playing is silent.");
}

}  // namespace corvane
