// Numbers as files hold them: most significant byte first, at any address.
#pragma once

#include <cstddef>
#include <cstdint>

namespace corvane {

constexpr uint16_t ReadBig16(const uint8_t* p) { return static_cast<uint16_t>(p[0] << 8 | p[1]); }
constexpr uint32_t ReadBig32(const uint8_t* p) {
    return uint32_t{p[0]} << 24 | uint32_t{p[1]} << 16 | uint32_t{p[2]} << 8 | p[3];
}
constexpr void WriteBig16(uint8_t* p, uint16_t v) {
    p[0] = static_cast<uint8_t>(v >> 8);
    p[1] = static_cast<uint8_t>(v);
}
constexpr void WriteBig32(uint8_t* p, uint32_t v) {
    p[0] = static_cast<uint8_t>(v >> 24);
    p[1] = static_cast<uint8_t>(v >> 16);
    p[2] = static_cast<uint8_t>(v >> 8);
    p[3] = static_cast<uint8_t>(v);
}

// Turns the byte order of a field of 2 or 4 bytes around, in place.
constexpr void ReverseBytes(uint8_t* p, size_t width) {
    for (size_t i = 0, j = width - 1; i < j; ++i, --j) {
        const uint8_t t = p[i];
        p[i] = p[j];
        p[j] = t;
    }
}

}  // namespace corvane
