#include "platform/fluidsynth/WavWriter.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>

namespace corvane {
namespace {

static_assert(std::endian::native == std::endian::little, "samples are written as they stand in memory");

constexpr size_t kHeader = 44;
constexpr uint64_t kMostBytes = 0xFFFFFFFF - kHeader;
constexpr uint16_t kChannels = 2, kBytesPerFrame = 4;

using Header = std::array<uint8_t, kHeader>;

template <class Number>
void Put(Header& header, size_t at, Number value) {
    std::memcpy(header.data() + at, &value, sizeof value);
}

void PutText(Header& header, size_t at, const char* four) { std::memcpy(header.data() + at, four, 4); }

Header HeaderOf(uint32_t sampleBytes, uint32_t framesPerSecond) {
    Header h{};
    PutText(h, 0, "RIFF");
    Put<uint32_t>(h, 4, sampleBytes + kHeader - 8);
    PutText(h, 8, "WAVE");
    PutText(h, 12, "fmt ");
    Put<uint32_t>(h, 16, 16);  // bytes of what follows up to "data"
    Put<uint16_t>(h, 20, 1);   // plain samples
    Put<uint16_t>(h, 22, kChannels);
    Put<uint32_t>(h, 24, framesPerSecond);
    Put<uint32_t>(h, 28, framesPerSecond * kBytesPerFrame);
    Put<uint16_t>(h, 32, kBytesPerFrame);
    Put<uint16_t>(h, 34, 16);  // bits of a sample
    PutText(h, 36, "data");
    Put<uint32_t>(h, 40, sampleBytes);
    return h;
}

Status CannotWrite(const std::string& path) { return {Fault::ReadOnly, "Cannot write \"" + path + "\""}; }
Status NoSpace(const std::string& path) { return {Fault::NoSpace, "No space to write \"" + path + "\""}; }

// As a newly made file has them.
void GiveUsualRights(int file) {
    const mode_t mask = umask(0);
    umask(mask);
    static_cast<void>(fchmod(file, 0666 & ~mask));
}

}  // namespace

WavWriter::~WavWriter() { Discard(); }

void WavWriter::Discard() {
    if (!_file) return;
    std::fclose(_file);
    _file = nullptr;
    unlink(_temporary.c_str());
}

Status WavWriter::Open(const std::string& path, uint32_t framesPerSecond) {
    Discard();
    _path = path;
    _temporary = path + ".XXXXXX";
    _framesPerSecond = framesPerSecond;
    _bytes = 0;
    const bool mayReplace = access(path.c_str(), F_OK) != 0 || access(path.c_str(), W_OK) == 0;
    const int file = mayReplace ? mkstemp(_temporary.data()) : -1;
    if (file < 0) return CannotWrite(path);
    GiveUsualRights(file);
    _file = fdopen(file, "wb");
    const Header header{};  // its place
    if (std::fwrite(header.data(), 1, kHeader, _file) != kHeader) return NoSpace(path);
    return Status::Ok();
}

Status WavWriter::Write(std::span<const int16_t> samples) {
    _bytes += samples.size_bytes();
    if (_bytes > kMostBytes || std::fwrite(samples.data(), 2, samples.size(), _file) != samples.size())
        return NoSpace(_path);
    return Status::Ok();
}

Status WavWriter::Finish() {
    const Header header = HeaderOf(static_cast<uint32_t>(_bytes), _framesPerSecond);
    bool good = std::fseek(_file, 0, SEEK_SET) == 0;
    good = good && std::fwrite(header.data(), 1, kHeader, _file) == kHeader;
    good = std::fflush(_file) == 0 && good && fsync(fileno(_file)) == 0;
    if (!good) {
        Discard();
        return NoSpace(_path);
    }
    std::fclose(_file);
    _file = nullptr;
    if (std::rename(_temporary.c_str(), _path.c_str()) == 0) return Status::Ok();
    unlink(_temporary.c_str());
    return CannotWrite(_path);
}

}  // namespace corvane
