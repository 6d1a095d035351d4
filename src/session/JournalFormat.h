// The bytes of a journal: a header, then records, each closed by a checksum that covers it and all before it.
// Whatever a torn write or a damaged disk leaves behind the last sound record thus counts for nothing.
// Numbers are in the order of the machine: a journal is read where it was written. docs/recovery.md tells the
// format. DO NOT CHANGE THESE NUMBERS.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/Status.h"

namespace corvane {

class JournalFile;

inline constexpr uint64_t kJournalMagic = 0x314C4E4A56524F43;  // "CORVJNL1"
inline constexpr uint32_t kJournalPiece = 1024;                // bytes of a block that are told apart

enum class JournalKind : uint32_t {
    Pieces = 1,  // what has changed in one block
    Blocks = 2,  // the blocks that make up the score from now on, in the pool's order
    Commit = 3,  // all before it is one state of the score
};

struct JournalHeader {
    uint64_t magic;
    uint32_t usable;  // bytes of each block
    uint32_t unused;
    uint64_t id;  // differs from journal to journal
};
struct JournalRecordHeader {
    JournalKind kind;
    uint32_t length;  // of what stands between this and the checksum
};
// Heads a Pieces record; the runs follow, each with its bytes.
struct JournalPiecesHeader {
    uint32_t block, runs;
};
struct JournalRun {
    uint32_t offset, length;
};

// One state of a score.
struct JournalCommit {
    uint64_t sequence = 0;
    int64_t time = 0;       // seconds since 1970
    uint32_t document = 0;  // distance of the Document
    bool modified = false, neverSaved = true;
    std::string title, path;
};

// The checksum of `bytes` behind those that gave `before`. Any change of one word changes it.
uint64_t JournalChecksum(uint64_t before, std::span<const uint8_t> bytes);

std::vector<uint8_t> CommitBytes(const JournalCommit& commit);
// False for bytes that CommitBytes does not make.
bool ParseCommit(std::span<const uint8_t> bytes, JournalCommit& commit);

// Appends records to one file and carries the checksum on.
class JournalAppender {
public:
    explicit JournalAppender(JournalFile& file) : _file(file) {}

    Status Begin(uint32_t usable, uint64_t id);
    // `runs` of the block whose bytes begin at `bytes`. `places` gets for each run where its bytes stand in
    // the file.
    Status Pieces(uint32_t block, const uint8_t* bytes, std::span<const JournalRun> runs,
                  std::vector<uint64_t>& places);
    Status Blocks(std::span<const uint32_t> blocks);
    Status Commit(const JournalCommit& commit);

private:
    Status Record(JournalKind kind);

    JournalFile& _file;
    uint64_t _checksum = 0;
    std::vector<uint8_t> _record;  // header space, contents, checksum space
};

}  // namespace corvane
