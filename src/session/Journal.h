// Keeps the unsaved work of one window safe, from the main thread: copies the blocks that have changed, a few
// at a time, and hands them to the writer. Main thread only.
#pragma once

#include <chrono>
#include <memory>
#include <unordered_map>

#include "session/JournalThread.h"

namespace corvane {

class WindowTarn;

// How much one slice may still do.
struct JournalBudget {
    int blocks = 16;
    std::chrono::steady_clock::time_point end;
    bool waitsForDisk = false;  // there was something to do, but no buffer for it
};

class Journal {
public:
    using Time = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::milliseconds kBetweenStates{250};
    static constexpr std::chrono::seconds kBeforeRestart{5};

    // Nothing is written before the first Slice. `name` is free in the folder.
    Journal(JournalThread& thread, JournalFolder& folder, std::string name, WindowTarn& window);
    ~Journal();  // the work is saved or given up, unless it was left
    Journal(const Journal&) = delete;

    // Goes on keeping the work safe within the budget. True when more can be done at once. With `hurry` as
    // soon as it can be, else some time after the state before it.
    bool Slice(Time now, JournalBudget& budget, bool hurry = false);
    // Whether the last slice has left a part of the present state to be handed over.
    bool Behind() const { return _behind; }
    // Takes away what the journal stands for from now on; called on the writer's thread once the work is
    // safe.
    void Replace(std::function<void()> removeFormer) { Post(JournalTask::Replace{std::move(removeFormer)}); }
    // The work is left to the next program; ends the journal.
    void Leave();
    // Whether writing has failed since the last question.
    bool TakeFailure();
    // The number of the last state that is safe; 0 for none.
    uint64_t Safe() const { return _writer->Safe(); }

private:
    static constexpr uint64_t kNothing = ~uint64_t{0};

    bool Waiting(Time now);
    bool CopyBlocks(JournalBudget& budget);
    void HeedUnrecorded();
    void GiveState(Time now);
    bool IsNews() const;
    JournalCommit Present() const;
    void Post(decltype(JournalTask::what) what) { _thread.Post({_writer, std::move(what)}); }

    JournalThread& _thread;
    std::shared_ptr<JournalWriter> _writer;
    WindowTarn& _window;
    std::unordered_map<uint32_t, uint64_t> _copied;  // the change that each block's copy shows, by distance
    uint64_t _seen = kNothing;                       // the pool's changes in the last state
    JournalCommit _given;
    Time _next{};
    uint32_t _failures = 0;
    int _restarts = 0;  // of copying since the last state
    bool _failed = false, _untold = false, _left = false, _behind = false;
};

}  // namespace corvane
