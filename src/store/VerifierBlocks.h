// The proof of a pool's blocks: words, spans, hole lists and counters.
#pragma once

#include <vector>

namespace corvane {

class NewMemoryPool;
struct Finding;

// Adds what it finds; a pool without findings here can be walked.
void CheckBlocks(const NewMemoryPool& pool, std::vector<Finding>& findings);

}  // namespace corvane
