// The write barrier and undo: the last step in the blocks themselves, further ones in the history.
#include <algorithm>
#include <bit>
#include <utility>

#include "base/Assert.h"
#include "base/StoredSpace.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

// As many as a paste of a measure touches: what it makes goes to the tails of ever so many blocks of a large
// score, and fresh memory for each copy would be half of its cost.
constexpr size_t kSpareSnapshots = 64;

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

void NewMemoryPool::Touch(const void* place, size_t bytes) {
    const bool recorded = _recording && _undoEnabled;
    if (!recorded) {
        _unrecorded = true;
        if (_changed.empty()) return;
    }
    PoolBlock* block = Find(place);
    CORVANE_ASSERT_AS(block || !recorded, "block");
    if (!block) return;
    if (!block->Trailer().touched) {
        if (!recorded) return;
        StartSnapshot(*block);
    }
    const auto from = static_cast<size_t>(static_cast<const uint8_t*>(place) - block->start);
    const uint64_t pages = PagesOf(from, from + bytes);
    if (pages & ~block->kept) Keep(*block, pages & ~block->kept);
}

// A bit for each page that holds one of these bytes of a block.
uint64_t NewMemoryPool::PagesOf(size_t from, size_t end) const {
    const size_t first = from >> _pageShift, last = (end - 1) >> _pageShift;
    return (~uint64_t{0} >> (kMostPages - 1 - last)) & (~uint64_t{0} << first);
}

// Visits the bytes of a block that these pages hold, as from and end, neighbouring pages at once.
template <class Visit>
void NewMemoryPool::ForEachRun(const PoolBlock& block, uint64_t pages, Visit visit) const {
    while (pages) {
        const auto first = static_cast<size_t>(std::countr_zero(pages));
        const auto count = static_cast<size_t>(std::countr_one(pages >> first));
        visit(first << _pageShift,
              std::min((first + count) << _pageShift, size_t{block.size - kSnapshotGap}));
        pages &= first + count < kMostPages ? ~uint64_t{0} << (first + count) : 0;
    }
}

void NewMemoryPool::Keep(PoolBlock& block, uint64_t pages) {
    auto* copy = StoredSpace::At<uint8_t>(block.Trailer().undoSnapshot.Get());
    ForEachRun(block, pages,
               [&](size_t from, size_t end) { std::memcpy(copy + from, block.start + from, end - from); });
    block.kept |= pages;
}

void NewMemoryPool::StartSnapshot(PoolBlock& block) {
    BlockTrailer& trailer = block.Trailer();
    uint8_t* copy = nullptr;
    if (_spareSnapshots.empty()) {
        copy = StoredSpace::Allocate(block.size, nullptr);
    } else {
        copy = _spareSnapshots.back();
        _spareSnapshots.pop_back();
    }
    CORVANE_ASSERT_AS(copy, "undoSnapshot");
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
    block.kept = 0;
}

void NewMemoryPool::BeginCommand() {
    _recording = _modified = true;
    EndLastStep();
    _memo = {};
}

// What the blocks hold of the last command goes, or becomes the history's. Blocks that nothing can bring back
// are given back.
void NewMemoryPool::EndLastStep() {
    if (_stale)
        _history.Clear();
    else if (_history.IsKeeping() && !_undone && !_changed.empty())
        _history.PushDone(TakeStep());
    _history.DropUndone();
    bool dropped = _heldReleased;
    for (PoolBlock* block : _changed) {
        LetGo(*block);
        dropped |= block->Trailer().released != 0;
    }
    _changed.clear();
    _undone = _stale = false;
    if (dropped) DropReleased();
}

void NewMemoryPool::LetGo(PoolBlock& block) {
    FreeSnapshot(block);
    block.Trailer().added = 0;
    block.noted = false;
}

void NewMemoryPool::DropReleased() {
    _heldReleased = false;
    const auto isGone = [this](const auto& block) {
        if (!block->Trailer().released) return false;
        if (_history.Needs(block.get())) {
            _heldReleased = true;
            return false;
        }
        StoredSpace::Free(block->start, block->size);
        return true;
    };
    _blocks.erase(std::remove_if(_blocks.begin(), _blocks.end(), isGone), _blocks.end());
    Renumber();
}

// ---- further steps

UndoStep NewMemoryPool::TakeStep() {
    UndoStep step{_memo, {}};
    for (PoolBlock* block : _changed) {
        const BlockTrailer& trailer = block->Trailer();
        UndoStep::Part part{block, block->kept, trailer.touched != 0, trailer.added != 0, {}};
        const auto* copy = StoredSpace::At<uint8_t>(trailer.undoSnapshot.Get());
        ForEachRun(*block, block->kept, [&](size_t from, size_t end) {
            part.bytes.insert(part.bytes.end(), copy + from, copy + end);
        });
        _heldReleased |= trailer.released != 0;
        step.parts.push_back(std::move(part));
        LetGo(*block);
    }
    _changed.clear();
    return step;
}

void NewMemoryPool::PutStep(const UndoStep& step) {
    for (const UndoStep::Part& part : step.parts) {
        PoolBlock& block = *part.block;
        Note(block);
        block.Trailer().added = part.added;
        if (!part.touched) continue;
        StartSnapshot(block);
        auto* copy = StoredSpace::At<uint8_t>(block.Trailer().undoSnapshot.Get());
        const uint8_t* bytes = part.bytes.data();
        ForEachRun(block, part.kept, [&](size_t from, size_t end) {
            std::memcpy(copy + from, bytes, end - from);
            bytes += end - from;
        });
        block.kept = part.kept;
    }
    _memo = step.memo;
}

bool NewMemoryPool::StepBack() {
    if (!HasOlderStep()) return false;
    if (UndoStep step = TakeStep(); !step.parts.empty()) _history.PushUndone(std::move(step));
    PutStep(_history.PopDone());
    _undone = false;
    return true;
}

bool NewMemoryPool::StepOn() {
    if (!HasNewerStep()) return false;
    _history.PushDone(TakeStep());
    PutStep(_history.PopUndone());
    _undone = true;
    return true;
}

void NewMemoryPool::ForgetSteps() {
    _history.Clear();
    _stale = true;
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
    _undone = !_undone;
    for (PoolBlock* block : _changed) {
        BlockTrailer& trailer = block->Trailer();
        if (!trailer.touched) continue;
        auto* copy = StoredSpace::At<uint8_t>(trailer.undoSnapshot.Get());
        CORVANE_ASSERT_AS(copy, "undoSnapshot");
        block->change = ++_changes;
        Account(*block, -1);
        ForEachRun(*block, block->kept, [&](size_t from, size_t end) {
            std::swap_ranges(block->start + from, block->start + end, copy + from);
        });
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
