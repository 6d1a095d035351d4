#include "store/RepairTable.h"

#include <algorithm>
#include <iterator>

namespace corvane {
namespace {

struct Row {
    int16_t holder;
    uint16_t fields[4];  // 0 for none
    int16_t target;
    int8_t add;
};

// A SimpleStaff, a StaffBot, a Stem and a CrossBeam have their second base elsewhere in the file. The last is
// not treated from a MultiMeasure (105, 20): a reader takes both values there.
constexpr Row kRows[] = {
    {3, {12}, 5, 2},    {5, {42, 46, 54, 58}, 5, 2}, {6, {4}, 5, 2},      {7, {4, 8, 16, 20}, 5, 2},
    {7, {36}, 8, 4},    {8, {38, 42}, 8, 4},         {10, {20}, 107, -2}, {19, {4}, 107, -2},
    {19, {20}, 22, -3}, {21, {16}, 22, -3},          {29, {16}, 22, -3},  {22, {10}, 22, -3},
    {25, {8}, 22, 6},   {32, {4}, 107, -2},          {42, {4}, 107, -2},  {44, {4}, 107, -2},
    {64, {8}, 22, 6},   {107, {14}, 107, -2},
};

constexpr int16_t kSpecial[] = {99, 32, 92, 10, 15, 11, 16, 24, 5, 12, 23, 8, 0};

}  // namespace

int SaveAddOf(int16_t holder, uint16_t field, int16_t target) {
    for (const Row& row : kRows)
        if (row.holder == holder && row.target == target &&
            std::find(std::begin(row.fields), std::end(row.fields), field) != std::end(row.fields))
            return row.add;
    return 0;
}

bool IsSpecialTarget(int16_t target) {
    return std::find(std::begin(kSpecial), std::end(kSpecial), target) != std::end(kSpecial);
}

}  // namespace corvane
