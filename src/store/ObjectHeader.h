// Words, sizes and the arithmetic of places in a pool block. DO NOT CHANGE: files rest on these numbers.
//
// The unit of a block is the granule of 10 bytes. An object, a hole or a raw block starts on a granule with a
// 16-bit word that tells what it is; an object's first byte stands behind its word.
#pragma once

#include <cstdint>
#include <cstring>

namespace corvane {

inline constexpr uint32_t kGranule = 10;
inline constexpr uint32_t kWordSize = 2;
inline constexpr int16_t kHoleWord = 32000;
inline constexpr int16_t kTrailerWord = 32001;
inline constexpr int32_t kLargestObject = 31999;  // bytes of a typed object
inline constexpr int32_t kLargestRaw = 31989;     // bytes of a raw block
inline constexpr uint32_t kTrailerSize = 40;
inline constexpr uint32_t kSnapshotGap = 28;  // the last bytes of a block that snapshots leave out
inline constexpr uint32_t kDefaultPoolSize = 150040;

inline int16_t WordAt(const uint8_t* place) {
    int16_t word;
    std::memcpy(&word, place, sizeof word);
    return word;
}
inline void PutWord(uint8_t* place, int16_t word) { std::memcpy(place, &word, sizeof word); }

// Bytes that a typed object of `size` bytes takes, its word included.
constexpr uint32_t TypedSpan(uint32_t size) { return (size + 11) - (size + 11) % kGranule; }
// Usable bytes of a typed object of `size` bytes, called objDim.
constexpr uint32_t ObjDim(uint32_t size) { return TypedSpan(size) - kWordSize; }
// Bytes that a raw request takes, its word included.
constexpr uint32_t RawSpan(uint32_t request) { return (request + 21) - (request + 21) % kGranule; }
constexpr int16_t RawWord(uint32_t span) { return static_cast<int16_t>(12 - static_cast<int32_t>(span)); }
constexpr uint32_t RawSpanOfWord(int16_t word) { return static_cast<uint32_t>(12 - word); }
// Whether a word can stand before a raw block: -8, -18, -28 and so on.
constexpr bool IsRawWord(int16_t word) { return word < 0 && word >= 12 - 32010 && (12 - word) % 10 == 0; }

}  // namespace corvane
