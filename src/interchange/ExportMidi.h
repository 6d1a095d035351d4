// A score as a MIDI file of format 1: a conductor track, then a track for each voice that sounds on a staff.
// Measures come in written order, without repeats, endings, count-off and click; mute and solo do not count.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Status.h"
#include "model/Relations.h"

namespace corvane {

class FileLayer;

inline constexpr int kMidiTicksPerQuarter = 240;
// Notes begin this long behind the meters and tempos of the conductor.
inline constexpr int kMidiLeadTicks = 120;

// The same bytes for the same score. Only reads the score.
std::vector<uint8_t> ExportMidi(const Document* document);
// To a file that is replaced as a whole.
Status ExportMidi(FileLayer& files, const Document* document, const std::string& path);

}  // namespace corvane
