// One block of a pool: its bytes with the trailer at their end, and what is known of it beside them.
#pragma once

#include "store/ObjectHeader.h"
#include "store/Packed.h"

namespace corvane {

class NewMemoryPool;

// The last 40 bytes of a block. Links are distances in the stored space.
struct BlockTrailer {
    Packed2<int16_t> word;  // kTrailerWord
    Packed2<int16_t> unused2;
    Packed2<uint32_t> firstHole;
    uint8_t unused8[12];
    Packed2<uint32_t> next, prev;  // trailers; a ring in ascending address order
    uint8_t unused28[4];
    Packed2<uint32_t> undoSnapshot;  // as the block before the command, in its kept pages
    uint8_t touched;                 // in the current command
    uint8_t added;                   // in the current command
    uint8_t released;                // wholly free: takes no part in the score
    uint8_t unused39;
};
static_assert(sizeof(BlockTrailer) == kTrailerSize);

// A hole: its word, the next hole of its block, its size in bytes with the word.
struct Hole {
    Packed2<int16_t> word;
    Packed2<uint32_t> next;
    Packed2<uint32_t> size;
};
static_assert(sizeof(Hole) == kGranule);

struct PoolBlock {
    NewMemoryPool* pool = nullptr;
    uint8_t* start = nullptr;
    uint32_t size = 0;         // trailer included
    uint32_t largestHole = 0;  // never less than the largest hole; more until a search finds out
    uint32_t place = 0;        // among the pool's blocks, by address
    uint64_t change = 0;       // of the pool's changes, the last that it saw
    uint64_t kept = 0;         // a bit for each page that stands in the snapshot
    bool noted = false;        // among the blocks that the command has changed

    BlockTrailer& Trailer() const { return *reinterpret_cast<BlockTrailer*>(start + size - kTrailerSize); }
    uint32_t Usable() const { return size - kTrailerSize; }
    uint8_t* End() const { return start + Usable(); }
    bool Holds(const void* p) const {
        return static_cast<const uint8_t*>(p) >= start && static_cast<const uint8_t*>(p) < End();
    }
};

}  // namespace corvane
