// Graphs of every class made from the class table alone, and what two pools hold compared object by object.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "base/StoredSpace.h"
#include "model/ClassTable.h"
#include "store/ClassInfo.h"
#include "store/MemoryManager.h"
#include "store/ObjectFile.h"

namespace corvane::test {

using Bytes = std::vector<uint8_t>;

inline uint32_t PointerAt(const void* object, uint16_t offset) {
    uint32_t value;
    std::memcpy(&value, static_cast<const uint8_t*>(object) + offset, sizeof value);
    return value;
}
inline void PutPointer(void* object, uint16_t offset, const void* target, uint32_t place = 0) {
    const uint32_t value = target ? StoredSpace::DistanceOf(target) + place : 0;
    std::memcpy(static_cast<uint8_t*>(object) + offset, &value, sizeof value);
}

// A pool of its own, current while the test runs; the classes are registered.
class StoreTest : public ::testing::Test {
protected:
    StoreTest() {
        RegisterClasses();
        pool = MemoryManager::Instance().NewPool();
    }
    ~StoreTest() override { MemoryManager::Instance().DeletePool(pool); }

    NewMemoryPool* pool;
};

// A second pool beside the current one.
class OtherPool {
public:
    explicit OtherPool(uint32_t size = 0)
        : _before(MemoryManager::Instance().GetCurrentPool()),
          _pool(MemoryManager::Instance().NewPool(size)) {
        MemoryManager::Instance().SetCurrentPool(_before);
    }
    ~OtherPool() { MemoryManager::Instance().DeletePool(_pool); }
    OtherPool(const OtherPool&) = delete;
    NewMemoryPool& operator*() const { return *_pool; }
    NewMemoryPool* operator->() const { return _pool; }

private:
    NewMemoryPool *_before, *_pool;
};

// Builds into the current pool by class and relation numbers.
class GraphBuilder {
public:
    // With a Document, a page, a system and a measure, on which Hang hangs what else is to be reached.
    GraphBuilder();

    void* New(int16_t number);
    void* NewText(const std::string& text);
    // Writes the ring of all `children` under the parent; `relation` as in the class table: "31", "3s".
    void Ring(void* parent, const std::string& relation, const std::vector<void*>& children);
    // Makes something reachable that no ring leads to.
    void Hang(void* object);
    void FinishHanging();
    // One parent and each pair of child classes, for each relation and each of its parent classes, all hung.
    void EveryRelation();
    // Every byte that is neither pointer nor behaviour word.
    void FillWithNoise(unsigned seed);

    void *document, *page, *system, *measure;

private:
    std::vector<void*> _times;
};

// One line for each object in the order of the numbers: class, pointers as number and place, all other bytes
// that a file carries.
std::vector<std::string> Describe(const NewMemoryPool& pool);

inline Bytes Saved(const NewMemoryPool& pool) {
    Bytes bytes;
    const Status status = EncodeScore(pool, bytes);
    EXPECT_TRUE(status) << status.message();
    return bytes;
}

// Relations by their name in the class table: parent classes and child classes.
struct RelationClasses {
    std::vector<int16_t> parents, children;
};
const std::map<std::string, RelationClasses>& AllRelations();

}  // namespace corvane::test
