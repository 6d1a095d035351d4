// The session's front to the pools. All persistent allocation and every Touch go to the current pool; whoever
// works on another score than the active one sets its pool first and restores the former (PoolScope). Main
// thread only.
#pragma once

#include <memory>
#include <vector>

#include "store/NewMemoryPool.h"

namespace corvane {

class CommandObserver;

class MemoryManager {
public:
    static MemoryManager& Instance();  // made on the first call

    // A new pool, made the current one.
    NewMemoryPool* NewPool(uint32_t size = 0);
    // Frees the pool and all in it. The current pool is not changed, unless it was this one: then there is
    // none.
    void DeletePool(NewMemoryPool* pool);
    size_t PoolCount() const { return _pools.size(); }

    void SetCurrentPool(NewMemoryPool* pool) { _currentPool = pool; }
    NewMemoryPool* GetCurrentPool() const { return _currentPool; }

    // A zeroed object of the class, its behaviour words set. Null when the request is beyond the limits.
    void* Allocate(int32_t size, const char* className);
    void* Allocate(int16_t classNumber);
    void* AllocateRaw(int32_t size);
    void Release(void* object);

    // The bracket of one undoable step in the current pool. The observer is told.
    void BeginCommand();
    void EndCommand();
    void Undo() { Current().Undo(); }
    void Redo() { Current().Redo(); }
    void EnableUndo() { Current().EnableUndo(); }
    void DisableUndo() { Current().DisableUndo(); }
    void SetObserver(CommandObserver* observer) { _observer = observer; }

private:
    NewMemoryPool& Current() const;

    std::vector<std::unique_ptr<NewMemoryPool>> _pools;
    NewMemoryPool* _currentPool = nullptr;
    CommandObserver* _observer = nullptr;
};

// Makes a pool current for a while.
class PoolScope {
public:
    explicit PoolScope(NewMemoryPool* pool) : _before(MemoryManager::Instance().GetCurrentPool()) {
        MemoryManager::Instance().SetCurrentPool(pool);
    }
    ~PoolScope() { MemoryManager::Instance().SetCurrentPool(_before); }
    PoolScope(const PoolScope&) = delete;

private:
    NewMemoryPool* _before;
};

// One undoable step: begins now, ends with the scope.
class CommandScope {
public:
    CommandScope() { MemoryManager::Instance().BeginCommand(); }
    ~CommandScope() { MemoryManager::Instance().EndCommand(); }
    CommandScope(const CommandScope&) = delete;
};

}  // namespace corvane
