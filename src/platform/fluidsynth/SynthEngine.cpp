#include "platform/fluidsynth/SynthEngine.h"

#include <fluidsynth.h>

#include "platform/fluidsynth/SoundFont.h"

namespace corvane {
namespace {

// A forte note of a piano reaches about an eighth of full scale.
constexpr double kGain = 1.0;

// The library speaks on stderr of everything that it tries; what matters reaches the person by our own words.
void HushLibrary() {
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
        fluid_set_log_function(level, nullptr, nullptr);
}

}  // namespace

SynthEngine::SynthEngine() {
    HushLibrary();
    _settings = new_fluid_settings();
    fluid_settings_setnum(_settings, "synth.sample-rate", kFramesPerSecond);
    fluid_settings_setnum(_settings, "synth.gain", kGain);
    fluid_settings_setint(_settings, "synth.chorus.active", 0);
    _synth = new_fluid_synth(_settings);
}

SynthEngine::~SynthEngine() {
    delete_fluid_synth(_synth);
    delete_fluid_settings(_settings);
}

Status SynthEngine::LoadSounds() {
    const std::string font = FindSoundFont();
    if (!font.empty() && fluid_synth_sfload(_synth, font.c_str(), 1) != FLUID_FAILED) return Status::Ok();
    return {Fault::NotFound, "No sound font was found: install a General MIDI sound font"};
}

void SynthEngine::Take(ShortMessage m) {
    if ((m.data1 | m.data2) > 127) return;
    const int channel = m.status & 15;
    switch (m.status >> 4) {
        case 0x8:
            fluid_synth_noteoff(_synth, channel, m.data1);
            break;
        case 0x9:
            fluid_synth_noteon(_synth, channel, m.data1, m.data2);
            break;  // velocity 0 stops it
        case 0xA:
            fluid_synth_key_pressure(_synth, channel, m.data1, m.data2);
            break;
        case 0xB:
            fluid_synth_cc(_synth, channel, m.data1, m.data2);
            break;
        case 0xC:
            fluid_synth_program_change(_synth, channel, m.data1);
            break;
        case 0xD:
            fluid_synth_channel_pressure(_synth, channel, m.data1);
            break;
        case 0xE:
            fluid_synth_pitch_bend(_synth, channel, m.data1 | m.data2 << 7);
            break;
        default:
            break;
    }
}

void SynthEngine::Quieten() {
    for (int channel = 0; channel < 16; ++channel) {
        fluid_synth_cc(_synth, channel, 64, 0);
        fluid_synth_all_sounds_off(_synth, channel);
    }
}

void SynthEngine::Render(float* samples, int frames) {
    fluid_synth_write_float(_synth, frames, samples, 0, 2, samples, 1, 2);
}

}  // namespace corvane
