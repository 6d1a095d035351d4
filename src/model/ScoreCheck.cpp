#include "model/ScoreCheck.h"

#include <array>
#include <cstring>

#include "model/ScoreCheckRules.h"
#include "store/NewMemoryPool.h"
#include "store/VerifierEnds.h"
#include "store/VerifierGraph.h"

namespace corvane {
namespace {

using RuleTable = std::array<std::vector<void (*)(ScoreProof&, void*)>, kClassCapacity>;

const RuleTable& Rules() {
    static const RuleTable table = [] {
        RuleTable rules;
        for (const auto& part : {SkeletonRules(), MusicRules(), TimeRules()})
            for (const ScoreRule& rule : part)
                rules[static_cast<size_t>(rule.classNumber)].push_back(rule.check);
        return rules;
    }();
    return table;
}

// Child ends that an object may leave unlinked: a symbol is listed or a part, a staff and a text need not
// stand in the part list.
struct {
    int16_t classNumber;
    uint16_t next;
} constexpr kFreeEnds[] = {{23, 4}, {23, 8}, {24, 4}, {24, 8}, {5, 54}, {7, 16}, {96, 12}};

bool MayBeFree(int16_t number, uint16_t next) {
    for (const auto& end : kFreeEnds)
        if (end.classNumber == number && end.next == next) return true;
    return false;
}

}  // namespace

ScoreProof::ScoreProof(const NewMemoryPool& pool, const ObjectIndexBitmap& index, bool healing, size_t limit)
    : document(static_cast<Document*>(pool.DocumentObject())),
      docStaffCount(documentDocStaffs.Count(document)),
      _pool(pool),
      _index(index),
      _healing(healing),
      _limit(limit) {}

void ScoreProof::Tell(Weight weight, const void* object, int32_t offset, const char* text) {
    if ((_healing && weight == Weight::Slight) || findings.size() >= _limit) return;
    const ObjectIndexBitmap::Object found = _index.Find(object);
    if (!found.start) return findings.push_back({0, 0, -1, text});
    const auto place = static_cast<int32_t>(static_cast<const uint8_t*>(object) - found.start);
    findings.push_back(
        {_index.NumberOf(found), ClassNumberOf(found.start), offset < 0 ? -1 : place + offset, text});
}

std::vector<std::string> ScoreProof::HealedLines() const {
    std::vector<std::string> lines;
    for (const auto& [what, count] : _healed)
        lines.push_back(what + " (" + std::to_string(count) + ", set right)");
    return lines;
}

void ScoreProof::CheckMembership(void* object, int16_t number) {
    for (const ChildEnd& end : EndsOf(number).children) {
        uint32_t next;
        std::memcpy(&next, static_cast<const uint8_t*>(object) + end.next, sizeof next);
        if (!next && !MayBeFree(number, end.next))
            Tell(Weight::Grave, object, end.next, "the object has no parent");
    }
}

void ScoreProof::Run(std::span<const void* const> kept) {
    if (!kept.empty()) {
        std::vector<Finding> none;
        for (const void* object : VerifierGraph(_pool, _index, none, 0).Unreached({})) _apart.insert(object);
    }
    UseCounts uses;
    // Rules follow parents: first every object must have its own.
    ForEachObject([&](void* object, int16_t number) {
        if (IsOfScore(object)) CheckMembership(object, number);
        uses.Take(object, number);
    });
    if (!findings.empty()) return;
    const RuleTable& rules = Rules();
    ForEachObject([&](void* object, int16_t number) {
        const auto& checks = rules[static_cast<size_t>(number)];
        if (checks.empty() || !IsOfScore(object)) return;
        for (const auto check : checks) check(*this, object);
    });
    CheckSkeleton(*this);
    CheckUses(*this, uses);
}

std::vector<Finding> CheckScore(const NewMemoryPool& pool, std::span<const void* const> kept, size_t limit) {
    std::vector<Finding> findings = CheckPool(pool, kept, limit);
    if (!findings.empty()) return findings;
    const ObjectIndexBitmap index(pool);
    ScoreProof proof(pool, index, false, limit);
    proof.Run(kept);
    return std::move(proof.findings);
}

Status ReadScore(NewMemoryPool& pool, std::span<const uint8_t> bytes, LoadReport* report) {
    constexpr size_t kLimit = 20;
    LoadReport unseen;
    LoadReport& told = report ? *report : unseen;
    std::unique_ptr<const ObjectIndexBitmap> index;
    if (Status status = LoadScore(pool, bytes, &told, &index); !status) return status;
    const PoolScope scope(&pool);
    ScoreProof proof(pool, *index, true, kLimit);
    proof.Run({});
    if (!proof.findings.empty()) {
        told.faults = std::move(proof.findings);
        told.healed.clear();
        EmptyPool(pool);
        return {Fault::Damaged, kInvalidFile};
    }
    for (std::string& line : proof.HealedLines()) told.healed.push_back(std::move(line));
    return Status::Ok();
}

}  // namespace corvane
