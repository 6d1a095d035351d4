#include "store/ObjectIndexBitmap.h"

#include <algorithm>

#include "base/Assert.h"
#include "store/ClassSpans.h"
#include "store/NewMemoryPool.h"

namespace corvane {

ObjectIndexBitmap::ObjectIndexBitmap(const NewMemoryPool& pool)
    : _usable(pool.NewPoolSize() - kTrailerSize), _recordsPerBlock(_usable / kGranule / 64 + 1) {
    OrderBlocks(pool);
    for (size_t i = 0; i < _order.size(); ++i) Mark(*_order[i], &_records[i * _recordsPerBlock]);
    Number();
}

ObjectIndexBitmap::ObjectIndexBitmap(const NewMemoryPool& pool, std::span<const uint32_t> starts)
    : _usable(pool.NewPoolSize() - kTrailerSize), _recordsPerBlock(_usable / kGranule / 64 + 1) {
    OrderBlocks(pool);
    for (const uint32_t start : starts) {
        const auto* place = StoredSpace::At<const uint8_t>(start) - kWordSize;
        const uint32_t order = _blockOfPage[static_cast<size_t>(place - _firstPage) / StoredSpace::kPage];
        const auto granule = static_cast<uint32_t>(place - _order[order]->start) / kGranule;
        _records[size_t{order} * _recordsPerBlock + granule / 64].bits |= uint64_t{1} << granule % 64;
    }
    Number();
}

void ObjectIndexBitmap::Number() {
    for (Record& record : _records) {
        record.before = _count;
        _count += static_cast<uint32_t>(std::popcount(record.bits));
    }
}

void ObjectIndexBitmap::OrderBlocks(const NewMemoryPool& pool) {
    const uint32_t n = pool.BlockCount();
    if (n == 0) return;
    const PoolBlock* document = pool.BlockOf(pool.DocumentObject());
    // Blocks begin on pages: no page belongs to two.
    _firstPage = pool.Block(0).start;
    const auto span = static_cast<size_t>(pool.Block(n - 1).End() - _firstPage);
    _blockOfPage.assign(span / StoredSpace::kPage + 1, kNoBlock);
    for (uint32_t i = 0; i < n; ++i) {
        const PoolBlock& block = pool.Block((i + (document ? document->place : 0)) % n);
        if (block.Trailer().released) continue;
        const auto page = (block.start - _firstPage) / StoredSpace::kPage;
        std::fill_n(_blockOfPage.begin() + page, _usable / StoredSpace::kPage + 1,
                    static_cast<uint32_t>(_order.size()));
        _order.push_back(&block);
    }
    _records.resize(_order.size() * _recordsPerBlock);
}

void ObjectIndexBitmap::Mark(const PoolBlock& block, Record* records) {
    for (uint32_t at = 0; at < _usable;) {
        const uint8_t* place = block.start + at;
        const int16_t word = WordAt(place);
        if (word == kHoleWord) {
            const uint32_t objDim = reinterpret_cast<const Hole*>(place)->size.Get();
            CORVANE_ASSERT_AS(objDim && !(objDim % kGranule), "!(objDim%10)");
            at += objDim;
        } else if (word == 0) {
            at += kGranule;
        } else {
            const uint32_t span = ClassSpans::OfWord(word);
            CORVANE_ASSERT_AS(span && !(span % kGranule), "!((objDim+2)%10)");
            records[at / kGranule / 64].bits |= uint64_t{1} << at / kGranule % 64;
            at += span;
        }
    }
}

uint32_t ObjectIndexBitmap::NumberOf(Object object) const {
    const Record& record = _records[object.bit / 64];
    const uint64_t upTo = record.bits << (63 - object.bit % 64);
    return record.before + static_cast<uint32_t>(std::popcount(upTo));
}

}  // namespace corvane
