// The write barrier and the one step of undo of a pool.
#include <algorithm>
#include <utility>

#include "base/Assert.h"
#include "base/StoredSpace.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

template <class Visit>
void ForEachHoleSize(const BlockTrailer& trailer, Visit visit) {
    for (uint32_t at = trailer.firstHole.Get(); at;) {
        const auto* hole = StoredSpace::At<const Hole>(at);
        visit(hole->size.Get());
        at = hole->next.Get();
    }
}

bool IsEmptyBlock(const PoolBlock& block) {
    const int16_t word = WordAt(block.start);
    return word == kHoleWord && reinterpret_cast<const Hole*>(block.start)->size.Get() == block.Usable();
}

}  // namespace

void NewMemoryPool::Touch(const void* place) {
    if (!_recording || !_undoEnabled) return;
    PoolBlock* block = Find(place);
    CORVANE_ASSERT_AS(block, "block");
    if (!block->Trailer().touched) Snapshot(*block);
}

void NewMemoryPool::Snapshot(PoolBlock& block) {
    BlockTrailer& trailer = block.Trailer();
    uint8_t* copy = StoredSpace::Allocate(block.size, nullptr);
    CORVANE_ASSERT_AS(copy, "undoSnapshot");
    std::memcpy(copy, block.start, block.size - kSnapshotGap);
    trailer.undoSnapshot.Put(StoredSpace::DistanceOf(copy));
    trailer.touched = 1;
}

void NewMemoryPool::FreeSnapshot(PoolBlock& block) {
    BlockTrailer& trailer = block.Trailer();
    if (auto* copy = StoredSpace::At<uint8_t>(trailer.undoSnapshot.Get())) StoredSpace::Free(copy, block.size);
    trailer.undoSnapshot.Put(0);
    trailer.touched = 0;
}

void NewMemoryPool::BeginCommand() {
    _recording = _modified = true;
    bool dropped = false;
    for (size_t i = _blocks.size(); i-- > 0;) {
        PoolBlock& block = *_blocks[i];
        if (block.Trailer().touched || block.Trailer().undoSnapshot.Get()) FreeSnapshot(block);
        block.Trailer().added = 0;
        if (!block.Trailer().released) continue;
        block.place = static_cast<uint32_t>(i);
        DropBlock(&block);
        dropped = true;
    }
    if (dropped) Renumber();
}

// Adds a block's bytes to the counters or takes them off.
void NewMemoryPool::Account(const PoolBlock& block, int sign) {
    if (block.Trailer().released) return;
    _total += static_cast<uint64_t>(sign * int64_t{block.Usable()});
    ForEachHoleSize(block.Trailer(), [&](uint32_t size) { _free += static_cast<uint64_t>(sign * int64_t{size}); });
}

void NewMemoryPool::Exchange(bool redo) {
    _modified = true;
    for (auto& block : _blocks) {
        BlockTrailer& trailer = block->Trailer();
        if (!trailer.touched) continue;
        auto* copy = StoredSpace::At<uint8_t>(trailer.undoSnapshot.Get());
        CORVANE_ASSERT_AS(copy, "undoSnapshot");
        Account(*block, -1);
        std::swap_ranges(block->start, block->start + block->size - kSnapshotGap, copy);
        if (trailer.added && !trailer.released) trailer.released = 1;
        else if (redo ? trailer.added && trailer.released : trailer.released && !trailer.added) {
            trailer.released = 0;
            trailer.added = redo ? trailer.added : 1;
        }
        if (!IsEmptyBlock(*block)) trailer.released = 0;
        Account(*block, +1);
        uint32_t largest = 0;
        ForEachHoleSize(trailer, [&](uint32_t size) { largest = std::max(largest, size); });
        SetBound(*block, largest);
    }
}

}  // namespace corvane
