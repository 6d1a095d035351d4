#include "session/JournalWriter.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace corvane {
namespace {

constexpr uint64_t kMostUnflushed = 8 << 20;  // bytes; bounds how long one flush holds the others up
constexpr const char* kMaking = ".making";
constexpr const char* kShortening = ".shorter";

uint64_t NewId() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
}

}  // namespace

JournalWriter::JournalWriter(JournalFolder& folder, std::string name, uint32_t usable)
    : _folder(folder), _name(std::move(name)), _usable(usable) {}

Status JournalWriter::Open(const char* ending, File& made) {
    made = {};
    const std::string name = _name + ending + std::to_string(++_made);
    std::unique_ptr<JournalFile> file;
    if (Status status = _folder.Create(name, file); !status) return status;
    made.file = std::move(file);
    made.appender = std::make_unique<JournalAppender>(*made.file);
    return made.appender->Begin(_usable, NewId());
}

// Neighbouring pieces that differ from what the file holds; their sums become what it will hold.
std::vector<JournalRun> JournalWriter::RunsOfNews(Shadow& shadow, const uint8_t* bytes) const {
    std::vector<JournalRun> runs;
    const bool isNew = shadow.sums.empty();
    const uint32_t count = (_usable + kJournalPiece - 1) / kJournalPiece;
    shadow.sums.resize(count);
    shadow.places.resize(count);
    for (uint32_t i = 0; i < count; ++i) {
        const uint32_t offset = i * kJournalPiece, length = std::min(kJournalPiece, _usable - offset);
        const uint64_t sum = JournalChecksum(0, {bytes + offset, length});
        if (!isNew && sum == shadow.sums[i]) continue;
        shadow.sums[i] = sum;
        if (!runs.empty() && runs.back().offset + runs.back().length == offset)
            runs.back().length += length;
        else
            runs.push_back({offset, length});
    }
    return runs;
}

// Notes where the runs just written stand; `_places` tells it.
void JournalWriter::Place(Shadow& shadow, const std::vector<JournalRun>& runs) const {
    for (size_t i = 0; i < runs.size(); ++i)
        for (uint32_t at = 0; at < runs[i].length; at += kJournalPiece)
            shadow.places[(runs[i].offset + at) / kJournalPiece] = _places[i] + at;
}

Status JournalWriter::Append(File& file, uint32_t block, const uint8_t* bytes) {
    Shadow& shadow = file.shadows[block];
    const std::vector<JournalRun> runs = RunsOfNews(shadow, bytes);
    if (runs.empty()) return Status::Ok();
    const uint64_t before = file.file->Size();
    Status status = file.appender->Pieces(block, bytes, runs, _places);
    if (!status) return status;
    Place(shadow, runs);
    _unflushed += file.file->Size() - before;
    if (_unflushed < kMostUnflushed) return status;
    _unflushed = 0;
    return file.file->Flush();
}

void JournalWriter::TakeBlock(uint32_t block, const uint8_t* bytes) {
    if (_silent) return;
    _complete = false;
    Status status;
    if (!_main) status = Open(kMaking, _main);
    if (status) status = Append(_main, block, bytes);
    if (!status) return Fail();
    if (_shorter) _toCopy.insert(block);
}

Status JournalWriter::Close(const JournalCommit& commit) {
    Status status = _main.appender->Commit(commit);
    if (status) status = _main.file->Flush();
    if (!status || _named) return status;
    _named = true;  // whatever comes of it: the file holds a whole state by now
    return _main.file->Rename(_name);
}

void JournalWriter::Commit(const JournalCommit& commit, std::vector<uint32_t> blocks) {
    if (_silent || !_main) return;
    Status status;
    if (blocks != _blocks) {
        status = _main.appender->Blocks(blocks);
        const std::unordered_set<uint32_t> living(blocks.begin(), blocks.end());
        std::erase_if(_main.shadows, [&](const auto& shadow) { return !living.contains(shadow.first); });
        std::erase_if(_toCopy, [&](uint32_t block) { return !living.contains(block); });
        _blocks = std::move(blocks);
    }
    if (status) status = Close(commit);
    if (!status) return Fail();
    _unflushed = 0;
    _complete = true;
    _last = commit;
    _safe = commit.sequence;
    RemoveFormer();
}

