// The keyboard sounds while nothing records.
#pragma once

#include "model/SessionPreferences.h"
#include "platform/rtmidi/MidiKeyboard.h"

namespace corvane {

struct Document;

// Main thread. The port must be there to be made until this is off.
class MidiThru {
public:
    ~MidiThru() { TurnOff(); }

    // Opens, keeps or closes the keyboard, and chooses where it sounds, as the preferences and the score
    // (null for none) ask for now; costs next to nothing where nothing has changed. Opens the port where a
    // play has closed it. An input that could not be opened is told once, and tried again when another one
    // was chosen or thru was off.
    Status Refresh(const SessionPreferences& preferences, const Document* document);
    // No key that is still held goes on sounding.
    void TurnOff();

    bool IsOpen() const { return _keyboard.IsOpen(); }

private:
    MidiKeyboard _keyboard;
    int16_t _input = SoundPort::kNone;  // asked for last, be it open or not
};

}  // namespace corvane
