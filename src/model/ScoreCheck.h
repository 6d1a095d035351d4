// What must hold of a score beyond sound rings and pointers, checked on a live score and healed on a load.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/Status.h"
#include "store/ObjectFile.h"

namespace corvane {

class NewMemoryPool;

// CheckPool, and where that finds nothing also: numbers and counts of pages, systems and measures, use counts
// of symbols and time elements, every crossing in its measure and its staff, voices numbered, times in order.
// None means sound. Changes nothing. Linear; fast enough to run after every edit of a test.
std::vector<Finding> CheckScore(const NewMemoryPool& pool, std::span<const void* const> kept = {},
                                size_t limit = 20);

// A whole score from the bytes of a file: LoadScore, then the same proof. Counts and numbers that the score
// itself tells are set right and told in the report; other faults refuse the file ("Invalid file") and leave
// the pool empty.
Status ReadScore(NewMemoryPool& pool, std::span<const uint8_t> bytes, LoadReport* report = nullptr);

}  // namespace corvane
