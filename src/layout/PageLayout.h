// Where systems stand on their page, staves in their system and measures across it. What the layout of a
// whole score is made of; ScoreBuilder.h holds the single steps.
#pragma once

#include <vector>

#include "model/Relations.h"

namespace corvane {

// Height given to a staff in a system of the least height, and what a page keeps free of its systems, in page
// units.
inline constexpr int32_t kStaffSlot = 400, kSystemReserve = 500;

// From the last line of a braced pair's upper staff to the first line of its lower one, in page units. The
// session sets it at start-up from the person's preferences.
inline int32_t preferredPairDistance = 600;

// The staffs of a system from the top, those of a custom staff one by one.
std::vector<Staff*> StaffsFromTop(const System* system);

// The two staffs of a system that a brace joins, in order; nulls where a connection is no brace over
// neighbours.
struct BracedPair {
    Staff *first = nullptr, *second = nullptr;
};
BracedPair PairOf(const System* system, const Connection* connection);

// Fits measures, staffs and systems of every page.
void LayOutPages(Document* document);

}  // namespace corvane
