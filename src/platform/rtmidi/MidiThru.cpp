#include "platform/rtmidi/MidiThru.h"

#include "play/TarnPlay.h"
#include "play/ThruPlace.h"

namespace corvane {

Status MidiThru::Refresh(const SessionPreferences& preferences, const Document* document) {
    const int input = GetWord(preferences, SessionWord::RecordPort);
    const bool wanted = document && input >= 0 && IsOn(preferences, SessionWord::MidiThru);
    if (!wanted || ThePlayFlags().recording) {
        TurnOff();
        return Status::Ok();
    }
    const ThruPlace place = ThruPlaceOf(document);
    SoundPort::SetThruPort(place.port);
    SoundPort::SetThruChannel(place.channel);
    const bool refused = _input == input && !_keyboard.IsOpen();
    if (refused) return Status::Ok();
    (void)SoundPort::Instance();
    if (_input == input) return Status::Ok();
    _input = static_cast<int16_t>(input);
    return _keyboard.Open(_input, SoundPort::InputUse::Echo);
}

void MidiThru::TurnOff() {
    if (_input == SoundPort::kNone) return;
    _input = SoundPort::kNone;
    _keyboard.Close();
    SoundPort::SetThruPort(SoundPort::kNone);
    SoundPort::SetThruChannel(SoundPort::kNone);
    if (SoundPort* port = SoundPort::Existing()) port->EndEchoes();
    if (!IsPlaying()) SoundPort::Close();
}

}  // namespace corvane
