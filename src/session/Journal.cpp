#include "session/Journal.h"

#include <cstring>
#include <utility>

#include "base/Assert.h"
#include "base/StoredSpace.h"
#include "edit/WindowTarn.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

int64_t SecondsNow() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}

bool SameIdentity(const JournalCommit& a, const JournalCommit& b) {
    return a.modified == b.modified && a.neverSaved == b.neverSaved && a.title == b.title && a.path == b.path;
}

}  // namespace

Journal::Journal(JournalThread& thread, JournalFolder& folder, std::string name, WindowTarn& window)
    : _thread(thread),
      _writer(std::make_shared<JournalWriter>(folder, std::move(name),
                                              window.Pool()->NewPoolSize() - kTrailerSize)),
      _window(window) {
    CORVANE_ASSERT(window.Pool()->NewPoolSize() <= kDefaultPoolSize);
}

Journal::~Journal() {
    if (!_left) Post(JournalTask::Remove{});
}

void Journal::Leave() {
    Post(JournalTask::Leave{});
    _left = true;
}

bool Journal::TakeFailure() { return std::exchange(_untold, false); }

// After a failure the disk is left alone for a while; then everything is written anew.
bool Journal::Waiting(Time now) {
    if (const uint32_t failures = _writer->Failures(); failures != _failures) {
        _failures = failures;
        _failed = _untold = true;
        _next = now + kBeforeRestart;
    }
    if (!_failed) return false;
    if (now < _next) return true;
    _failed = false;
    _copied.clear();
    _seen = kNothing;
    Post(JournalTask::Restart{});
    return false;
}

JournalCommit Journal::Present() const {
    JournalCommit commit;
    commit.document = StoredSpace::DistanceOf(_window.Pool()->DocumentObject());
    commit.modified = _window.Modified();
    commit.neverSaved = _window.NeverSaved();
    commit.title = _window.Title();
    commit.path = _window.Path();
    return commit;
}

bool Journal::IsNews() const {
    return _window.Pool()->Changes() != _seen || !SameIdentity(Present(), _given);
}

// True once no block is left that has changed since its copy.
bool Journal::CopyBlocks(JournalBudget& budget) {
    const NewMemoryPool& pool = *_window.Pool();
    for (uint32_t i = 0; i < pool.BlockCount(); ++i) {
        const PoolBlock& block = pool.Block(i);
        if (block.Trailer().released) continue;
        const uint32_t distance = StoredSpace::DistanceOf(block.start);
        const auto [copied, isNew] = _copied.try_emplace(distance, block.change);
        if (!isNew && copied->second == block.change) continue;
        JournalTask::Buffer buffer;
        const bool mayCopy = budget.blocks > 0 && std::chrono::steady_clock::now() < budget.end;
        if (mayCopy) buffer = _thread.TakeBuffer();
        if (!buffer) {
            budget.waitsForDisk |= mayCopy;
            _copied.erase(copied);
            return false;
        }
        --budget.blocks;
        std::memcpy(buffer.get(), block.start, block.Usable());
        copied->second = block.change;
        Post(JournalTask::Block{distance, std::move(buffer)});
    }
    return true;
}

// What was written outside of commands may be anywhere. Should that never end, a state must be given all the
// same.
void Journal::HeedUnrecorded() {
    constexpr int kMostRestarts = 8;
    if (!_window.Pool()->TakeUnrecorded()) return;
    _seen = kNothing;
    if (++_restarts <= kMostRestarts) _copied.clear();
}

void Journal::GiveState(Time now) {
    const NewMemoryPool& pool = *_window.Pool();
    std::vector<uint32_t> blocks;
    for (uint32_t i = 0; i < pool.BlockCount(); ++i)
        if (!pool.Block(i).Trailer().released) blocks.push_back(StoredSpace::DistanceOf(pool.Block(i).start));
    if (_copied.size() > blocks.size()) {
        std::unordered_map<uint32_t, uint64_t> living;
        for (const uint32_t block : blocks) living[block] = _copied[block];
        _copied = std::move(living);
    }
    const uint64_t sequence = _given.sequence + 1;
    _given = Present();
    _given.sequence = sequence;
    _given.time = SecondsNow();
    Post(JournalTask::Commit{_given, std::move(blocks)});
    _seen = pool.Changes();
    _next = now + kBetweenStates;
    _restarts = 0;
}

bool Journal::Slice(Time now, JournalBudget& budget, bool hurry) {
    const NewMemoryPool& pool = *_window.Pool();
    _behind = false;
    if (Waiting(now) || pool.Recording() || !pool.UndoEnabled() || !pool.DocumentObject()) return false;
    HeedUnrecorded();
    if (!IsNews() || (!hurry && now < _next)) return false;
    _behind = !CopyBlocks(budget);
    if (!_behind) GiveState(now);
    return _behind && !budget.waitsForDisk;
}

}  // namespace corvane
