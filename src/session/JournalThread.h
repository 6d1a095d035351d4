// The one thread that writes the journals, and the way to it: copies of blocks in buffers that come back.
// Posting never waits for the disk.
#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <variant>
#include <vector>

#include "session/JournalWriter.h"

namespace corvane {

struct JournalTask {
    using Buffer = std::unique_ptr<uint8_t[]>;
    struct Block {
        uint32_t distance;
        Buffer bytes;
    };
    struct Commit {
        JournalCommit commit;
        std::vector<uint32_t> blocks;
    };
    struct Replace {
        std::function<void()> removeFormer;
    };
    struct Restart {};
    struct Remove {};
    struct Leave {};

    std::shared_ptr<JournalWriter> writer;
    std::variant<Block, Commit, Replace, Restart, Remove, Leave> what;
};

// Made, used and ended on the main thread.
class JournalThread {
public:
    JournalThread() = default;
    ~JournalThread();  // all that was posted is done first
    JournalThread(const JournalThread&) = delete;

    // Room for the largest block; null when as many are on their way as may be, until the thread has caught
    // up.
    JournalTask::Buffer TakeBuffer();
    // In the order of the calls.
    void Post(JournalTask task);
    // Until all that was posted is done.
    void Wait();

private:
    void Run();
    bool Next(JournalTask& task);
    void Do(JournalTask& task);
    bool TidyOne();

    std::thread _thread;  // runs from the first Post on
    std::mutex _mutex;
    std::condition_variable _posted, _done;
    // Under the mutex.
    std::deque<JournalTask> _tasks;
    std::vector<JournalTask::Buffer> _spare;
    int _lent = 0;
    bool _busy = false, _ending = false;
    // The thread's own: whose files may want to be shorter.
    std::vector<std::weak_ptr<JournalWriter>> _writers;
};

}  // namespace corvane
