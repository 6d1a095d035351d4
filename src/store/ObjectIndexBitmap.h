// Object numbers of a pool: from 1, in address order, beginning at the block of the Document. A bit for every
// granule and a running count, so that an address finds its object in constant time. Valid while nothing is
// allocated.
#pragma once

#include <bit>
#include <cstdint>
#include <vector>

#include "store/PoolBlock.h"

namespace corvane {

class ObjectIndexBitmap {
public:
    // The pool's words must be sound.
    explicit ObjectIndexBitmap(const NewMemoryPool& pool);

    struct Object {
        uint8_t* start = nullptr;  // behind its word; null where no object holds the address
        uint32_t bit = 0;          // of its granule, over all blocks: a key below BitCount()
    };
    // The object that holds a place of the pool.
    Object Find(const void* place) const;
    uint32_t NumberOf(Object object) const;
    uint32_t Count() const { return _count; }
    size_t BitCount() const { return _records.size() * 64; }

    // Calls visit(object) for each in the order of the numbers.
    template <class Visit>
    void ForEach(Visit visit) const {
        for (size_t i = 0; i < _records.size(); ++i) {
            const PoolBlock& block = *_order[i / _recordsPerBlock];
            for (uint64_t bits = _records[i].bits; bits; bits &= bits - 1) {
                const auto bit =
                    static_cast<uint32_t>(i * 64) + static_cast<uint32_t>(std::countr_zero(bits));
                visit(ObjectAt(block, bit));
            }
        }
    }

private:
    struct Record {
        uint64_t bits = 0;    // an object's word stands at this granule
        uint32_t before = 0;  // objects in the records before this one
    };
    void Mark(const PoolBlock& block, Record* records);
    Object ObjectAt(const PoolBlock& block, uint32_t bit) const {
        return {block.start + bit % (_recordsPerBlock * 64) * kGranule + kWordSize, bit};
    }

    const NewMemoryPool& _pool;
    std::vector<const PoolBlock*> _order;  // from the Document's block along the ring; released ones left out
    std::vector<uint32_t> _placeInOrder;   // by the block's place in the pool
    std::vector<Record> _records;
    uint32_t _recordsPerBlock = 0, _count = 0;
};

}  // namespace corvane
