// Thickness of what is drawn as a line, at a line distance.
#pragma once

#include <algorithm>
#include <cstdint>

namespace corvane {

// A hundredth part of a line distance, so many times; at least one page unit.
constexpr int32_t WeightOf(int32_t percent, int32_t lineDistance) {
    return std::max<int32_t>(1, percent * lineDistance / 100);
}

// docs/decisions/line-weights.md tells where the figures come from.
constexpr int32_t StaffLineWeight(int32_t lineDistance) { return WeightOf(11, lineDistance); }
constexpr int32_t StemWeight(int32_t lineDistance) { return WeightOf(12, lineDistance); }
constexpr int32_t LedgerLineWeight(int32_t lineDistance) { return WeightOf(16, lineDistance); }
constexpr int32_t BarlineWeight(int32_t lineDistance) { return WeightOf(16, lineDistance); }

}  // namespace corvane