void JournalWriter::RemoveFormer() {
    for (const auto& remove : _former) remove();
    _former.clear();
}

// The last file stays, and stays held, until a new one has taken its name.
void JournalWriter::Fail() {
    EndTidying();
    if (_main && _named)
        _former.push_back([file = _main.file] { file->Remove(); });
    else if (_main)
        _main.file->Remove();
    _main = {};
    _named = false;
    _blocks.clear();
    _silent = true;
    ++_failures;
}

void JournalWriter::Restart() { _silent = false; }

void JournalWriter::Remove() {
    EndTidying();
    if (_main) _main.file->Remove();
    RemoveFormer();
    Leave();
}

void JournalWriter::Leave() {
    EndTidying();
    _former.clear();
    _main = {};
    _named = false;
    _silent = true;
}

// ---- a shorter file

bool JournalWriter::Tidy() {
    constexpr uint64_t kFactor = 3, kAtLeast = 1 << 20;
    constexpr int kBlocksAStep = 8;
    if (_silent || !_main || !_named) return false;
    const uint64_t most = std::max(_tidyAbove, kFactor * _blocks.size() * _usable + kAtLeast);
    if (!_shorter && (!_complete || _main.file->Size() <= most)) return false;
    if (_shorter && _toCopy.empty() && !_complete) return false;
    Status status;
    if (!_shorter) status = StartTidying();
    for (int i = 0; i < kBlocksAStep && status && !_toCopy.empty(); ++i) {
        const uint32_t block = *_toCopy.begin();
        _toCopy.erase(_toCopy.begin());
        status = CopyBlock(block);
    }
    if (status && _toCopy.empty() && _complete) status = FinishTidying();
    if (status) return true;
    // Should the present file be the damaged one, all blocks must come again.
    if (status.fault() == Fault::Damaged) Fail();
    _tidyAbove = 2 * (_main ? _main.file->Size() : 0);
    EndTidying();
    return true;
}

Status JournalWriter::StartTidying() {
    _toCopy.insert(_blocks.begin(), _blocks.end());
    return Open(kShortening, _shorter);
}

// As the present file holds it.
Status JournalWriter::CopyBlock(uint32_t block) {
    const Shadow& shadow = _main.shadows[block];
    _bytes.resize(_usable);
    for (size_t i = 0; i < shadow.places.size();) {
        // Pieces that stand behind each other are read together.
        size_t end = i + 1;
        while (end < shadow.places.size() && shadow.places[end] == shadow.places[end - 1] + kJournalPiece)
            ++end;
        const size_t from = i * kJournalPiece, to = std::min<size_t>(end * kJournalPiece, _usable);
        if (Status status = _main.file->ReadAt(shadow.places[i], {_bytes.data() + from, to - from}); !status)
            return status;
        i = end;
    }
    if (Status status = Append(_shorter, block, _bytes.data()); !status) return status;
    if (_shorter.shadows[block].sums == shadow.sums) return Status::Ok();
    return {Fault::Damaged, "The disk does not keep what is written to it"};
}

Status JournalWriter::FinishTidying() {
    Status status = _shorter.appender->Blocks(_blocks);
    if (status) status = _shorter.appender->Commit(_last);
    if (status) status = _shorter.file->Flush();
    if (status) status = _shorter.file->Rename(_name);
    if (!status) return status;
    _main = std::move(_shorter);
    _shorter = {};
    _tidyAbove = 0;
    return status;
}

void JournalWriter::EndTidying() {
    if (_shorter) _shorter.file->Remove();
    _shorter = {};
    _toCopy.clear();
}

}  // namespace corvane
