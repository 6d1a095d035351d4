// The bytes of a pool's blocks as they lay in the memory of a program that is gone, and the way back into a
// pool.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace corvane {

class NewMemoryPool;

struct PoolImage {
    struct Block {
        uint32_t distance;           // of its first byte from the start of the stored space as it was
        std::vector<uint8_t> bytes;  // without the trailer
    };
    uint32_t usable = 0;        // bytes of each block
    uint32_t document = 0;      // distance of the Document
    std::vector<Block> blocks;  // in the pool's order
};

// A pool with the same objects, its pointers led to where they lie now, its graph proven but for objects that
// nothing reaches; holes are not found again, so it serves to be encoded. Null for an image that is not
// sound. It is nobody's current pool. Linear.
std::unique_ptr<NewMemoryPool> RestorePool(const PoolImage& image);

}  // namespace corvane
