#include "interchange/MidiFile.h"

#include <algorithm>
#include <cstring>

#include "base/BigEndian.h"
#include "interchange/ImportFailure.h"

namespace corvane {
namespace {

constexpr size_t kHeader = 14, kChunkHead = 8;
constexpr int kLatestTime = 0x7FFFFFFF;
constexpr uint8_t kMeta = 0xFF, kExclusive = 0xF0, kEscape = 0xF7;

bool HasTag(MidiBytes bytes, const char* tag) { return std::memcmp(bytes.data(), tag, 4) == 0; }

Status Unsupported(int format) {
    return {Fault::Unsupported, "Can't import MIDI Files type " + std::to_string(format)};
}

Status ReadTracks(MidiBytes bytes, size_t count, MidiFile& file) {
    while (file.tracks.size() < count && bytes.size() >= kChunkHead) {
        if (!HasTag(bytes, "MTrk")) return InvalidMidiFile();
        const size_t length = ReadBig32(&bytes[4]);
        bytes = bytes.subspan(kChunkHead);
        file.tracks.push_back(bytes.first(std::min(length, bytes.size())));
        bytes = bytes.subspan(file.tracks.back().size());
    }
    return file.tracks.empty() ? InvalidMidiFile() : Status::Ok();
}

}  // namespace

Status ReadMidiFile(MidiBytes bytes, MidiFile& file) {
    if (bytes.size() < kHeader || !HasTag(bytes, "MThd") || bytes[7] != 6) return InvalidMidiFile();
    const int format = ReadBig16(&bytes[8]);
    if (format > 2) return InvalidMidiFile();
    if (format != 1) return Unsupported(format);
    file.ticksPerQuarter = ReadBig16(&bytes[12]);
    if (file.ticksPerQuarter == 0) return InvalidMidiFile();
    return ReadTracks(bytes.subspan(kHeader), ReadBig16(&bytes[10]), file);
}

bool MidiTrackReader::Next(MidiEvent& event) {
    while (_at < _bytes.size()) {
        uint32_t delta = 0;
        uint8_t status = 0;
        if (!Variable(delta) || !Byte(status)) return false;
        if (delta > static_cast<uint32_t>(kLatestTime - _time)) return Damage();
        _time += static_cast<int32_t>(delta);
        event.time = _time;
        if (status < 0x80) {
            --_at;
            status = _running;
        }
        if (status == kExclusive || status == kEscape) {
            MidiBytes passed;
            if (!Take(passed)) return false;
            continue;
        }
        return ReadEvent(event, status);
    }
    return false;
}

bool MidiTrackReader::ReadEvent(MidiEvent& event, uint8_t status) {
    event.status = status;
    if (status == kMeta) return ReadMeta(event);
    if (status < 0x80 || status >= kExclusive) return Damage();
    _running = status;  // stands across meta events too: some files count on it
    const bool isShort = (status & 0xE0) == 0xC0;
    event.data2 = 0;
    return Data(event.data1) && (isShort || Data(event.data2));
}

bool MidiTrackReader::ReadMeta(MidiEvent& event) {
    uint8_t kind = 0;
    if (!Byte(kind)) return false;
    event.kind = static_cast<MetaKind>(kind);
    if (event.kind == MetaKind::EndOfTrack) {
        _at = _bytes.size();
        return false;
    }
    return Take(event.data);
}

// A track that is cut off ends there.
bool MidiTrackReader::Byte(uint8_t& byte) {
    if (_at == _bytes.size()) return false;
    byte = _bytes[_at++];
    return true;
}

bool MidiTrackReader::Data(uint8_t& byte) {
    if (!Byte(byte)) return false;
    return byte < 0x80 || Damage();
}

bool MidiTrackReader::Variable(uint32_t& value) {
    value = 0;
    for (int i = 0; i < 4; ++i) {
        uint8_t byte = 0;
        if (!Byte(byte)) return false;
        value = value << 7 | (byte & 0x7F);
        if (byte < 0x80) return true;
    }
    return Damage();
}

bool MidiTrackReader::Take(MidiBytes& data) {
    uint32_t length = 0;
    if (!Variable(length)) return false;
    data = _bytes.subspan(_at, std::min<size_t>(length, _bytes.size() - _at));
    _at += data.size();
    return true;
}

}  // namespace corvane
