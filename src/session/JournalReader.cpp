#include "session/JournalReader.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "store/JournalFolder.h"
#include "store/ObjectHeader.h"

namespace corvane {
namespace {

using BlockBytes = std::map<uint32_t, std::vector<uint8_t>>;

// False for runs that do not lie in a block.
bool TakePieces(std::span<const uint8_t> contents, uint32_t usable, BlockBytes& blocks) {
    JournalPiecesHeader header;
    if (contents.size() < sizeof header) return false;
    std::memcpy(&header, contents.data(), sizeof header);
    contents = contents.subspan(sizeof header);
    std::vector<uint8_t>& bytes = blocks[header.block];
    bytes.resize(usable);
    for (uint32_t i = 0; i < header.runs; ++i) {
        JournalRun run;
        if (contents.size() < sizeof run) return false;
        std::memcpy(&run, contents.data(), sizeof run);
        contents = contents.subspan(sizeof run);
        if (run.length > contents.size() || run.offset > usable || run.length > usable - run.offset)
            return false;
        std::copy_n(contents.begin(), run.length, bytes.begin() + run.offset);
        contents = contents.subspan(run.length);
    }
    return contents.empty();
}

std::vector<uint32_t> ListOf(std::span<const uint8_t> contents) {
    std::vector<uint32_t> list(contents.size() / sizeof(uint32_t));
    if (!list.empty()) std::memcpy(list.data(), contents.data(), list.size() * sizeof(uint32_t));
    return list;
}

}  // namespace

template <class Take>
void JournalReader::ForEachRecord(Take take) const {
    uint64_t at = sizeof _header;
    uint64_t sum = JournalChecksum(0, {reinterpret_cast<const uint8_t*>(&_header), sizeof _header});
    std::vector<uint8_t> record;
    for (;;) {
        JournalRecordHeader header;
        constexpr uint64_t kAround = sizeof header + sizeof sum;
        const uint64_t left = _file.Size() - at;
        if (left < kAround || !_file.ReadAt(at, {reinterpret_cast<uint8_t*>(&header), sizeof header})) return;
        if (header.length > left - kAround) return;
        record.resize(header.length + kAround);
        if (!_file.ReadAt(at, record)) return;
        const std::span<const uint8_t> covered(record.data(), header.length + sizeof header);
        sum = JournalChecksum(sum, covered);
        if (std::memcmp(&sum, record.data() + covered.size(), sizeof sum) != 0) return;
        if (!take(header.kind, covered.subspan(sizeof header))) return;
        at += record.size();
    }
}

JournalReader::JournalReader(const JournalFile& file) : _file(file) {
    if (_file.Size() < sizeof _header ||
        !_file.ReadAt(0, {reinterpret_cast<uint8_t*>(&_header), sizeof _header}))
        return;
    _known = _header.magic == kJournalMagic && _header.usable && _header.usable <= kDefaultPoolSize;
    if (!_known) return;
    ForEachRecord([&](JournalKind kind, std::span<const uint8_t> contents) {
        JournalCommit commit;
        if (kind != JournalKind::Commit) return true;
        if (!ParseCommit(contents, commit)) return false;
        _commits.push_back(std::move(commit));
        return true;
    });
}

bool JournalReader::Image(size_t commit, PoolImage& image) const {
    BlockBytes blocks;
    std::vector<uint32_t> list;
    size_t seen = 0;
    bool sound = true;
    ForEachRecord([&](JournalKind kind, std::span<const uint8_t> contents) {
        if (kind == JournalKind::Commit) return seen++ < commit;
        if (kind == JournalKind::Blocks) list = ListOf(contents);
        if (kind == JournalKind::Pieces) sound = TakePieces(contents, _header.usable, blocks);
        return sound;
    });
    image = {_header.usable, _commits[commit].document, {}};
    for (const uint32_t distance : list) {
        const auto block = blocks.find(distance);
        if (block == blocks.end()) return false;
        image.blocks.push_back({distance, std::move(block->second)});
        blocks.erase(block);
    }
    return sound && seen == commit + 1;
}

}  // namespace corvane
