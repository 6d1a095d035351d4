// Which file serves a font, so that measuring and painting use the same outlines. Main thread only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

struct FontFile {
    std::string path;      // empty: nothing serves it
    int32_t index = 0;     // the face within a collection
    bool slanted = false;  // an upright face that is to be slanted by kSlant for italics

    friend bool operator==(const FontFile&, const FontFile&) = default;
    friend bool operator<(const FontFile& a, const FontFile& b) {
        if (a.path != b.path) return a.path < b.path;
        return a.index != b.index ? a.index < b.index : a.slanted < b.slanted;
    }
};

// How far a point one unit above the baseline moves to the right.
inline constexpr double kSlant = 0.2126;

// A music font comes from beside the program, else from the system; any other family from the system, which
// offers its nearest one for a family that it lacks. The same answer for the whole run.
const FontFile& FontFileOf(std::string_view family, uint8_t style);

// A font of the system that has a character which the family's own file lacks.
const FontFile& FontFileFor(char32_t character, std::string_view family, uint8_t style);

// The folder of the music fonts; empty where neither is found beside the program.
const std::string& MusicFontFolder();

// What to tell the person if a music font is nowhere; empty if both are there.
std::string MissingMusicFont();

}  // namespace corvane
