#include "play/TarnPlaySound.h"

#include <algorithm>

#include "play/SoundPort.h"

namespace corvane {

void Play(const SoundEvent* event, SoundPort& port, bool documentHasSolo) {
    const VoiceRecord* voice = event->_voiceRecord;
    const DocStaff* staff = event->_docStaff;
    if (!voice || !staff) return;
    if (!LoadShared(documentHasSolo ? staff->_solo : staff->_active)) return;
    int velocity = 0;
    if (const auto* on = As<NoteOn>(event))
        velocity = std::clamp(LoadShared(voice->_volume) * LoadShared(on->_velocity) / 127, 0, 127);
    const int64_t key = int64_t{event->_height} + LoadShared(voice->_transposition);
    if (key < 0 || key > 127) return;
    port.SendNote(LoadShared(voice->_port), LoadShared(voice->_channel), static_cast<int>(key), velocity);
}

}  // namespace corvane
