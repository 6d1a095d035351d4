// The write barrier and the one step of undo of a pool.
#include <algorithm>
#include <utility>

#include "base/Assert.h"
#include "base/StoredSpace.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

constexpr size_t kSpareSnapshots = 16;

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
    if (!_recording || !_undoEnabled) {
        _unrecorded = true;
        return;
    }
    PoolBlock* block = Find(place);
    CORVANE_ASSERT_AS(block, "block");
    if (!block->Trailer().touched) Snapshot(*block);
}

void NewMemoryPool::Snapshot(PoolBlock& block) {
    BlockTrailer& trailer = block.Trailer();
    uint8_t* copy = nullptr;
    if (_spareSnapshots.empty()) {
        copy = StoredSpace::Allocate(block.size, nullptr);
    } else {
        copy = _spareSnapshots.back();
        _spareSnapshots.pop_back();
    }
    CORVANE_ASSERT_AS(copy, "undoSnapshot");
    std::memcpy(copy, block.start, block.size - kSnapshotGap);
    trailer.undoSnapshot.Put(StoredSpace::DistanceOf(copy));
    trailer.touched = 1;
    block.change = ++_changes;
    Note(block);
}

void NewMemoryPool::FreeSnapshot(PoolBlock& block) {
    BlockTrailer& trailer = block.Trailer();
    if (auto* copy = StoredSpace::At<uint8_t>(trailer.undoSnapshot.Get())) {
        if (_spareSnapshots.size() < kSpareSnapshots)
            _spareSnapshots.push_back(copy);
        else
            StoredSpace::Free(copy, block.size);
    }
    trailer.undoSnapshot.Put(0);
    trailer.touched = 0;
}

void NewMemoryPool::BeginCommand() {
    _recording = _modified = true;
    bool dropped = false;
    for (PoolBlock* block : _changed) {
        FreeSnapshot(*block);
        block->Trailer().added = 0;
        block->noted = false;
        dropped |= block->Trailer().released;
    }
    _changed.clear();
    if (dropped) DropReleased();
}

// Gives back the memory of the blocks that nothing can bring back.
void NewMemoryPool::DropReleased() {
    const auto released = [](const auto& block) {
        if (!block->Trailer().released) return false;
        StoredSpace::Free(block->start, block->size);
        return true;
    };
    _blocks.erase(std::remove_if(_blocks.begin(), _blocks.end(), released), _blocks.end());
    Renumber();
}

// Adds a block's bytes to the counters or takes them off.
void NewMemoryPool::Account(const PoolBlock& block, int sign) {
    if (block.Trailer().released) return;
    _total += static_cast<uint64_t>(sign * int64_t{block.Usable()});
    ForEachHoleSize(block.Trailer(),
                    [&](uint32_t size) { _free += static_cast<uint64_t>(sign * int64_t{size}); });
}

void NewMemoryPool::Exchange(bool redo) {
    _modified = true;
    for (PoolBlock* block : _changed) {
        BlockTrailer& trailer = block->Trailer();
        if (!trailer.touched) continue;
        auto* copy = StoredSpace::At<uint8_t>(trailer.undoSnapshot.Get());
        CORVANE_ASSERT_AS(copy, "undoSnapshot");
        block->change = ++_changes;
        Account(*block, -1);
        std::swap_ranges(block->start, block->start + block->size - kSnapshotGap, copy);
        if (trailer.added && !trailer.released)
            trailer.released = 1;
        else if (redo ? trailer.added && trailer.released : trailer.released && !trailer.added) {
            trailer.released = 0;
            trailer.added = redo ? trailer.added : 1;
        }
        // The contents have the last word: a block that holds an object takes part, one that was emptied does
        // not, also where the same command had added it.
        if (!IsEmptyBlock(*block))
            trailer.released = 0;
        else if (!trailer.firstHole.Get())
            trailer.released = 1;
        Account(*block, +1);
        uint32_t largest = 0;
        ForEachHoleSize(trailer, [&](uint32_t size) { largest = std::max(largest, size); });
        SetBound(*block, largest);
    }
}

}  // namespace corvane
