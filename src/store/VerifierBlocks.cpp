#include "store/VerifierBlocks.h"

#include "base/StoredSpace.h"
#include "store/ClassInfo.h"
#include "store/NamedClasses.h"
#include "store/NewMemoryPool.h"
#include "store/Verifier.h"

namespace corvane {
namespace {

struct Holes {
    uint64_t count = 0, bytes = 0;
    friend bool operator==(const Holes&, const Holes&) = default;
};

bool IsObjectWord(int16_t word) {
    return word > 0 && word <= ClassCount() && InfoOf(word)->size && word != named::kStaff;
}

// The holes met on the way through a block; false where the way breaks off.
bool WalkBlock(const PoolBlock& block, Holes& holes) {
    for (uint32_t at = 0; at < block.Usable();) {
        const uint8_t* place = block.start + at;
        const uint32_t span = SpanAt(place);
        if (span == 0 || span % kGranule || span > block.Usable() - at) return false;
        if (WordAt(place) == kHoleWord) {
            ++holes.count;
            holes.bytes += span;
        }
        at += span;
    }
    return true;
}

// The holes of the block's list; false for an entry that is no hole of the block.
bool WalkHoleList(const PoolBlock& block, Holes& holes) {
    const uint64_t most = block.Usable() / kGranule;
    for (uint32_t at = block.Trailer().firstHole.Get(); at;) {
        const auto* hole = StoredSpace::At<const Hole>(at);
        const auto offset = static_cast<uint64_t>(reinterpret_cast<const uint8_t*>(hole) - block.start);
        if (!block.Holds(hole) || offset % kGranule || hole->word.Get() != kHoleWord || ++holes.count > most)
            return false;
        holes.bytes += hole->size.Get();
        at = hole->next.Get();
    }
    return true;
}

}  // namespace

uint32_t SpanAt(const uint8_t* place) {
    const int16_t word = WordAt(place);
    if (word == 0) return kGranule;
    if (word == kHoleWord) return reinterpret_cast<const Hole*>(place)->size.Get();
    if (word < 0) return IsRawWord(word) ? RawSpanOfWord(word) : 0;
    return IsObjectWord(word) ? TypedSpan(InfoOf(word)->size) : 0;
}

void CheckBlocks(const NewMemoryPool& pool, std::vector<Finding>& findings) {
    uint64_t total = 0, free = 0;
    const auto add = [&](const PoolBlock& block, const char* text) {
        findings.push_back({0, 0, -1, "block " + std::to_string(block.place + 1) + ": " + text});
    };
    for (uint32_t i = 0; i < pool.BlockCount(); ++i) {
        const PoolBlock& block = pool.Block(i);
        if (block.Trailer().released) continue;
        Holes walked, listed;
        if (block.Trailer().word.Get() != kTrailerWord) add(block, "the trailer's word is gone");
        if (!WalkBlock(block, walked))
            add(block, "a word or a size is impossible");
        else if (!WalkHoleList(block, listed) || walked != listed)
            add(block, "the list of holes is wrong");
        total += block.Usable();
        free += listed.bytes;
    }
    if (findings.empty() && (total != pool.Total() || free != pool.Free()))
        findings.push_back({0, 0, -1, "the counters of bytes are wrong"});
}

}  // namespace corvane
