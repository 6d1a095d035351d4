// A synthesiser with its sound font, for whoever wants its samples.
#pragma once

#include <cstdint>
#include <memory>

#include "base/Status.h"
#include "play/MessageQueue.h"

struct _fluid_hashtable_t;
struct _fluid_synth_t;

namespace corvane {

class SynthEngine {
public:
    static constexpr int kFramesPerSecond = 48000;

    SynthEngine();
    ~SynthEngine();
    SynthEngine(const SynthEngine&) = delete;
    SynthEngine& operator=(const SynthEngine&) = delete;

    // Reads the sound font, some 50 ms; NotFound if there is none.
    Status LoadSounds();

    // Takes one channel message; what is none, or has a data byte above 127, is ignored. Any thread.
    void Take(ShortMessage message);
    // Every sound stops at once; programs and controllers stay, but for the pedal. Any thread.
    void Quieten();

    // The next `frames` pairs of left and right samples, -1 to 1 and beyond where it is loud.
    void Render(float* samples, int frames);

    _fluid_hashtable_t* Settings() { return _settings; }
    _fluid_synth_t* Synth() { return _synth; }

private:
    _fluid_hashtable_t* _settings;
    _fluid_synth_t* _synth;
};

}  // namespace corvane
