// Steps of undo beyond the one that a pool's blocks hold by themselves: what each changed block held, page by
// page, taken out of the blocks and put back when its turn comes. Not for threads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace corvane {

struct PoolBlock;

// What the pool's owner remembers with a step.
struct StepMemo {
    void *before = nullptr, *after = nullptr;
    bool mark = false;
};

// One step. It holds the bytes before it while it is done, those behind it while it is undone.
struct UndoStep {
    struct Part {
        PoolBlock* block;
        uint64_t kept;  // a bit for each page, as in the block
        bool touched, added;
        std::vector<uint8_t> bytes;  // of the pages, one behind the other
    };
    StepMemo memo;
    std::vector<Part> parts;

    size_t Size() const;
};

class UndoHistory {
public:
    // Steps that may be undone one behind the other; 1 keeps none here.
    void SetLevels(size_t levels);
    bool IsKeeping() const { return _levels > 1; }

    // The latest goes in, the oldest give way to it beyond the levels or a bound of memory.
    void PushDone(UndoStep step);
    void PushUndone(UndoStep step) { _undone.push_back(std::move(step)); }
    UndoStep PopDone();
    UndoStep PopUndone();
    bool HasDone() const { return !_done.empty(); }
    bool HasUndone() const { return !_undone.empty(); }
    void DropUndone() { _undone.clear(); }
    void Clear();

    // A step may bring something back into the block.
    bool Needs(const PoolBlock* block) const;

private:
    void Trim();

    size_t _levels = 1;
    std::deque<UndoStep> _done;     // the oldest first
    std::vector<UndoStep> _undone;  // the next to be done again last
};

}  // namespace corvane
