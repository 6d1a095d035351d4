#include "platform/fluidsynth/RenderSound.h"

#include <array>
#include <cstdlib>
#include <utility>

#include "base/Rounding.h"
#include "platform/fluidsynth/PeakLimiter.h"
#include "platform/fluidsynth/SoundFile.h"
#include "platform/fluidsynth/SynthEngine.h"
#include "play/SoundClock.h"

namespace corvane {
namespace {

constexpr int kUnitsPerSecond = 1000 / SoundClock::kUnitMilliseconds;
constexpr int kLongestTail = 8 * kUnitsPerSecond;
constexpr int kQuietEnd = kUnitsPerSecond / 4;  // as long as this without sound, it has ended
constexpr int kAudible = 8;                     // of 32767
constexpr int kLevels = 32767;

static_assert(PeakLimiter::kFrames * kUnitsPerSecond == SynthEngine::kFramesPerSecond);

class EngineAsSynth : public BuiltInSynth {
public:
    explicit EngineAsSynth(SynthEngine& engine) : _engine(engine) {}
    bool Send(uint8_t status, uint8_t data1, uint8_t data2) override {
        _engine.Take({status, data1, data2});
        return true;
    }
    void Reset() override { _engine.Quieten(); }

private:
    SynthEngine& _engine;
};

// From the synthesiser through the limiter, which is a block behind, to the file.
class Renderer {
public:
    Status Open(const std::string& path) {
        if (Status loaded = _engine.LoadSounds(); !loaded) return loaded;
        return _file.Open(path, SynthEngine::kFramesPerSecond);
    }

    SynthEngine& Engine() { return _engine; }

    Status RenderUnit() {
        PeakLimiter::Block block;
        _engine.Render(block.data(), PeakLimiter::kFrames);
        return Put(block);
    }

    Status RenderTail() {
        for (int unit = 0; unit < kLongestTail && _quietUnits < kQuietEnd; ++unit)
            if (Status written = RenderUnit(); !written) return written;
        if (Status written = Put({}); !written) return written;
        return _file.Finish();
    }

private:
    Status Put(const PeakLimiter::Block& block) {
        const PeakLimiter::Block ready = _limiter.Push(block);
        if (!std::exchange(_begun, true)) return Status::Ok();
        std::array<int16_t, 2 * PeakLimiter::kFrames> samples;
        bool audible = false;
        for (size_t i = 0; i < samples.size(); ++i) {
            samples[i] = static_cast<int16_t>(Round(ready[i] * kLevels));
            audible |= std::abs(samples[i]) > kAudible;
        }
        _quietUnits = audible ? 0 : _quietUnits + 1;
        return _file.Write(samples);
    }

    SynthEngine _engine;
    PeakLimiter _limiter;
    SoundFile _file;
    bool _begun = false;
    int _quietUnits = 0;
};

}  // namespace

Status RenderSound(const std::string& path, const RenderFeed& feed, const std::function<bool()>& goOn) {
    Renderer renderer;
    if (Status opened = renderer.Open(path); !opened) return opened;
    EngineAsSynth synth(renderer.Engine());
    for (int64_t tick = 0; feed(tick, synth); ++tick) {
        if (tick % kUnitsPerSecond == 0 && goOn && !goOn()) return {Fault::Refused, ""};
        if (Status written = renderer.RenderUnit(); !written) return written;
    }
    return renderer.RenderTail();
}

}  // namespace corvane
