// Score files: what a pool looks like as bytes, and back. docs/file-format.md tells the format.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/Status.h"

namespace corvane {

class NewMemoryPool;

// Reads a score into an empty pool and proves the graph: ids, sizes, every pointer on a place that its
// relation allows, every ring closed and mirrored, one Document first. What is healed without guessing is
// told in `healed`, a line each; for anything else the answer is Damaged ("Invalid file") and the pool is
// empty again, as it came. Undo is not armed. A pool of another size than the default is filled with blocks
// of its size. Linear in the bytes.
Status LoadScore(NewMemoryPool& pool, std::span<const uint8_t> bytes,
                 std::vector<std::string>* healed = nullptr);

// Why the last LoadScore refused, for `check` and for reports of a bug: offset and reason. Empty after a good
// load.
const std::string& LastLoadFault();

// The bytes of the pool's score, in place of what `out` held. The pool is read only: what walks it may go on.
// Refused, in words, for a pool without a Document or with more than 16,777,215 objects; then `out` is empty.
// Linear.
Status EncodeScore(const NewMemoryPool& pool, std::vector<uint8_t>& out);

}  // namespace corvane
