// A sound file of 16-bit stereo samples, written from front to back.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/Status.h"

struct sf_private_tag;

namespace corvane {

// The file takes its place in one step when it is finished; until then, and after a failure, an old file
// stays.
class SoundFile {
public:
    SoundFile() = default;
    // Throws an unfinished file away.
    ~SoundFile();
    SoundFile(const SoundFile&) = delete;
    SoundFile& operator=(const SoundFile&) = delete;

    // A path that ends in ".flac" is compressed without loss, any other is plain WAV. ReadOnly if no file can
    // be made there.
    Status Open(const std::string& path, int framesPerSecond);
    // Left and right in turn. NoSpace if the disk is full or a WAV beyond 4 GiB.
    Status Write(std::span<const int16_t> samples);
    Status Finish();

private:
    void Discard();

    std::string _path, _temporary;
    int _file = -1;
    sf_private_tag* _sound = nullptr;
    uint64_t _bytes = 0, _mostBytes = 0;  // of samples
};

}  // namespace corvane
