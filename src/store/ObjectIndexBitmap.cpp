#include "store/ObjectIndexBitmap.h"

#include "store/ClassInfo.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

constexpr uint32_t kNotInOrder = 0xFFFFFFFF;

}  // namespace

ObjectIndexBitmap::ObjectIndexBitmap(const NewMemoryPool& pool)
    : _pool(pool),
      _placeInOrder(pool.BlockCount(), kNotInOrder),
      _recordsPerBlock((pool.NewPoolSize() - kTrailerSize) / kGranule / 64 + 1) {
    const PoolBlock* first = pool.BlockOf(pool.DocumentObject());
    for (uint32_t i = 0, n = pool.BlockCount(); i < n; ++i) {
        const PoolBlock& block = pool.Block((i + (first ? first->place : 0)) % n);
        if (block.Trailer().released) continue;
        _placeInOrder[block.place] = static_cast<uint32_t>(_order.size());
        _order.push_back(&block);
    }
    _records.resize(_order.size() * _recordsPerBlock);
    for (size_t i = 0; i < _order.size(); ++i) Mark(*_order[i], &_records[i * _recordsPerBlock]);
    for (Record& record : _records) {
        record.before = _count;
        _count += static_cast<uint32_t>(std::popcount(record.bits));
    }
}

void ObjectIndexBitmap::Mark(const PoolBlock& block, Record* records) {
    for (uint32_t at = 0; at < block.Usable();) {
        const uint8_t* place = block.start + at;
        const int16_t word = WordAt(place);
        if (word == kHoleWord) {
            at += reinterpret_cast<const Hole*>(place)->size.Get();
        } else if (word == 0) {
            at += kGranule;
        } else {
            records[at / kGranule / 64].bits |= uint64_t{1} << at / kGranule % 64;
            at += word < 0 ? RawSpanOfWord(word) : TypedSpan(InfoOf(word)->size);
        }
    }
}

ObjectIndexBitmap::Object ObjectIndexBitmap::Find(const void* place) const {
    const PoolBlock* block = _pool.BlockOf(place);
    if (!block || _placeInOrder[block->place] == kNotInOrder) return {};
    const auto at = static_cast<uint32_t>(static_cast<const uint8_t*>(place) - block->start);
    if (at < kWordSize) return {};
    const uint32_t granule = (at - kWordSize) / kGranule;
    const size_t first = size_t{_placeInOrder[block->place]} * _recordsPerBlock;
    size_t i = first + granule / 64;
    uint64_t bits = _records[i].bits << (63 - granule % 64) >> (63 - granule % 64);
    while (!bits) {
        if (i == first) return {};
        bits = _records[--i].bits;
    }
    return ObjectAt(*block,
                    static_cast<uint32_t>(i * 64) + 63 - static_cast<uint32_t>(std::countl_zero(bits)));
}

uint32_t ObjectIndexBitmap::NumberOf(Object object) const {
    const Record& record = _records[object.bit / 64];
    const uint64_t upTo = record.bits << (63 - object.bit % 64);
    return record.before + static_cast<uint32_t>(std::popcount(upTo));
}

}  // namespace corvane
