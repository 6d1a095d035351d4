// The journal of one window as the writer thread keeps it: takes copies of blocks, writes what is new in
// them, and makes each state safe. Everything here belongs to the writer thread but where it says otherwise.
//
// A file shows itself under the journal's name only once it holds a whole state. When writing fails the
// journal falls silent and keeps the last file; Restart begins a new one, for which all blocks must come
// again.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "session/JournalFormat.h"
#include "store/JournalFolder.h"

namespace corvane {

class JournalWriter {
public:
    // Any thread. `usable`: bytes of a block.
    JournalWriter(JournalFolder& folder, std::string name, uint32_t usable);

    void TakeBlock(uint32_t block, const uint8_t* bytes);
    // All taken so far is a state of the score. Once this returns it is safe, or the journal has failed.
    void Commit(const JournalCommit& commit, std::vector<uint32_t> blocks);
    // Takes away what this journal stands for from now on: called when the first state is safe.
    void Replace(std::function<void()> removeFormer) { _former.push_back(std::move(removeFormer)); }
    void Restart();
    // The work is saved or given up: nothing stays.
    void Remove();
    // The work is left to the next program.
    void Leave();
    // A bounded step towards a shorter file; false when there is nothing to do.
    bool Tidy();

    // Any thread: how often writing has failed; the number of the last state that is safe.
    uint32_t Failures() const { return _failures; }
    uint64_t Safe() const { return _safe; }

private:
    // What a file holds of a block, piece by piece.
    struct Shadow {
        std::vector<uint64_t> sums, places;
    };
    struct File {
        std::shared_ptr<JournalFile> file;
        std::unique_ptr<JournalAppender> appender;
        std::unordered_map<uint32_t, Shadow> shadows;
        explicit operator bool() const { return file != nullptr; }
    };
    Status Open(const char* ending, File& made);
    std::vector<JournalRun> RunsOfNews(Shadow& shadow, const uint8_t* bytes) const;
    void Place(Shadow& shadow, const std::vector<JournalRun>& runs) const;
    Status Append(File& file, uint32_t block, const uint8_t* bytes);
    Status Close(const JournalCommit& commit);
    Status StartTidying();
    Status CopyBlock(uint32_t block);
    Status FinishTidying();
    void EndTidying();
    void RemoveFormer();
    void Fail();

    JournalFolder& _folder;
    const std::string _name;
    const uint32_t _usable;
    File _main;
    int _made = 0;  // files so far
    bool _named = false, _silent = false,
         _complete = false;  // complete: no block has come since the last state
    std::vector<uint32_t> _blocks;
    JournalCommit _last;
    uint64_t _unflushed = 0;
    std::vector<std::function<void()>> _former;

    File _shorter;                         // the file that is to take over
    std::unordered_set<uint32_t> _toCopy;  // blocks that it lacks
    uint64_t _tidyAbove = 0;               // size of the file; 0 for the rule
    std::vector<uint64_t> _places;         // scratch
    std::vector<uint8_t> _bytes;

    std::atomic<uint32_t> _failures{0};
    std::atomic<uint64_t> _safe{0};
};

}  // namespace corvane
