#include "interchange/ExportMidi.h"

#include "interchange/ConductorTrack.h"
#include "interchange/MidiBytes.h"
#include "interchange/VoiceTracks.h"
#include "store/FileLayer.h"

namespace corvane {
namespace {

constexpr size_t kMostTracks = 65535;

void Append(std::vector<uint8_t>& bytes, const std::vector<uint8_t>& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

}  // namespace

std::vector<uint8_t> ExportMidi(const Document* document) {
    std::vector<std::vector<uint8_t>> tracks = VoiceTracks(document).Write();
    if (tracks.size() >= kMostTracks) tracks.resize(kMostTracks - 1);
    std::vector<uint8_t> bytes = MidiHeader(static_cast<int>(tracks.size()) + 1, kMidiTicksPerQuarter);
    Append(bytes, ConductorTrack(document));
    for (const std::vector<uint8_t>& track : tracks) Append(bytes, track);
    return bytes;
}

Status ExportMidi(FileLayer& files, const Document* document, const std::string& path) {
    return ReplaceFile(files, path, ExportMidi(document));
}

}  // namespace corvane
