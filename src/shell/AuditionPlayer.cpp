#include "shell/AuditionPlayer.h"

#include <QTimer>
#include <algorithm>

#include "edit/Audition.h"
#include "model/Clefs.h"
#include "model/Par.h"
#include "play/SoundPort.h"

namespace corvane {
namespace {

constexpr int kVelocity = 100;

const VoiceRecord* VoiceRecordOf(const GenericNote* note) {
    const DocStaff* staff = DocStaffPar(note);
    const Voice* voice = VoicePar(note);
    if (!staff || !voice || voice->_number < 1 || voice->_number > DocStaff::kVoices) return nullptr;
    return &staff->_voices[voice->_number - 1];
}

// Where and how its voice plays.
void Audition(const GenericNote* note, int milliseconds) {
    const VoiceRecord* voice = VoiceRecordOf(note);
    SoundPort* port = SoundPort::Instance();
    if (!voice || !port) return;
    const int16_t device = voice->_port;
    const int program = voice->_program, channel = voice->_channel;
    if (channel < 1 || channel > 16 || program > 128) return;
    if (program > 0) {
        port->SetInstrument(device, channel, program);
        port->SetVolume(device, channel, std::clamp<int>(voice->_volume, 0, SoundPort::kFullVolume));
    }
    const int key = SoundingHeight(note) + voice->_transposition;
    port->SendNote(device, channel, key, kVelocity);
    QTimer::singleShot(milliseconds, [device, channel, key] {
        // A play that has ended meanwhile has silenced and closed the port; a device may have gone with it.
        if (SoundPort* still = SoundPort::Existing()) still->SendNote(device, channel, key, 0);
        SoundPort::PollError();
    });
}

}  // namespace

void BeginAuditions() { SetAuditioner(Audition); }
void EndAuditions() { SetAuditioner(nullptr); }

}  // namespace corvane
