// A port that writes down what it is asked to send: for tests and dry play.
#pragma once

#include <functional>
#include <mutex>
#include <vector>

#include "play/SoundPort.h"

namespace corvane {

struct SentMessage {
    int32_t tick;  // of the clock at that moment, in units of 4 ms; the last one seen where no clock runs
    int16_t port;
    uint8_t status, data1, data2;  // data2 is 0 for a program
    friend bool operator==(const SentMessage&, const SentMessage&) = default;
};

class RecordingPort : public SoundPort {
public:
    using Listener = std::function<void(const SentMessage&)>;

    // Ports -1 to `devices` - 1 are open. With a listener messages go there instead of being kept; it is
    // called on the sender's thread, one call at a time.
    explicit RecordingPort(int16_t devices = 16, Listener listener = {});
    ~RecordingPort() override = default;

    int16_t Count() const override { return _devices; }
    // What was sent so far, in order. Any thread.
    std::vector<SentMessage> Messages() const;
    void Clear();
    // From now on as many messages fit without allocating.
    void Reserve(size_t messages);

protected:
    bool Send(int16_t port, uint8_t status, uint8_t data1, uint8_t data2) override;
    bool IsOpen(int16_t) const override { return true; }

private:
    const int16_t _devices;
    const Listener _listener;
    mutable std::mutex _mutex;
    std::vector<SentMessage> _messages;
    int32_t _lastTick = 0;
};

}  // namespace corvane
