// The pool of one score: a ring of equal blocks in ascending address order, each packed with objects behind
// their 16-bit words. Undo is a copy of each page of a block, made before the page first changes in a
// command.
//
// Not for threads: main thread only. Running out of address space for a block is an assertion, but for blocks
// that a load asks for.
#pragma once

#include <array>
#include <memory>
#include <span>
#include <unordered_set>
#include <utility>
#include <vector>

#include "store/HoleIndex.h"
#include "store/PoolBlock.h"
#include "store/UndoHistory.h"

namespace corvane {

struct ClassInfo;

class NewMemoryPool {
public:
    // With 0 a pool of growing blocks of 150040 bytes; with a size, one first block with that many usable
    // bytes.
    explicit NewMemoryPool(uint32_t size = 0);
    ~NewMemoryPool();  // frees all objects at once; no destructor of theirs runs
    NewMemoryPool(const NewMemoryPool&) = delete;

    // A zeroed object of `size` bytes behind `classNumber`; null for a size above 31999.
    void* Allocate(int16_t classNumber, int32_t size);
    // A zeroed raw block of at least `size` bytes; null for a size below 0 or above 31989.
    void* AllocateRaw(int32_t size);
    // Back to the holes. All stored pointers of the object must be null ("Invalid_deallocation"); null is
    // ignored.
    void Release(void* object);

    // The write barrier, before bytes of a block change: the first touch of a page of a block in a recorded
    // command copies the page aside. Once a command has touched a block, pages of it that are written after
    // the command are kept too, so that undo brings back the whole block as it was.
    void Touch(const void* place, size_t bytes);
    void BeginCommand();
    void EndCommand() { _recording = false; }
    // Each exchanges the touched blocks with their copies; done twice they cancel out.
    void Undo() { Exchange(false); }
    void Redo() { Exchange(true); }
    // More steps than the last one, 1 to 100; each further one costs the pages that it changed. They are
    // forgotten where objects come or go outside a recorded command.
    void SetUndoLevels(size_t levels) { _history.SetLevels(levels); }
    // The step that Undo and Redo exchange has been undone, and not done again.
    bool IsUndone() const { return _undone; }
    // Behind an undone step, or one that changed nothing: makes the one before it that which Undo exchanges.
    // False if there is none.
    bool StepBack();
    // Before a done step: makes the undone one behind it that which Redo exchanges.
    bool StepOn();
    bool HasOlderStep() const {
        return (_undone || _changed.empty()) && !_stale && _history.HasDone();
    }
    bool HasNewerStep() const { return !_undone && !_stale && _history.HasUndone(); }
    void ForgetSteps();
    // Goes with the step that Undo and Redo exchange; empty when a command begins.
    StepMemo& Memo() { return _memo; }
    void EnableUndo() { _undoEnabled = true; }
    void DisableUndo() { _undoEnabled = false; }
    bool UndoEnabled() const { return _undoEnabled; }
    bool Recording() const { return _recording; }

    // Counts on with every block that a command, an undo or a redo changes; each block tells the count of its
    // last.
    uint64_t Changes() const { return _changes; }
    // Whether something was written outside a recorded command since the last question: the count does not
    // tell where.
    bool TakeUnrecorded() { return std::exchange(_unrecorded, false); }

    bool Modified() const { return _modified; }
    void SetModified(bool modified) { _modified = modified; }
    // The one object of class 1; null in an empty pool.
    void* DocumentObject() const { return _document; }
    void SetDocumentObject(void* document) { _document = document; }
    const std::array<uint8_t, 20>& FileMagic() const { return _fileMagic; }
    void SetFileMagic(const std::array<uint8_t, 20>& magic) { _fileMagic = magic; }

    uint32_t NewPoolSize() const { return _newpoolsize; }
    uint64_t Total() const { return _total; }  // usable bytes of the blocks that take part in the score
    uint64_t Free() const { return _free; }    // bytes in their holes
    uint32_t BlockCount() const { return static_cast<uint32_t>(_blocks.size()); }
    const PoolBlock& Block(uint32_t place) const {
        return *_blocks[place];
    }  // in address order, released ones too
    // The block of an address of this pool; null for any other address.
    const PoolBlock* BlockOf(const void* address) const;

    // Usable bytes behind an object's word; for a raw block 10 - word.
    static uint32_t SizeOf(const void* object);
    // Walks all objects and raw blocks in address order, released blocks left out; null after the last.
    void* FirstObject() const;
    void* NextObject(const void* object) const;
    // Those of some addresses at which an object stands now. Cost: the blocks that they point into.
    std::unordered_set<const void*> Living(std::span<const void* const> addresses) const;

    // For loads: appends at ascending addresses without searching holes. The pool must be empty at first;
    // FinishFilling turns what is left of the last block into a hole. False, and nothing done, when there is
    // no room for a block.
    bool StartFilling();
    uint8_t* FillPlace() const { return _cursor; }
    uint32_t FillOffset() const;  // bytes used in the block being filled
    void AdvanceFilling(uint32_t bytes) { _cursor += bytes; }
    bool NextFillingBlock();
    void FinishFilling();

private:
    PoolBlock* AddBlock(const uint8_t* above);
    void DropReleased();
    void Note(PoolBlock& block);
    void Renumber();
    PoolBlock* Find(const void* address) const;
    uint8_t* TakeSpan(uint32_t span);
    uint8_t* TakeFrom(PoolBlock& block, uint32_t span);
    void SetBound(PoolBlock& block, uint32_t bound);
    static constexpr size_t kMostPages = 64;  // of a block
    uint64_t PagesOf(size_t from, size_t end) const;
    template <class Visit>
    void ForEachRun(const PoolBlock& block, uint64_t pages, Visit visit) const;
    void Keep(PoolBlock& block, uint64_t pages);
    void TouchLink(const Packed2<uint32_t>& link) { Touch(&link, sizeof link); }
    void StartSnapshot(PoolBlock& block);
    void FreeSnapshot(PoolBlock& block);
    void Exchange(bool redo);
    void EndLastStep();
    void LetGo(PoolBlock& block);
    UndoStep TakeStep();
    void PutStep(const UndoStep& step);
    // Objects come or go.
    void NoteStructure() { _stale |= !_recording || !_undoEnabled; }
    void Account(const PoolBlock& block, int sign);
    void CloseWith(PoolBlock& block, uint8_t* from);

    std::vector<std::unique_ptr<PoolBlock>> _blocks;
    std::vector<PoolBlock*> _changed;       // touched, added or released since the command began
    std::vector<uint8_t*> _spareSnapshots;  // kept warm for the next command
    UndoHistory _history;
    StepMemo _memo;
    HoleIndex _index;
    void* _document = nullptr;
    std::array<uint8_t, 20> _fileMagic{};
    uint8_t* _cursor = nullptr;
    uint64_t _total = 0, _free = 0;
    uint32_t _newpoolsize = kDefaultPoolSize;
    int _pageShift = 0;  // a page has two to the power of this many bytes, so that a block has kMostPages
    uint64_t _changes = 0;
    bool _modified = false, _undoEnabled = false, _recording = false, _unrecorded = false;
    bool _undone = false;        // what the blocks hold of the last step is what was behind it
    bool _stale = false;         // the steps do not fit the blocks any more
    bool _heldReleased = false;  // some block is released that a step may bring back
};

}  // namespace corvane
