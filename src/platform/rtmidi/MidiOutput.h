// One MIDI output device, open.
#pragma once

#include <atomic>
#include <memory>

#include "play/MessageQueue.h"

class RtMidiOut;

namespace corvane {

class JackWatch;
struct MidiPlace;

class MidiOutput {
public:
    // Null where the device cannot be opened. `jack` outlives a device of JACK's and is null for others. Main
    // thread.
    static std::unique_ptr<MidiOutput> Open(const MidiPlace& place, const JackWatch* jack);
    ~MidiOutput();
    MidiOutput(const MidiOutput&) = delete;
    MidiOutput& operator=(const MidiOutput&) = delete;

    // False if the message cannot be taken, or if the device has failed since the last call. Our part neither
    // locks nor allocates. Any thread.
    bool Send(ShortMessage message);

private:
    explicit MidiOutput(const JackWatch* jack);
    void Deliver(const ShortMessage& message);

    const JackWatch* const _jack;
    std::unique_ptr<RtMidiOut> _device;
    MessageQueue _queue;  // the library takes messages from one thread at a time
    std::atomic<bool> _failed{false};
};

}  // namespace corvane
