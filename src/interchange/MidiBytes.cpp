#include "interchange/MidiBytes.h"

#include <algorithm>
#include <utility>

#include "base/BigEndian.h"

namespace corvane {
namespace {

constexpr size_t kChunkHead = 8;  // tag and length
constexpr uint8_t kMeta = 0xFF;

}  // namespace

void MidiTrackWriter::Variable(uint32_t value) {
    value = std::min(value, kMostVariable);
    for (int shift = 21; shift > 0; shift -= 7)
        if (value >> shift) _bytes.push_back(static_cast<uint8_t>(0x80 | (value >> shift & 0x7F)));
    _bytes.push_back(static_cast<uint8_t>(value & 0x7F));
}

void MidiTrackWriter::Delta(int32_t time) {
    Variable(static_cast<uint32_t>(std::max(0, time - _last)));
    _last = std::max(_last, time);
}

void MidiTrackWriter::Message(int32_t time, int status, int data1, int data2) {
    Delta(time);
    _bytes.push_back(static_cast<uint8_t>(status));
    _bytes.push_back(static_cast<uint8_t>(data1));
    if (data2 >= 0) _bytes.push_back(static_cast<uint8_t>(data2));
}

void MidiTrackWriter::Meta(int32_t time, MetaKind kind, std::string_view data) {
    Delta(time);
    _bytes.push_back(kMeta);
    _bytes.push_back(static_cast<uint8_t>(kind));
    Variable(static_cast<uint32_t>(data.size()));
    _bytes.insert(_bytes.end(), data.begin(), data.end());
}

std::vector<uint8_t> MidiTrackWriter::Finish() {
    Meta(_last, MetaKind::EndOfTrack, {});
    WriteBig32(&_bytes[4], static_cast<uint32_t>(_bytes.size() - kChunkHead));
    return std::move(_bytes);
}

std::vector<uint8_t> MidiHeader(int tracks, int ticksPerQuarter) {
    std::vector<uint8_t> bytes = {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, 0, 0, 0};
    WriteBig16(&bytes[10], static_cast<uint16_t>(tracks));
    WriteBig16(&bytes[12], static_cast<uint16_t>(ticksPerQuarter));
    return bytes;
}

}  // namespace corvane
