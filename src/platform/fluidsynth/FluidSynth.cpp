#include "platform/fluidsynth/FluidSynth.h"

#include <fluidsynth.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "platform/fluidsynth/SynthEngine.h"
#include "platform/jack/JackServer.h"

namespace corvane {
namespace {

constexpr uint8_t kReset = 0xFF;  // in the queue, among the messages

// Without a card the library would speak on stderr.
bool HasCard() {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/snd", error)) {
        const std::string name = entry.path().filename().string();
        if (name.rfind("pcm", 0) == 0 && name.back() == 'p') return true;
    }
    return false;
}

struct SoundSystem {
    const char* name;
    bool (*isThere)();
};

// Never the library's own choice: that falls through to writing a file.
constexpr SoundSystem kSoundSystems[] = {
    {"pulseaudio", [] { return true; }},
    {"alsa", HasCard},
    {"jack", JackServerRuns},
};

bool IsWanted(std::string_view system) {
    const char* only = std::getenv("CORVANE_AUDIO");
    return !only || !*only || only == system;
}

}  // namespace

FluidSynth::FluidSynth() { KeepJackQuiet(); }

FluidSynth::~FluidSynth() {
    if (_starter.joinable()) _starter.join();
    if (_driver) delete_fluid_audio_driver(_driver);
}

void FluidSynth::Start() {
    State idle = State::Idle;
    if (!_state.compare_exchange_strong(idle, State::Starting)) return;
    _starter = std::thread(&FluidSynth::StartUp, this);
}

bool FluidSynth::HasSound() {
    Start();
    _state.wait(State::Starting);
    return _state == State::Sounding;
}

void FluidSynth::StartUp() {
    _engine = std::make_unique<SynthEngine>();
    const bool sounds = OpenSound() && _engine->LoadSounds().ok();
    _state = sounds ? State::Sounding : State::Silent;
    _state.notify_all();
    _queue.Release([this](const ShortMessage& m) { Deliver(m); });
}

bool FluidSynth::OpenSound() {
    fluid_settings_t* settings = _engine->Settings();
    fluid_settings_setint(settings, "audio.period-size", 256);
    fluid_settings_setint(settings, "audio.periods", 4);
    fluid_settings_setint(settings, "audio.jack.autoconnect", 1);
    fluid_settings_setstr(settings, "audio.jack.id", "Corvane");
    for (const SoundSystem& system : kSoundSystems) {
        if (!IsWanted(system.name) || !system.isThere()) continue;
        fluid_settings_setstr(settings, "audio.driver", system.name);
        _driver = new_fluid_audio_driver(settings, _engine->Synth());
        if (!_driver) continue;
        if (system.isThere == JackServerRuns) _jack = std::make_unique<JackWatch>();
        return true;
    }
    return false;
}

bool FluidSynth::Send(uint8_t status, uint8_t data1, uint8_t data2) {
    if (IsSilent()) return true;
    Start();
    return _queue.Put({status, data1, data2}, [this](const ShortMessage& m) { Deliver(m); });
}

void FluidSynth::Reset() {
    if (_state != State::Idle) Send(kReset, 0, 0);
}

void FluidSynth::Deliver(const ShortMessage& message) {
    if (_state == State::Silent) return;
    if (message.status == kReset)
        _engine->Quieten();
    else
        _engine->Take(message);
}

}  // namespace corvane
