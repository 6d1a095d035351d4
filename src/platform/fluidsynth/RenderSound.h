// Sound into a file, as fast as the machine can.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Status.h"
#include "play/BuiltInSynth.h"

namespace corvane {

// Called for each unit of 4 ms in turn, from 0, just before its sound is made: sends what is due then. False
// when the music has ended; what was still sent then sounds at the end.
using RenderFeed = std::function<bool(int64_t tick, BuiltInSynth& synth)>;

// 16-bit stereo at 48 kHz, never clipped, as FLAC or WAV by the path's extension: the units that `feed`
// answered true for, and what still sounds after them, up to 8 seconds. A tick begins at frame 192 * tick. A
// failure leaves an old file as it was, and so does `goOn`, asked every second of music: once it answers
// false, nothing is written, and the Status is Refused without a message.
Status RenderSound(const std::string& path, const RenderFeed& feed, const std::function<bool()>& goOn = {});

}  // namespace corvane
