// An open MIDI input, whose messages go to the port that there is at the time.
#pragma once

#include <cstdint>
#include <memory>

#include "base/Status.h"
#include "play/SoundPort.h"

class RtMidiIn;

namespace corvane {

class JackWatch;

class MidiKeyboard {
public:
    MidiKeyboard();
    // Closes it; no message arrives any more when this returns.
    ~MidiKeyboard();

    // Closes what was open and opens input `number`; "Invalid input port/device" where that fails. Messages
    // come on the input's own thread. Main thread.
    Status Open(int16_t number, SoundPort::InputUse use);
    void Close();
    bool IsOpen() const;

private:
    std::unique_ptr<JackWatch> _jack;  // null for an input of another system
    std::unique_ptr<RtMidiIn> _device;
};

}  // namespace corvane
