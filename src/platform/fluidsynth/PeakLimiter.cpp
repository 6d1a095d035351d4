#include "platform/fluidsynth/PeakLimiter.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

constexpr float kRecovery = 0.01f;  // of full gain, a block: 0.4 s from nothing

float TargetOf(const PeakLimiter::Block& block) {
    float peak = 0;
    for (const float sample : block) peak = std::max(peak, std::fabs(sample));
    return peak > PeakLimiter::kCeiling ? PeakLimiter::kCeiling / peak : 1;
}

}  // namespace

// The gain runs straight from one end of a block to the other, and neither end exceeds the block's target.
PeakLimiter::Block PeakLimiter::Push(const Block& next) {
    const float target = TargetOf(next);
    const float end = std::min({_target, target, _gain + kRecovery});
    Block done;
    for (size_t i = 0; i < kFrames; ++i) {
        const float gain = _gain + (end - _gain) * (static_cast<float>(i) / kFrames);
        done[2 * i] = _waiting[2 * i] * gain;
        done[2 * i + 1] = _waiting[2 * i + 1] * gain;
    }
    _waiting = next;
    _target = target;
    _gain = end;
    return done;
}

}  // namespace corvane
