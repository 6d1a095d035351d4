#include "session/JournalFormat.h"

#include <cstring>

#include "store/JournalFolder.h"

namespace corvane {
namespace {

constexpr uint64_t kOdd = 0x9E3779B97F4A7C15;

uint64_t Step(uint64_t sum, uint64_t word) {
    sum = (sum ^ word) * kOdd;
    return sum ^ sum >> 29;
}

template <class T>
void Append(std::vector<uint8_t>& out, const T& value) {
    const size_t at = out.size();
    out.resize(at + sizeof value);
    std::memcpy(out.data() + at, &value, sizeof value);
}

void AppendText(std::vector<uint8_t>& out, const std::string& text) {
    Append(out, static_cast<uint32_t>(text.size()));
    out.insert(out.end(), text.begin(), text.end());
}

template <class T>
bool Take(std::span<const uint8_t>& from, T& value) {
    if (from.size() < sizeof value) return false;
    std::memcpy(&value, from.data(), sizeof value);
    from = from.subspan(sizeof value);
    return true;
}

bool TakeText(std::span<const uint8_t>& from, std::string& text) {
    uint32_t length = 0;
    if (!Take(from, length) || length > from.size()) return false;
    text.assign(from.begin(), from.begin() + length);
    from = from.subspan(length);
    return true;
}

}  // namespace

uint64_t JournalChecksum(uint64_t before, std::span<const uint8_t> bytes) {
    uint64_t sum = Step(before, bytes.size());
    while (bytes.size() >= sizeof(uint64_t)) {
        uint64_t word;
        std::memcpy(&word, bytes.data(), sizeof word);
        sum = Step(sum, word);
        bytes = bytes.subspan(sizeof word);
    }
    uint64_t rest = 0;
    if (!bytes.empty()) std::memcpy(&rest, bytes.data(), bytes.size());
    return Step(sum, rest);
}

std::vector<uint8_t> CommitBytes(const JournalCommit& commit) {
    std::vector<uint8_t> out;
    Append(out, commit.sequence);
    Append(out, commit.time);
    Append(out, commit.document);
    Append(out, static_cast<uint32_t>(commit.modified | commit.neverSaved << 1));
    AppendText(out, commit.title);
    AppendText(out, commit.path);
    return out;
}

bool ParseCommit(std::span<const uint8_t> bytes, JournalCommit& commit) {
    uint32_t marks = 0;
    const bool whole = Take(bytes, commit.sequence) && Take(bytes, commit.time) &&
                       Take(bytes, commit.document) && Take(bytes, marks) && TakeText(bytes, commit.title) &&
                       TakeText(bytes, commit.path);
    commit.modified = marks & 1;
    commit.neverSaved = marks & 2;
    return whole && bytes.empty() && marks < 4;
}

Status JournalAppender::Begin(uint32_t usable, uint64_t id) {
    const JournalHeader header{kJournalMagic, usable, 0, id};
    _record.clear();
    Append(_record, header);
    _checksum = JournalChecksum(0, _record);
    return _file.Append(_record);
}

Status JournalAppender::Pieces(uint32_t block, const uint8_t* bytes, std::span<const JournalRun> runs,
                               std::vector<uint64_t>& places) {
    _record.assign(sizeof(JournalRecordHeader), 0);
    Append(_record, JournalPiecesHeader{block, static_cast<uint32_t>(runs.size())});
    places.clear();
    for (const JournalRun& run : runs) {
        Append(_record, run);
        places.push_back(_file.Size() + _record.size());
        _record.insert(_record.end(), bytes + run.offset, bytes + run.offset + run.length);
    }
    return Record(JournalKind::Pieces);
}

Status JournalAppender::Blocks(std::span<const uint32_t> blocks) {
    _record.assign(sizeof(JournalRecordHeader), 0);
    for (const uint32_t block : blocks) Append(_record, block);
    return Record(JournalKind::Blocks);
}

Status JournalAppender::Commit(const JournalCommit& commit) {
    _record.assign(sizeof(JournalRecordHeader), 0);
    const std::vector<uint8_t> bytes = CommitBytes(commit);
    _record.insert(_record.end(), bytes.begin(), bytes.end());
    return Record(JournalKind::Commit);
}

Status JournalAppender::Record(JournalKind kind) {
    const JournalRecordHeader header{kind, static_cast<uint32_t>(_record.size() - sizeof header)};
    std::memcpy(_record.data(), &header, sizeof header);
    _checksum = JournalChecksum(_checksum, _record);
    Append(_record, _checksum);
    return _file.Append(_record);
}

}  // namespace corvane
