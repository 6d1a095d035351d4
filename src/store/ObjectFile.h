// Score files: what a pool looks like as bytes, and back. docs/file-format.md tells the format.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/Status.h"
#include "store/Verifier.h"

namespace corvane {

class NewMemoryPool;
class ObjectIndexBitmap;

inline constexpr const char* kInvalidFile = "Invalid file";
inline constexpr const char* kNoMemoryToOpen =
    "Not enough memory to open this file; assign more memory to the program!";

// What a load has to tell.
struct LoadReport {
    std::vector<std::string> healed;  // what was set right without guessing, a line each
    std::vector<Finding> faults;      // why the file was refused; empty after a good load
};

// Reads a score into an empty pool and proves the graph: ids, sizes, every pointer on a place that its
// relation allows, every ring closed and mirrored, one Document first. What can be healed without guessing is
// healed; for anything else the answer is Damaged ("Invalid file") and the pool is empty again, as it came.
// NoSpace where the address space is used up. Undo is not armed. Linear in the bytes. `index` gets the
// numbers of the objects, for who has more to prove.
Status LoadScore(NewMemoryPool& pool, std::span<const uint8_t> bytes, LoadReport* report = nullptr,
                 std::unique_ptr<const ObjectIndexBitmap>* index = nullptr);

// Gives back all that a pool holds: as new, one block and nothing in it.
void EmptyPool(NewMemoryPool& pool);

// The bytes of the pool's score, in place of what `out` held. The pool is read only: what walks it may go on.
// Refused, in words, for a pool without a Document or with more than 16,777,215 objects; then `out` is empty.
// Linear.
Status EncodeScore(const NewMemoryPool& pool, std::vector<uint8_t>& out);

}  // namespace corvane
