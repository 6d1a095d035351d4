// The colours that tell voices apart on screen.
#pragma once

#include <array>
#include <cstdint>

namespace corvane {

// Colour words have red in the low byte.
struct VoiceColouring {
    bool coloured = false;              // each voice in its own colour
    std::array<uint32_t, 8> colours{};  // of voices 1 to 8
};

// Of the voices that are not edited, and of what is hidden but shown.
inline constexpr uint32_t kGrey = 0x50 | 0x68 << 8 | 0x70 << 16;

// Of an object of some voice, 0 for none, while another (0 for all) is edited.
inline uint32_t ColourOfVoice(const VoiceColouring& colouring, int voice, int edited) {
    if (colouring.coloured)
        return voice >= 1 && voice <= 8 ? colouring.colours[static_cast<size_t>(voice - 1)] : 0;
    return voice != 0 && edited != 0 && voice != edited ? kGrey : 0;
}

}  // namespace corvane
