// The built-in synthesiser, heard through the machine's sound system.
#pragma once

#include <atomic>
#include <memory>
#include <thread>

#include "play/BuiltInSynth.h"
#include "play/MessageQueue.h"

struct _fluid_audio_driver_t;

namespace corvane {

class JackWatch;
class SynthEngine;

// Starts in the background, some 60 ms; what is sent meanwhile sounds when it is ready. Without a sound card,
// or a sound font, it takes everything and is silent. $CORVANE_AUDIO names the only sound system to be tried:
// pulseaudio, alsa, jack or none.
class FluidSynth : public BuiltInSynth {
public:
    FluidSynth();
    ~FluidSynth() override;
    FluidSynth(const FluidSynth&) = delete;
    FluidSynth& operator=(const FluidSynth&) = delete;

    // Begins to start, if that has not been done. The first message does so too. Any thread.
    void Start();
    // Waits until it has started; true if it is to be heard. Main thread.
    bool HasSound();

    bool Send(uint8_t status, uint8_t data1, uint8_t data2) override;
    void Reset() override;
    bool IsSilent() const override { return _state == State::Silent; }

private:
    enum class State : uint8_t { Idle, Starting, Sounding, Silent };

    void StartUp();
    bool OpenSound();
    void Deliver(const ShortMessage& message);

    std::atomic<State> _state{State::Idle};
    MessageQueue _queue{true};
    std::unique_ptr<SynthEngine> _engine;
    std::unique_ptr<JackWatch> _jack;  // while it is heard through that server
    _fluid_audio_driver_t* _driver = nullptr;
    std::thread _starter;
};

}  // namespace corvane
