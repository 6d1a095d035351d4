#include "session/JournalThread.h"

#include <algorithm>
#include <utility>

#include "store/ObjectHeader.h"

namespace corvane {
namespace {

constexpr int kMostLent = 64;      // buffers: what the main thread can be ahead of the disk
constexpr size_t kMostSpare = 16;  // kept for the next time

}  // namespace

JournalThread::~JournalThread() {
    if (!_thread.joinable()) return;
    {
        const std::lock_guard lock(_mutex);
        _ending = true;
    }
    _posted.notify_one();
    _thread.join();
}

JournalTask::Buffer JournalThread::TakeBuffer() {
    const std::lock_guard lock(_mutex);
    if (_lent == kMostLent) return nullptr;
    ++_lent;
    if (_spare.empty()) return JournalTask::Buffer(new uint8_t[kDefaultPoolSize]);
    JournalTask::Buffer buffer = std::move(_spare.back());
    _spare.pop_back();
    return buffer;
}

void JournalThread::Post(JournalTask task) {
    {
        const std::lock_guard lock(_mutex);
        _tasks.push_back(std::move(task));
    }
    _posted.notify_one();
    if (!_thread.joinable()) _thread = std::thread([this] { Run(); });
}

void JournalThread::Wait() {
    std::unique_lock lock(_mutex);
    _done.wait(lock, [&] { return _tasks.empty() && !_busy; });
}

// False at the end. Tidies while nothing is posted.
bool JournalThread::Next(JournalTask& task) {
    std::unique_lock lock(_mutex);
    _busy = false;
    while (_tasks.empty()) {
        _done.notify_all();
        if (_ending) return false;
        lock.unlock();
        const bool tidied = TidyOne();
        lock.lock();
        if (!tidied) _posted.wait(lock, [&] { return !_tasks.empty() || _ending; });
    }
    task = std::move(_tasks.front());
    _tasks.pop_front();
    _busy = true;
    return true;
}

void JournalThread::Run() {
    for (JournalTask task; Next(task);) {
        Do(task);
        auto* block = std::get_if<JournalTask::Block>(&task.what);
        task.writer.reset();
        if (!block) continue;
        const std::lock_guard lock(_mutex);
        --_lent;
        if (_spare.size() < kMostSpare) _spare.push_back(std::move(block->bytes));
    }
}

void JournalThread::Do(JournalTask& task) {
    struct Doing {
        JournalWriter& writer;
        void operator()(const JournalTask::Block& block) const {
            writer.TakeBlock(block.distance, block.bytes.get());
        }
        void operator()(JournalTask::Commit& commit) const {
            writer.Commit(commit.commit, std::move(commit.blocks));
        }
        void operator()(JournalTask::Replace& replace) const {
            writer.Replace(std::move(replace.removeFormer));
        }
        void operator()(JournalTask::Restart) const { writer.Restart(); }
        void operator()(JournalTask::Remove) const { writer.Remove(); }
        void operator()(JournalTask::Leave) const { writer.Leave(); }
    };
    std::visit(Doing{*task.writer}, task.what);
    const bool known =
        std::any_of(_writers.begin(), _writers.end(), [&](const auto& w) { return w.lock() == task.writer; });
    if (!known) _writers.push_back(task.writer);
}

bool JournalThread::TidyOne() {
    std::erase_if(_writers, [](const auto& writer) { return writer.expired(); });
    for (const auto& writer : _writers)
        if (const auto living = writer.lock(); living && living->Tidy()) return true;
    return false;
}

}  // namespace corvane
