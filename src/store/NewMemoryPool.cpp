#include "store/NewMemoryPool.h"

#include <algorithm>
#include <bit>

#include "base/Assert.h"
#include "base/StoredSpace.h"
#include "store/ClassSpans.h"

namespace corvane {
namespace {

Hole* HoleAt(uint32_t distance) { return StoredSpace::At<Hole>(distance); }

void MakeHole(uint8_t* place, uint32_t size, uint32_t next) {
    auto* hole = reinterpret_cast<Hole*>(place);
    hole->word.Put(kHoleWord);
    hole->next.Put(next);
    hole->size.Put(size);
}

// Visits each hole with the link that leads to it; stops when visit answers true.
template <class Visit>
void ForEachHole(BlockTrailer& trailer, Visit visit) {
    Packed2<uint32_t>* link = &trailer.firstHole;
    while (Hole* hole = HoleAt(link->Get())) {
        CORVANE_ASSERT_AS(hole->size.Get() % kGranule == 0, "!(objDim%10)");
        const uint32_t behind = hole->next.Get();
        if (visit(*hole, *link)) return;
        if (HoleAt(link->Get()) == hole)
            link = &hole->next;
        else
            CORVANE_ASSERT(link->Get() == behind);
    }
}

}  // namespace

NewMemoryPool::NewMemoryPool(uint32_t size) : _newpoolsize(size ? size + kTrailerSize : kDefaultPoolSize) {
    _pageShift = std::bit_width((_newpoolsize - 1) / kMostPages);
    CORVANE_ASSERT_AS(AddBlock(nullptr), "startPointer");
    _blocks.front()->Trailer().added = 0;
}

NewMemoryPool::~NewMemoryPool() {
    for (auto& block : _blocks) {
        FreeSnapshot(*block);
        StoredSpace::Free(block->start, block->size);
    }
    for (uint8_t* spare : _spareSnapshots) StoredSpace::Free(spare, _newpoolsize);
}

// ---- blocks

PoolBlock* NewMemoryPool::AddBlock(const uint8_t* above) {
    auto block = std::make_unique<PoolBlock>();
    block->start = StoredSpace::Allocate(_newpoolsize, block.get(), above);
    if (!block->start) return nullptr;
    block->pool = this;
    block->size = _newpoolsize;
    block->largestHole = block->Usable();
    BlockTrailer& trailer = block->Trailer();
    trailer.word.Put(kTrailerWord);
    trailer.added = 1;
    trailer.firstHole.Put(StoredSpace::DistanceOf(block->start));
    MakeHole(block->start, block->Usable(), 0);
    _total += block->Usable();
    _free += block->Usable();
    block->change = ++_changes;
    PoolBlock* made = block.get();
    Note(*made);
    const auto place = std::upper_bound(_blocks.begin(), _blocks.end(), made->start,
                                        [](const uint8_t* start, const auto& b) { return start < b->start; });
    _blocks.insert(place, std::move(block));
    Renumber();
    return made;
}

// What the next command has to look at.
void NewMemoryPool::Note(PoolBlock& block) {
    if (block.noted) return;
    block.noted = true;
    _changed.push_back(&block);
}

// Ring links, places and the index after the set of blocks has changed.
void NewMemoryPool::Renumber() {
    std::vector<uint32_t> bounds;
    for (size_t i = 0, n = _blocks.size(); i < n; ++i) {
        PoolBlock& block = *_blocks[i];
        block.place = static_cast<uint32_t>(i);
        block.Trailer().next.Put(StoredSpace::DistanceOf(&_blocks[(i + 1) % n]->Trailer()));
        block.Trailer().prev.Put(StoredSpace::DistanceOf(&_blocks[(i + n - 1) % n]->Trailer()));
        bounds.push_back(block.Trailer().released ? 0 : block.largestHole);
    }
    _index.Rebuild(bounds);
}

PoolBlock* NewMemoryPool::Find(const void* address) const {
    auto* block = static_cast<PoolBlock*>(StoredSpace::OwnerOf(address));
    return block && block->pool == this ? block : nullptr;
}

const PoolBlock* NewMemoryPool::BlockOf(const void* address) const {
    const PoolBlock* block = Find(address);
    return block && block->Holds(address) ? block : nullptr;
}

void NewMemoryPool::SetBound(PoolBlock& block, uint32_t bound) {
    block.largestHole = bound;
    _index.Set(block.place, block.Trailer().released ? 0 : bound);
}

// ---- allocation

void* NewMemoryPool::Allocate(int16_t classNumber, int32_t size) {
    if (size < 0 || size > kLargestObject) return nullptr;
    uint8_t* place = TakeSpan(TypedSpan(static_cast<uint32_t>(size)));
    PutWord(place, classNumber);
    return place + kWordSize;
}

void* NewMemoryPool::AllocateRaw(int32_t size) {
    if (size < 0 || size > kLargestRaw) return nullptr;
    const uint32_t span = RawSpan(static_cast<uint32_t>(size));
    uint8_t* place = TakeSpan(span);
    PutWord(place, RawWord(span));
    return place + kWordSize;
}

// First fit: the first hole that is large enough in the first block that has one, or a new block.
uint8_t* NewMemoryPool::TakeSpan(uint32_t span) {
    NoteStructure();
    for (uint32_t i = _index.FirstFrom(0, span); i < _blocks.size(); i = _index.FirstFrom(i + 1, span))
        if (uint8_t* place = TakeFrom(*_blocks[i], span)) return place;
    PoolBlock* block = AddBlock(nullptr);
    CORVANE_ASSERT_AS(block, "startPointer");
    uint8_t* place = TakeFrom(*block, span);
    CORVANE_ASSERT_AS(place, "startPointer");
    return place;
}

// The front of the first hole of the block that is large enough; null, and the bound corrected, if none is.
uint8_t* NewMemoryPool::TakeFrom(PoolBlock& block, uint32_t span) {
    uint8_t* taken = nullptr;
    uint32_t largest = 0;
    ForEachHole(block.Trailer(), [&](Hole& hole, Packed2<uint32_t>& link) {
        const uint32_t size = hole.size.Get();
        largest = std::max(largest, size);
        if (size < span) return false;
        taken = reinterpret_cast<uint8_t*>(&hole);
        const bool split = size >= span + kGranule;
        Touch(taken, split ? span + kGranule : span);
        TouchLink(link);
        uint32_t rest = hole.next.Get();
        if (split) {
            uint8_t* newBuco = taken + span;
            MakeHole(newBuco, size - span, rest);
            rest = StoredSpace::DistanceOf(newBuco);
        }
        link.Put(rest);
        return true;
    });
    if (!taken) {
        SetBound(block, largest);
        return nullptr;
    }
    _free -= span;
    std::memset(taken, 0, span);
    return taken;
}

void NewMemoryPool::Release(void* object) {
    if (!object) return;
    PoolBlock* block = Find(object);
    CORVANE_ASSERT_AS(block && block->Holds(object), "block");
    NoteStructure();
    uint8_t* place = static_cast<uint8_t*>(object) - kWordSize;
    Touch(place, sizeof(Hole));
    const int16_t word = WordAt(place);
    CORVANE_ASSERT(word != 0 && word != kHoleWord && word != kTrailerWord);
    if (word > 0)
        for (const uint16_t offset : InfoOf(word)->pointers) {
            Packed2<uint32_t> pointer;
            std::memcpy(&pointer, place + kWordSize + offset, sizeof pointer);
            CORVANE_ASSERT_AS(pointer.Get() == 0, "Invalid_deallocation");
        }
    uint32_t span = ClassSpans::OfWord(word);
    PutWord(place, 0);  // a second release of it is found out, also once it is part of a larger hole
    _free += span;
    if (object == _document) _document = nullptr;

    BlockTrailer& trailer = block->Trailer();
    int merged = 0;
    ForEachHole(trailer, [&](Hole& hole, Packed2<uint32_t>& link) {
        auto* start = reinterpret_cast<uint8_t*>(&hole);
        const uint32_t size = hole.size.Get();
        const bool before = start + size == place;
        if (!before && place + span != start) return false;
        TouchLink(link);
        link.Put(hole.next.Get());
        if (before) place = start;
        span += size;
        return ++merged == 2;
    });
    Touch(place, sizeof(Hole));
    TouchLink(trailer.firstHole);
    MakeHole(place, span, trailer.firstHole.Get());
    trailer.firstHole.Put(StoredSpace::DistanceOf(place));
    if (span == block->Usable()) {
        trailer.firstHole.Put(0);
        trailer.released = 1;
        Note(*block);
        _total -= span;
        _free -= span;
    }
    SetBound(*block, std::max(block->largestHole, span));
}

// ---- the walk

uint32_t NewMemoryPool::SizeOf(const void* object) {
    return ClassSpans::OfWord(WordAt(static_cast<const uint8_t*>(object) - kWordSize)) - kWordSize;
}

void* NewMemoryPool::FirstObject() const {
    return _blocks.empty() ? nullptr : NextObject(_blocks.front()->start - kGranule + kWordSize);
}

void* NewMemoryPool::NextObject(const void* object) const {
    auto* place = const_cast<uint8_t*>(static_cast<const uint8_t*>(object)) - kWordSize;
    const PoolBlock* block;
    if (!_blocks.empty() && place + kGranule == _blocks.front()->start) {
        block = _blocks.front().get();
        place = block->start;
    } else {
        block = Find(place);
        CORVANE_ASSERT_AS(block, "block");
        const uint32_t span = ClassSpans::OfWord(WordAt(place));
        CORVANE_ASSERT_AS(span, "!((objDim+2)%10)");
        place += span;
    }
    for (;;) {
        while (block->Trailer().released || place >= block->End()) {
            if (block->place + 1 == _blocks.size()) return nullptr;
            block = _blocks[block->place + 1].get();
            place = block->start;
        }
        const int16_t word = WordAt(place);
        if (word == kHoleWord)
            place += reinterpret_cast<const Hole*>(place)->size.Get();
        else if (word == 0)
            place += kGranule;
        else
            return place + kWordSize;
    }
}

std::unordered_set<const void*> NewMemoryPool::Living(std::span<const void* const> addresses) const {
    std::unordered_set<const void*> wanted(addresses.begin(), addresses.end()), living;
    std::unordered_set<const PoolBlock*> walked;
    for (const void* address : addresses) {
        const PoolBlock* block = BlockOf(address);
        if (!block || block->Trailer().released || !walked.insert(block).second) continue;
        for (const uint8_t* place = block->start; place < block->End();) {
            const int16_t word = WordAt(place);
            if (word == kHoleWord) {
                place += reinterpret_cast<const Hole*>(place)->size.Get();
                continue;
            }
            if (word != 0 && wanted.contains(place + kWordSize)) living.insert(place + kWordSize);
            place += word == 0 ? kGranule : ClassSpans::OfWord(word);
        }
    }
    return living;
}

// ---- filling by a load

bool NewMemoryPool::StartFilling() {
    for (auto& block : _blocks) StoredSpace::Free(block->start, block->size);
    _history.Clear();
    _changed.clear();
    _blocks.clear();
    _total = _free = 0;
    _document = nullptr;
    return NextFillingBlock();
}

uint32_t NewMemoryPool::FillOffset() const { return static_cast<uint32_t>(_cursor - _blocks.back()->start); }

bool NewMemoryPool::NextFillingBlock() {
    const uint8_t* above = _blocks.empty() ? nullptr : _blocks.back()->start + _newpoolsize;
    if (!_blocks.empty()) CloseWith(*_blocks.back(), _cursor);
    PoolBlock* block = AddBlock(above);
    if (!block) return false;
    block->Trailer().added = 0;
    block->Trailer().firstHole.Put(0);
    std::memset(block->start, 0, sizeof(Hole));
    _free -= block->Usable();
    block->largestHole = 0;
    _cursor = block->start;
    return true;
}

void NewMemoryPool::FinishFilling() {
    CloseWith(*_blocks.back(), _cursor);
    Renumber();
}

// What remains of a block from here on is a hole.
void NewMemoryPool::CloseWith(PoolBlock& block, uint8_t* from) {
    const auto rest = static_cast<uint32_t>(block.End() - from);
    if (rest == 0) return;
    MakeHole(from, rest, block.Trailer().firstHole.Get());
    block.Trailer().firstHole.Put(StoredSpace::DistanceOf(from));
    block.largestHole = std::max(block.largestHole, rest);
    _free += rest;
}

}  // namespace corvane
