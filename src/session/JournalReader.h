// What a journal holds, whatever state its end is in. Bytes are not trusted: nothing in a file makes these
// fail but by telling less.
#pragma once

#include <cstdint>
#include <vector>

#include "session/JournalFormat.h"
#include "store/PoolImage.h"

namespace corvane {

class JournalReader {
public:
    // Runs through the file once. Reads a record at a time.
    explicit JournalReader(const JournalFile& file);

    // False for a file that another version wrote, or something else altogether.
    bool Known() const { return _known; }
    // The states that can be brought back, oldest first.
    const std::vector<JournalCommit>& Commits() const { return _commits; }
    // The blocks of one of them, by its place in Commits(). False where the file cannot be read again.
    bool Image(size_t commit, PoolImage& image) const;

private:
    // Calls take(kind, contents) for each sound record until it answers false.
    template <class Take>
    void ForEachRecord(Take take) const;

    const JournalFile& _file;
    JournalHeader _header{};
    bool _known = false;
    std::vector<JournalCommit> _commits;
};

}  // namespace corvane
