// Where a stored pointer in a file departs from the plain rule. DO NOT CHANGE: files rest on it.
#pragma once

#include <cstdint>

namespace corvane {

// What a save adds to the half offset of a pointer, in 16-bit units: the target's file form moves some of its
// ends.
int SaveAddOf(int16_t holder, uint16_t field, int16_t target);

// A pointer to the very start of an object of these classes or of a raw block stands for the object as a
// whole and is stored with half offset 0; a start of any other class is stored as any place, two units back.
// 0 is a raw block.
bool IsSpecialTarget(int16_t target);

}  // namespace corvane
