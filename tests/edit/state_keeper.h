// What undo must give back, byte by byte.
#pragma once

#include "edit/WindowTarn.h"
#include "store/CommandObserver.h"
#include "store/NewMemoryPool.h"

namespace corvane {

// The bytes of each live block that undo answers for, with the counters.
struct PoolState {
    std::vector<std::vector<uint8_t>> blocks;
    uint64_t total = 0, free = 0;

    static PoolState Of(const NewMemoryPool& pool) {
        PoolState state;
        state.total = pool.Total(), state.free = pool.Free();
        for (uint32_t i = 0; i < pool.BlockCount(); ++i) {
            const PoolBlock& block = pool.Block(i);
            if (!block.Trailer().released)
                state.blocks.emplace_back(block.start, block.start + block.size - kSnapshotGap);
        }
        return state;
    }
    friend bool operator==(const PoolState&, const PoolState&) = default;
};

// Keeps the state at the last beginning of a command, and tells the window as the program's own observer
// does.
class StateKeeper : public CommandObserver {
public:
    explicit StateKeeper(WindowTarn& window) : _window(window) {
        MemoryManager::Instance().SetObserver(this);
    }
    ~StateKeeper() override { WatchCommands(); }
    void CommandBegins(NewMemoryPool& pool) override {
        before = PoolState::Of(pool);
        ++commands;
        _window.CommandBegins();
    }
    void CommandEnds(NewMemoryPool&) override { _window.CommandEnds(); }
    PoolState before;
    int commands = 0;

private:
    WindowTarn& _window;
};

}  // namespace corvane
