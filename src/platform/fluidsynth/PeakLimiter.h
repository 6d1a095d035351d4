// Holds loud passages below full scale without a click: the gain falls before a peak and recovers slowly
// after it.
#pragma once

#include <array>
#include <cstddef>

namespace corvane {

class PeakLimiter {
public:
    static constexpr size_t kFrames = 192;  // 4 ms
    using Block = std::array<float, 2 * kFrames>;

    // Takes the next block and gives the one before, in which no sample exceeds kCeiling. The first call
    // gives silence.
    Block Push(const Block& next);

    static constexpr float kCeiling = 0.95f;

private:
    Block _waiting{};
    float _target = 1;  // the most that the waiting block bears
    float _gain = 1;    // at its beginning
};

}  // namespace corvane
