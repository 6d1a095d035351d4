// The proof that a pool holds a sound graph. Knows relations and places, not music; ScoreCheck adds that.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace corvane {

class NewMemoryPool;

struct Finding {
    uint32_t object = 0;      // number as in a file, from 1; 0 for the pool as a whole
    int16_t classNumber = 0;  // 0 for none, negative for a raw block
    int32_t offset = 0;       // of the field, memory form; -1 for the object as a whole
    std::string text;
};

// "object 12 (Note) at 16: next is not mirrored".
std::string TextOf(const Finding& finding);

// Walks the pool once: words and sizes, every stored pointer on a place that its relation allows, rings
// closed and mirrored, parents matching, one Document that is first, texts ended inside their block, counters
// true, nothing that cannot be reached from the Document or from `kept` (what a clipboard holds). At most
// `limit` findings; none means sound. Changes nothing. Linear in the objects.
std::vector<Finding> CheckPool(const NewMemoryPool& pool, std::span<const void* const> kept = {},
                               size_t limit = 20);

}  // namespace corvane
