#include "HeapMeter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

size_t inUse = 0, peak = 0;

void* TakeIfThereIs(size_t size) {
    void* place = std::malloc(size);
    if (!place) return nullptr;
    inUse += malloc_usable_size(place);
    peak = std::max(peak, inUse);
    return place;
}

void* Take(size_t size) {
    void* place = TakeIfThereIs(size);
    if (!place) throw std::bad_alloc();
    return place;
}

void Give(void* place) {
    if (place) inUse -= malloc_usable_size(place);
    std::free(place);
}

}  // namespace

// All of the family: a sanitizer brings its own for each that is not here.
void* operator new(size_t size) { return Take(size); }
void* operator new[](size_t size) { return Take(size); }
void* operator new(size_t size, const std::nothrow_t&) noexcept { return TakeIfThereIs(size); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return TakeIfThereIs(size); }
void operator delete(void* place) noexcept { Give(place); }
void operator delete[](void* place) noexcept { Give(place); }
void operator delete(void* place, size_t) noexcept { Give(place); }
void operator delete[](void* place, size_t) noexcept { Give(place); }
void operator delete(void* place, const std::nothrow_t&) noexcept { Give(place); }
void operator delete[](void* place, const std::nothrow_t&) noexcept { Give(place); }

namespace corvane {

size_t HeapInUse() { return inUse; }
size_t HeapPeak() { return peak; }
void StartHeapPeak() { peak = inUse; }

}  // namespace corvane
