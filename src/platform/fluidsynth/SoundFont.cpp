#include "platform/fluidsynth/SoundFont.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

namespace corvane {
namespace {

constexpr const char* kKnown[] = {
    "/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf3/default-GM.sf3",
    "/usr/share/sounds/sf2/FluidR3_GM.sf2", "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/soundfonts/default.sf2",    "/usr/share/soundfonts/FluidR3_GM.sf2",
};

constexpr const char* kFolders[] = {
    "/usr/share/sounds/sf2",
    "/usr/share/soundfonts",
    "/usr/local/share/sounds/sf2",
    "/usr/share/sounds/sf3",
};

bool IsSoundFont(const std::string& path) {
    char head[12] = {};
    std::ifstream(path, std::ios::binary).read(head, sizeof head);
    return std::memcmp(head, "RIFF", 4) == 0 && std::memcmp(head + 8, "sfbk", 4) == 0;
}

// The first by name, so that the same machine always sounds the same.
std::string FirstIn(const char* folder) {
    std::vector<std::string> fonts;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const auto extension = entry.path().extension();
        if ((extension == ".sf2" || extension == ".sf3") && IsSoundFont(entry.path().string()))
            fonts.push_back(entry.path().string());
    }
    const auto first = std::min_element(fonts.begin(), fonts.end());
    return first == fonts.end() ? std::string() : *first;
}

}  // namespace

std::string FindSoundFont() {
    if (const char* wanted = std::getenv("CORVANE_SOUNDFONT"))
        if (IsSoundFont(wanted)) return wanted;
    for (const char* path : kKnown)
        if (IsSoundFont(path)) return path;
    for (const char* folder : kFolders)
        if (std::string font = FirstIn(folder); !font.empty()) return font;
    return {};
}

}  // namespace corvane
