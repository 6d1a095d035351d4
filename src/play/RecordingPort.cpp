#include "play/RecordingPort.h"

#include <utility>

#include "play/SoundClock.h"

namespace corvane {

RecordingPort::RecordingPort(int16_t devices, Listener listener)
    : _devices(devices), _listener(std::move(listener)) {}

bool RecordingPort::Send(int16_t port, uint8_t status, uint8_t data1, uint8_t data2) {
    const std::lock_guard lock(_mutex);
    if (const SoundClock* clock = SoundClock::Instance()) _lastTick = clock->Time();
    const SentMessage message{_lastTick, port, status, data1, data2};
    if (_listener)
        _listener(message);
    else
        _messages.push_back(message);
    return true;
}

std::vector<SentMessage> RecordingPort::Messages() const {
    const std::lock_guard lock(_mutex);
    return _messages;
}

void RecordingPort::Clear() {
    const std::lock_guard lock(_mutex);
    _messages.clear();
}

void RecordingPort::Reserve(size_t messages) {
    const std::lock_guard lock(_mutex);
    _messages.reserve(messages);
}

}  // namespace corvane
