// The pool: where allocations fall, what a release merges, what undo brings back. Figures are those of a
// block's granules of 10 bytes; places are counted from the first block's start.
#include <algorithm>
#include <map>
#include <random>

#include "store/NewMemoryPool.h"
#include "store/Stored.h"
#include "store_graph.h"

namespace corvane::test {
namespace {

class Pool : public StoreTest {
protected:
    int64_t PlaceOf(const void* object) const {
        return static_cast<const uint8_t*>(object) - pool->Block(0).start - static_cast<int64_t>(kWordSize);
    }
    // A typed object without pointers to look after: Staff records are never asked for theirs.
    void* Typed(int32_t size) { return pool->Allocate(9, size); }
    void* Raw(int32_t size) { return pool->AllocateRaw(size); }
    void* Voice() { return MemoryManager::Instance().Allocate(int16_t{14}); }  // 20 bytes with its word
};

TEST_F(Pool, SizesRoundUpToGranules) {
    const struct {
        bool raw;
        int32_t request;
        uint32_t span;
        int16_t word;
    } cases[] = {
        {false, 0, 10, 9},        {false, 8, 10, 9},
        {false, 9, 20, 9},        {false, 32, 40, 9},
        {false, 31999, 32010, 9}, {true, 0, 20, -8},
        {true, 8, 20, -8},        {true, 9, 30, -18},
        {true, 18, 30, -18},      {true, 31988, 32000, -31988},
    };
    int64_t place = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.request);
        void* object = c.raw ? Raw(c.request) : Typed(c.request);
        ASSERT_TRUE(object);
        EXPECT_EQ(ClassNumberOf(object), c.word);
        EXPECT_EQ(PlaceOf(object), place);
        place += c.span;
        if (c.raw) {
            EXPECT_EQ(NewMemoryPool::SizeOf(object), c.span - 2);
        }
        EXPECT_EQ(pool->Free(), 150000u - static_cast<uint64_t>(place));
    }
    for (void* refused : {Typed(32000), Typed(-1), Raw(31990), Raw(-1), Raw(-8)}) EXPECT_EQ(refused, nullptr);
}

TEST_F(Pool, AHoleIsTakenWholeOrFromItsFront) {
    void *a = Raw(30), *b = Raw(8), *c = Raw(30), *d = Raw(8);  // 50, 20, 50, 20 bytes
    pool->Release(a);
    pool->Release(c);
    EXPECT_EQ(PlaceOf(Raw(18)), 70) << "the newest hole heads the list; 30 of its 50 bytes are taken";
    EXPECT_EQ(PlaceOf(Raw(8)), 100) << "exactly what is left";
    EXPECT_EQ(PlaceOf(Raw(40)), 140) << "60 do not fit 50: from the end";
    EXPECT_EQ(PlaceOf(Raw(30)), 0) << "50 fit 50";
    EXPECT_EQ(pool->Free(), 150000u - 140 - 60);
    (void)b, (void)d;
}

TEST_F(Pool, AReleaseMergesBothNeighboursAndHeadsTheList) {
    void *first = Raw(8), *a = Raw(8), *b = Raw(8), *c = Raw(8), *last = Raw(8), *end = Raw(8);
    pool->Release(a);
    pool->Release(c);
    pool->Release(last);  // merges with c
    pool->Release(b);     // joins all
    EXPECT_EQ(PlaceOf(Raw(68)), 20) << "80 bytes in one piece";
    EXPECT_TRUE(CheckPool(*pool).size() == 1) << "no fault but the missing Document";
    (void)first, (void)end;
}

TEST_F(Pool, TheFirstBlockWithRoomIsTaken) {
    std::vector<void*> objects;
    while (pool->BlockCount() < 4) objects.push_back(Raw(31000));  // four a block
    pool->Release(objects[7]);                                     // block 1
    pool->Release(objects[2]);                                     // block 0
    EXPECT_EQ(pool->BlockOf(Raw(29000))->place, 0u);
    EXPECT_EQ(pool->BlockOf(Raw(29000))->place, 1u);
    EXPECT_EQ(pool->BlockOf(Raw(29000))->place, 3u);
    EXPECT_EQ(pool->BlockOf(Raw(900))->place, 0u) << "what the split left";
}

TEST_F(Pool, AnEmptiedBlockGoesWithTheNextCommandAndComesBackByUndoUntilThen) {
    std::vector<void*> objects;
    while (pool->BlockCount() < 2) objects.push_back(Raw(30000));
    const uint64_t total = pool->Total(), free = pool->Free();
    std::memcpy(objects.back(), "kept", 5);
    pool->EnableUndo();
    pool->BeginCommand();
    pool->Release(objects.back());
    EXPECT_EQ(pool->BlockCount(), 2u);
    EXPECT_EQ(pool->Total(), 150000u);
    pool->EndCommand();
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        pool->Undo();
        EXPECT_EQ(pool->Total(), total);
        EXPECT_EQ(pool->Free(), free);
        EXPECT_STREQ(static_cast<char*>(objects.back()), "kept");
        EXPECT_NE(pool->NextObject(objects[objects.size() - 2]), nullptr);
        pool->Redo();
        EXPECT_EQ(pool->Total(), 150000u);
        EXPECT_EQ(pool->NextObject(objects[objects.size() - 2]), nullptr);
    }
    pool->BeginCommand();
    EXPECT_EQ(pool->BlockCount(), 1u);
    EXPECT_EQ(pool->Total(), 150000u);
}

