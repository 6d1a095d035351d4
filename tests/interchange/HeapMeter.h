// Counts what the tests of this folder hold on the heap: their operator new is replaced. One thread only.
#pragma once

#include <cstddef>

namespace corvane {

// Bytes from new that are not given back.
size_t HeapInUse();
// The most there ever were since the last StartHeapPeak.
size_t HeapPeak();
void StartHeapPeak();

}  // namespace corvane
