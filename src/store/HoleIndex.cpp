#include "store/HoleIndex.h"

#include <algorithm>

namespace corvane {

void HoleIndex::Rebuild(const std::vector<uint32_t>& bounds) {
    _count = static_cast<uint32_t>(bounds.size());
    _leaves = 1;
    while (_leaves < _count) _leaves *= 2;
    _tree.assign(2 * _leaves, 0);
    std::copy(bounds.begin(), bounds.end(), _tree.begin() + _leaves);
    for (uint32_t i = _leaves - 1; i > 0; --i) _tree[i] = std::max(_tree[2 * i], _tree[2 * i + 1]);
}

void HoleIndex::Set(uint32_t place, uint32_t bound) {
    uint32_t i = _leaves + place;
    _tree[i] = bound;
    for (i /= 2; i > 0; i /= 2) _tree[i] = std::max(_tree[2 * i], _tree[2 * i + 1]);
}

uint32_t HoleIndex::FirstFrom(uint32_t from, uint32_t bytes) const {
    if (from >= _count) return _count;
    uint32_t i = _leaves + from;
    // Up and to the right until a subtree holds a fit, then down to its first leaf.
    while (_tree[i] < bytes) {
        while (i & 1) {
            if (i == 1) return _count;
            i /= 2;
        }
        if (i == 0) return _count;
        ++i;
    }
    while (i < _leaves) i = _tree[2 * i] >= bytes ? 2 * i : 2 * i + 1;
    return std::min(i - _leaves, _count);
}

}  // namespace corvane
