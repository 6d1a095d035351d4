// An open MIDI input, whose messages go to the port.
#pragma once

#include <cstdint>
#include <memory>

#include "base/Status.h"

class RtMidiIn;

namespace corvane {

class SoundPort;

class MidiKeyboard {
public:
    enum class Use {
        Record,  // into the port's ring, and echoed
        Thru,    // echoed only
    };

    MidiKeyboard();
    // Closes it; no message arrives any more when this returns.
    ~MidiKeyboard();

    // Closes what was open and opens input `number`; "Invalid input port/device" where that fails. `port`
    // must outlive the opening; it is called on the input's own thread. Main thread.
    Status Open(int16_t number, SoundPort& port, Use use);
    void Close();
    bool IsOpen() const;

private:
    std::unique_ptr<RtMidiIn> _device;
};

}  // namespace corvane