TEST_F(Pool, ABlockAddedByACommandIsGoneAfterItsUndo) {
    while (pool->Free() > 40000) Raw(30000);
    pool->EnableUndo();
    pool->BeginCommand();
    Raw(30000);
    void* added = Raw(30000);
    pool->EndCommand();
    ASSERT_EQ(pool->BlockCount(), 2u);
    const uint64_t free = pool->Free();
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        pool->Undo();
        EXPECT_EQ(pool->Total(), 150000u);
        pool->Redo();
        EXPECT_EQ(pool->Total(), 300000u);
        EXPECT_EQ(pool->Free(), free);
        EXPECT_EQ(ClassNumberOf(added), RawWord(RawSpan(30000)));
    }
    pool->Undo();
    pool->BeginCommand();
    EXPECT_EQ(pool->BlockCount(), 1u);
}

TEST_F(Pool, OneCopyIsMadeOfABlockInACommandAndOnlyThen) {
    void* object = Voice();
    const auto used = [] { return StoredSpace::BytesInUse(); };
    const uint64_t before = used();
    Touch(object, 2);
    pool->BeginCommand();
    Touch(object, 2);
    EXPECT_EQ(used(), before) << "undo is not armed";
    pool->EnableUndo();
    Touch(object, 2);
    EXPECT_GT(used(), before + 150000);
    const uint64_t once = used();
    Touch(static_cast<uint8_t*>(object) + 16, 2);
    EXPECT_EQ(used(), once);
    pool->EndCommand();
    pool->BeginCommand();
    Touch(object, 2);
    EXPECT_EQ(used(), once) << "the copy of the command before is gone";
}

TEST_F(Pool, UndoSetsTheChangedMark) {
    pool->EnableUndo();
    pool->BeginCommand();
    Voice();
    pool->EndCommand();
    pool->SetModified(false);
    pool->Undo();
    EXPECT_TRUE(pool->Modified());
    pool->SetModified(false);
    pool->Redo();
    EXPECT_TRUE(pool->Modified());
}

using PoolDeath = Pool;

TEST_F(PoolDeath, OnlyUnlinkedObjectsAreReleasedAndOnlyOnce) {
    void *voice = Voice(), *neighbour = Raw(8);
    PutPointer(voice, 12, voice);
    EXPECT_DEATH(pool->Release(voice), "Invalid_deallocation");
    PutPointer(voice, 12, nullptr);
    pool->Release(neighbour);
    pool->Release(voice);  // one hole now
    EXPECT_DEATH(pool->Release(neighbour), "word");
    int elsewhere = 0;
    EXPECT_DEATH(pool->Release(&elsewhere), "block");
    pool->Release(nullptr);
}

// The same, said plainly: blocks of holes in lists, taken from the front, merged with two neighbours at most.
class NaivePool {
public:
    static constexpr uint32_t kUsable = 2000;
    struct Hole {
        uint32_t at, size;
    };

    // Where the next object goes; null for a new block.
    const uint8_t* Fit(uint32_t span) {
        for (auto& [start, holes] : blocks)
            for (const Hole& hole : holes)
                if (hole.size >= span) return start + hole.at;
        return nullptr;
    }
    void Take(const uint8_t* place, uint32_t span) {
        auto block = std::prev(blocks.upper_bound(place));
        if (place - block->first >= kUsable)
            block = blocks.emplace(place, std::vector<Hole>{{0, kUsable}}).first;
        const auto at = static_cast<uint32_t>(place - block->first);
        auto& holes = block->second;
        const auto hole = std::find_if(holes.begin(), holes.end(), [&](const Hole& h) { return h.at == at; });
        if (hole->size == span)
            holes.erase(hole);
        else
            *hole = {hole->at + span, hole->size - span};
    }
    void Give(const uint8_t* place, uint32_t span) {
        const auto block = std::prev(blocks.upper_bound(place));
        auto& holes = block->second;
        Hole made{static_cast<uint32_t>(place - block->first), span};
        int merged = 0;
        for (auto hole = holes.begin(); hole != holes.end() && merged < 2;) {
            const bool before = hole->at + hole->size == made.at, behind = made.at + made.size == hole->at;
            if (before) made.at = hole->at;
            if (before || behind) made.size += hole->size;
            hole = before || behind ? holes.erase(hole) : hole + 1;
            merged += before || behind;
        }
        if (made.size == kUsable)
            blocks.erase(block);
        else
            holes.insert(holes.begin(), made);
    }
    uint64_t Free() const {
        uint64_t free = 0;
        for (const auto& [start, holes] : blocks)
            for (const Hole& hole : holes) free += hole.size;
        return free;
    }

    std::map<const uint8_t*, std::vector<Hole>> blocks;  // by start; wholly free ones are none
};

