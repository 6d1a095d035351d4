// Object numbers of a pool: from 1, in address order, beginning at the block of the Document. A bit for every
// granule and a running count, so that an address finds its object in constant time. Valid while nothing is
// allocated.
#pragma once

#include <bit>
#include <cstdint>
#include <span>
#include <vector>

#include "base/StoredSpace.h"
#include "store/PoolBlock.h"

namespace corvane {

class ObjectIndexBitmap {
public:
    // The pool's words must be sound.
    explicit ObjectIndexBitmap(const NewMemoryPool& pool);
    // The same without a look at the pool's bytes, for who knows where all its objects stand: `starts` are
    // their distances in the stored space.
    ObjectIndexBitmap(const NewMemoryPool& pool, std::span<const uint32_t> starts);
    ObjectIndexBitmap(const ObjectIndexBitmap&) = delete;

    struct Object {
        uint8_t* start = nullptr;  // behind its word; null where no object holds the address
        uint32_t bit = 0;          // of its granule, over all blocks: a key below BitCount()
    };
    // The object that holds a place of the pool.
    Object Find(const void* place) const {
        const size_t page =
            static_cast<size_t>(static_cast<const uint8_t*>(place) - _firstPage) / StoredSpace::kPage;
        if (page >= _blockOfPage.size() || _blockOfPage[page] == kNoBlock) return {};
        const uint32_t order = _blockOfPage[page];
        const auto at = static_cast<uint32_t>(static_cast<const uint8_t*>(place) - _order[order]->start);
        return at >= kWordSize && at < _usable ? FindInBlock(order, (at - kWordSize) / kGranule) : Object{};
    }
    uint32_t NumberOf(Object object) const;
    uint32_t Count() const { return _count; }
    size_t BitCount() const { return _records.size() * 64; }

    // Calls visit(object) for each in the order of the numbers.
    template <class Visit>
    void ForEach(Visit visit) const {
        for (uint32_t order = 0; order < _order.size(); ++order) {
            const size_t first = size_t{order} * _recordsPerBlock;
            for (size_t i = first; i < first + _recordsPerBlock; ++i)
                for (uint64_t bits = _records[i].bits; bits; bits &= bits - 1)
                    visit(ObjectAt(order, i * 64 + static_cast<size_t>(std::countr_zero(bits))));
        }
    }

private:
    struct Record {
        uint64_t bits = 0;    // an object's word stands at this granule
        uint32_t before = 0;  // objects in the records before this one
    };
    static constexpr uint32_t kNoBlock = 0xFFFFFFFF;

    void OrderBlocks(const NewMemoryPool& pool);
    void Mark(const PoolBlock& block, Record* records);
    void Number();
    // The object at the granule or the nearest one before it.
    Object FindInBlock(uint32_t order, uint32_t granule) const {
        const size_t first = size_t{order} * _recordsPerBlock;
        size_t i = first + granule / 64;
        uint64_t bits = _records[i].bits << (63 - granule % 64) >> (63 - granule % 64);
        while (!bits) {
            if (i == first) return {};
            bits = _records[--i].bits;
        }
        return ObjectAt(order, i * 64 + 63 - static_cast<size_t>(std::countl_zero(bits)));
    }
    Object ObjectAt(uint32_t order, size_t bit) const {
        const size_t granule = bit - size_t{order} * _recordsPerBlock * 64;
        return {_order[order]->start + granule * kGranule + kWordSize, static_cast<uint32_t>(bit)};
    }

    std::vector<const PoolBlock*> _order;  // from the Document's block along the ring; released ones left out
    const uint8_t* _firstPage = nullptr;   // of the block with the lowest address
    std::vector<uint32_t> _blockOfPage;    // places in _order
    std::vector<Record> _records;
    const uint32_t _usable, _recordsPerBlock;
    uint32_t _count = 0;
};

}  // namespace corvane
