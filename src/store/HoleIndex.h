// For each block, in address order, a bound on its largest hole: finds the first block worth searching in
// logarithmic time, so that first fit does not walk a thousand full blocks.
#pragma once

#include <cstdint>
#include <vector>

namespace corvane {

class HoleIndex {
public:
    // One bound a block, in address order.
    void Rebuild(const std::vector<uint32_t>& bounds);
    void Set(uint32_t place, uint32_t bound);
    // The first place at or behind `from` with a bound of at least `bytes`; the count of places if there is
    // none.
    uint32_t FirstFrom(uint32_t from, uint32_t bytes) const;

private:
    uint32_t _count = 0, _leaves = 1;
    std::vector<uint32_t> _tree = {0, 0};  // a complete binary tree of maxima; the leaves start at _leaves
};

}  // namespace corvane