TEST_F(Pool, UndoBringsBackTheWholeBlockAlsoWhatWasWrittenBetweenCommands) {
    constexpr int32_t kBytes = 20000;
    auto* near = static_cast<uint8_t*>(pool->AllocateRaw(kBytes));
    auto* far = static_cast<uint8_t*>(pool->AllocateRaw(kBytes));
    pool->EnableUndo();
    const auto write = [](uint8_t* place, uint8_t value) {
        Touch(place, 3 * 4096);
        std::memset(place, value, 3 * 4096);
    };
    write(far, 1);
    pool->BeginCommand();
    write(near + 4000, 2);
    pool->EndCommand();
    write(far + 4000, 3);
    pool->Undo();
    EXPECT_EQ(std::count(near, near + kBytes, 0), kBytes);
    EXPECT_EQ(std::count(far, far + 3 * 4096, 1), 3 * 4096);
    EXPECT_EQ(std::count(far + 3 * 4096, far + kBytes, 0), kBytes - 3 * 4096);
    pool->Redo();
    EXPECT_EQ(std::count(near, near + kBytes, 2), 3 * 4096);
    EXPECT_EQ(std::count(far, far + kBytes, 3), 3 * 4096);
}

class PoolModel : public ::testing::Test {
protected:
    PoolModel() {
        RegisterClasses();
        pool = MemoryManager::Instance().NewPool(NaivePool::kUsable);
        naive.blocks[pool->Block(0).start] = {{0, NaivePool::kUsable}};
        pool->EnableUndo();
    }
    ~PoolModel() override { MemoryManager::Instance().DeletePool(pool); }

    void Take() {
        const auto request = static_cast<int32_t>(random() % 120);
        const uint32_t span = RawSpan(static_cast<uint32_t>(request));
        const uint8_t* expected = naive.Fit(span);
        auto* object = static_cast<uint8_t*>(pool->AllocateRaw(request));
        const uint8_t* place = object - kWordSize;
        if (expected)
            ASSERT_EQ(place, expected);
        else
            ASSERT_EQ(place, pool->BlockOf(object)->start);
        naive.Take(place, span);
        std::memset(object, static_cast<int>(random()), span - 12);
        live.emplace_back(object, span);
    }
    void Give() {
        std::swap(live[random() % live.size()], live.back());
        const auto [object, span] = live.back();
        live.pop_back();
        pool->Release(object);
        naive.Give(object - kWordSize, span);
    }
    // New bytes somewhere inside of an object, as a setter writes them.
    void Write() {
        const auto [object, span] = live[random() % live.size()];
        const uint32_t from = static_cast<uint32_t>(random() % (span - 12)),
                       bytes = 1 + static_cast<uint32_t>(random() % (span - 12 - from));
        Touch(object + from, bytes);
        std::memset(object + from, static_cast<int>(random()), bytes);
    }
    // Every byte that undo answers for, block by block.
    std::map<const uint8_t*, Bytes> Image() const {
        std::map<const uint8_t*, Bytes> blocks;
        for (uint32_t i = 0; i < pool->BlockCount(); ++i)
            if (const PoolBlock& b = pool->Block(i); !b.Trailer().released)
                blocks[b.start] = Bytes(b.start, b.start + b.size - kSnapshotGap);
        return blocks;
    }
    void ExpectAsNaive() const {
        EXPECT_EQ(pool->Free(), naive.Free());
        EXPECT_EQ(pool->Total(), naive.blocks.size() * NaivePool::kUsable);
    }

    NewMemoryPool* pool;
    NaivePool naive;
    std::vector<std::pair<uint8_t*, uint32_t>> live;
    std::minstd_rand random{11};
};

TEST_F(PoolModel, RandomCommandsPlaceObjectsAsTheNaiveModelAndUndoRestoresEverything) {
    size_t most = 0;
    for (int command = 0; command < 6000 && !HasFailure(); ++command) {
        SCOPED_TRACE(command);
        pool->BeginCommand();
        const auto before = Image();
        EXPECT_EQ(pool->BlockCount(), before.size()) << "blocks that were emptied before are gone";
        const uint64_t total = pool->Total(), free = pool->Free();
        const unsigned growing = command / 500 % 2 ? 30 : 65;  // percent
        for (unsigned i = 1 + random() % 6; i > 0; --i)
            if (live.size() < 2 || random() % 100 < growing)
                Take();
            else if (random() % 2)
                Write();
            else
                Give();
        pool->EndCommand();
        ExpectAsNaive();
        most = std::max(most, naive.blocks.size());
        if (random() % 2) continue;
        const auto after = Image();
        for (unsigned i = 0; i < 2; ++i) {
            pool->Undo();
            EXPECT_TRUE(Image() == before);
            EXPECT_EQ(pool->Total(), total);
            EXPECT_EQ(pool->Free(), free);
            pool->Redo();
            EXPECT_TRUE(Image() == after);
            ExpectAsNaive();
        }
    }
    EXPECT_GT(most, 10u);
}

}  // namespace
}  // namespace corvane::test
