// The session's preferences: the blobs under "Settings/TarnPref", read at start-up, defaults of every new
// score.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Status.h"

namespace corvane {

class SettingsStore;

struct SessionPreferences {
    static constexpr int kWordCount = 96;

    std::array<int16_t, kWordCount> words;  // "Preferenze"; DefaultSessionPreferences tells each default
    std::array<float, 8> spacing;           // "Spaziature": whole to 1/128
    std::string staffString;                // "StaffL": a letter a staff, at most 29
    std::array<uint32_t, 8> voiceColours;   // "VoiceCol": 0x00BBGGRR, by voice number less 1
    std::array<std::array<std::string, 128>, 3> soundNames;  // "Timbri": at most 19 bytes each
    std::vector<std::string> fonts;                          // "Font": names of the font list
};

SessionPreferences DefaultSessionPreferences();

// Where any blob is missing or of the wrong size, all are written with their defaults first. The Status tells
// only a store that cannot be written; the preferences are good in any case.
Status ReadSessionPreferences(SettingsStore& store, SessionPreferences& preferences);
// Writes all blobs and commits.
Status WriteSessionPreferences(SettingsStore& store, const SessionPreferences& preferences);

}  // namespace corvane
