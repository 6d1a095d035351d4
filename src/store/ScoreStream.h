// The bytes of a score file up to the objects: header, magics, class names, and the run through the records.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace corvane {

// 12 bytes; what a save writes.
extern const uint8_t kFileMagic[12];

struct ScoreHeader {
    std::array<uint8_t, 20> magic{};
    bool legacy = false;  // objects as they lay in memory on the older machines, pointers as stream positions
    bool littleEndian = false;     // ids too (some legacy files)
    std::vector<int16_t> classes;  // class number by file id less 1
    size_t stream = 0;             // where the records begin
};

// False, and `fault` told, for anything but the beginning of a score file whose classes are all known.
bool ReadHeader(std::span<const uint8_t> bytes, ScoreHeader& header, std::string& fault);

// 0xFFFF, magic, names: one for each class number.
void WriteHeader(std::span<const int16_t> classes, std::vector<uint8_t>& out);

// Runs through the records from the header on, one Next each; zero runs between them are passed over.
class ScoreStream {
public:
    ScoreStream(std::span<const uint8_t> bytes, const ScoreHeader& header)
        : _bytes(bytes), _header(header), _at(header.stream) {}

    struct Record {
        int16_t word = 0;               // class number, or the word of a raw block
        uint32_t length = 0;            // bytes that stand behind the id
        const uint8_t* data = nullptr;  // these
        size_t at = 0;                  // of the id, from the start of the stream
    };
    // False at the end of the stream, and at damage: then Fault() is not empty.
    bool Next(Record& record);
    const std::string& Fault() const { return _fault; }

private:
    int16_t WordAt(size_t at) const;
    bool Fail(const char* why);

    std::span<const uint8_t> _bytes;
    const ScoreHeader& _header;
    size_t _at;
    std::string _fault;
};

}  // namespace corvane
