// The proof of a pool's blocks: words, spans, hole lists and counters.
#pragma once

#include <cstdint>
#include <vector>

namespace corvane {

class NewMemoryPool;
struct Finding;

// Bytes that what stands at a place of a block takes, its word included; 0 for what cannot stand there. A
// hole's are not judged.
uint32_t SpanAt(const uint8_t* place);

// Adds what it finds; a pool without findings here can be walked.
void CheckBlocks(const NewMemoryPool& pool, std::vector<Finding>& findings);

}  // namespace corvane
