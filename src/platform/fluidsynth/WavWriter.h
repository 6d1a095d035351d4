// A sound file of 16-bit stereo samples, written from front to back.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>

#include "base/Status.h"

namespace corvane {

// The file takes its place in one step when it is finished; until then, and after a failure, an old file
// stays.
class WavWriter {
public:
    WavWriter() = default;
    // Throws an unfinished file away.
    ~WavWriter();
    WavWriter(const WavWriter&) = delete;
    WavWriter& operator=(const WavWriter&) = delete;

    // ReadOnly if no file can be made there.
    Status Open(const std::string& path, uint32_t framesPerSecond);
    // Left and right in turn. NoSpace if the disk is full or the file beyond 4 GiB.
    Status Write(std::span<const int16_t> samples);
    Status Finish();

private:
    void Discard();

    std::string _path, _temporary;
    std::FILE* _file = nullptr;
    uint32_t _framesPerSecond = 0;
    uint64_t _bytes = 0;  // of samples
};

}  // namespace corvane
