#include "platform/fluidsynth/SoundFile.h"

#include <fcntl.h>
#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <limits>

namespace corvane {
namespace {

constexpr int kChannels = 2;
constexpr uint64_t kMostOfWav = 0xFFFFFFFF - 1024;  // its sizes are 32 bits wide; room for what stands around

Status CannotWrite(const std::string& path) { return {Fault::ReadOnly, "Cannot write \"" + path + "\""}; }
Status NoSpace(const std::string& path) { return {Fault::NoSpace, "No space to write \"" + path + "\""}; }

// As a newly made file has them.
void GiveUsualRights(int file) {
    const mode_t mask = umask(0);
    umask(mask);
    static_cast<void>(fchmod(file, 0666 & ~mask));
}

}  // namespace

SoundFile::~SoundFile() { Discard(); }

void SoundFile::Discard() {
    if (_sound) sf_close(_sound);
    _sound = nullptr;
    if (_file < 0) return;
    close(_file);
    _file = -1;
    unlink(_temporary.c_str());
}

Status SoundFile::Open(const std::string& path, int framesPerSecond) {
    Discard();
    _path = path;
    _temporary = path + ".XXXXXX";
    _bytes = 0;
    const bool mayReplace = access(path.c_str(), F_OK) != 0 || access(path.c_str(), W_OK) == 0;
    _file = mayReplace ? mkstemp(_temporary.data()) : -1;
    if (_file < 0) return CannotWrite(path);
    GiveUsualRights(_file);
    const bool flac = path.ends_with(".flac") || path.ends_with(".FLAC");
    _mostBytes = flac ? std::numeric_limits<uint64_t>::max() : kMostOfWav;
    SF_INFO info{};
    info.samplerate = framesPerSecond;
    info.channels = kChannels;
    info.format = (flac ? SF_FORMAT_FLAC : SF_FORMAT_WAV) | SF_FORMAT_PCM_16;
    _sound = sf_open_fd(_file, SFM_WRITE, &info, SF_FALSE);
    return _sound ? Status::Ok() : NoSpace(path);
}

Status SoundFile::Write(std::span<const int16_t> samples) {
    _bytes += samples.size_bytes();
    const auto count = static_cast<sf_count_t>(samples.size());
    if (_bytes > _mostBytes || sf_write_short(_sound, samples.data(), count) != count) return NoSpace(_path);
    return Status::Ok();
}

Status SoundFile::Finish() {
    bool good = sf_error(_sound) == SF_ERR_NO_ERROR;
    good = sf_close(_sound) == 0 && good && fsync(_file) == 0;
    _sound = nullptr;
    if (!good) {
        Discard();
        return NoSpace(_path);
    }
    close(_file);
    _file = -1;
    if (std::rename(_temporary.c_str(), _path.c_str()) == 0) return Status::Ok();
    unlink(_temporary.c_str());
    return CannotWrite(_path);
}

}  // namespace corvane
