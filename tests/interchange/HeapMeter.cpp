#include "HeapMeter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

size_t inUse = 0, peak = 0;

void* Take(size_t size) {
    void* place = std::malloc(size);
    if (!place) throw std::bad_alloc();
    inUse += malloc_usable_size(place);
    peak = std::max(peak, inUse);
    return place;
}

void Give(void* place) {
    if (place) inUse -= malloc_usable_size(place);
    std::free(place);
}

}  // namespace

// What the others of the family do by default comes down to these.
void* operator new(size_t size) { return Take(size); }
void operator delete(void* place) noexcept { Give(place); }
void operator delete(void* place, size_t) noexcept { Give(place); }

namespace corvane {

size_t HeapInUse() { return inUse; }
size_t HeapPeak() { return peak; }
void StartHeapPeak() { peak = inUse; }

}  // namespace corvane
