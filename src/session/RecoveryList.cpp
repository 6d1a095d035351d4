#include "session/RecoveryList.h"

#include <algorithm>

#include "model/ScoreCheck.h"
#include "session/JournalReader.h"
#include "store/NewMemoryPool.h"

namespace corvane {
namespace {

constexpr const char* kUnsoundStates = "the last changes before the end could not be brought back";

// One state of a journal into the pool.
Status LoadState(const JournalReader& reader, size_t state, NewMemoryPool& pool, LoadReport& report) {
    std::vector<uint8_t> bytes;
    {
        PoolImage image;
        if (!reader.Image(state, image)) return {Fault::Damaged, kInvalidFile};
        const std::unique_ptr<NewMemoryPool> restored = RestorePool(image);
        if (!restored) return {Fault::Damaged, kInvalidFile};
        if (Status status = EncodeScore(*restored, bytes); !status) return status;
    }
    return ReadScore(pool, bytes, &report);
}

}  // namespace

const std::vector<RecoveredScore>& RecoveryList::Find() {
    FindJournals();
    FindRescued();
    std::stable_sort(_scores.begin(), _scores.end(),
                     [](const auto& a, const auto& b) { return a.time > b.time; });
    return _scores;
}

void RecoveryList::FindJournals() {
    for (const std::string& name : _journals.Names()) {
        std::shared_ptr<JournalFile> file = _journals.TakeOver(name);
        if (!file) continue;
        const JournalReader reader(*file);
        const bool whole = name.ends_with(kJournalEnding);
        if (whole && !reader.Known() && file->Size() > 0) continue;  // another version's
        if (!whole || reader.Commits().empty() || !reader.Commits().back().modified) {
            file->Remove();
            continue;
        }
        const JournalCommit& last = reader.Commits().back();
        _scores.push_back({last.title, last.path, last.neverSaved, last.time, name});
        _held[name] = std::move(file);
    }
}

void RecoveryList::FindRescued() {
    std::vector<std::string> names;
    if (_rescued.empty() || !_files.List(_rescued, names)) return;
    for (const std::string& name : names) {
        const std::string path = _rescued + "/" + name;
        const bool listed =
            std::any_of(_scores.begin(), _scores.end(), [&](const auto& s) { return s.source == path; });
        if (name.ends_with(".cvm") && !listed) _scores.push_back({name, name, true, 0, path});
    }
}

Status RecoveryList::Load(const RecoveredScore& score, NewMemoryPool& pool, LoadReport& report) {
    if (const auto held = _held.find(score.source); held != _held.end())
        return LoadJournal(*held->second, pool, report);
    std::vector<uint8_t> bytes;
    if (Status status = _files.Read(score.source, bytes); !status) return status;
    return ReadScore(pool, bytes, &report);
}

// Backwards in growing steps, since a fault of ours may have spoilt the last states of many.
Status RecoveryList::LoadJournal(const JournalFile& file, NewMemoryPool& pool, LoadReport& report) {
    const JournalReader reader(file);
    const size_t count = reader.Commits().size();
    Status status(Fault::Damaged, kInvalidFile);
    for (size_t back = 0; back < count; back = back ? std::max(back + 1, std::min(2 * back, count - 1)) : 1) {
        status = LoadState(reader, count - 1 - back, pool, report);
        if (status && back) report.healed.insert(report.healed.begin(), kUnsoundStates);
        if (status || status.fault() != Fault::Damaged) return status;
    }
    return status;
}

std::function<void()> RecoveryList::Take(const RecoveredScore& score) {
    const std::string source = score.source;
    std::erase_if(_scores, [&](const auto& other) { return other.source == source; });
    const auto held = _held.find(source);
    if (held == _held.end()) return [&files = _files, source] { static_cast<void>(files.Remove(source)); };
    std::shared_ptr<JournalFile> file = std::move(held->second);
    _held.erase(held);
    return [file = std::move(file)] { file->Remove(); };
}

}  // namespace corvane
