#include "walker_Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<bool> counting{false};
std::atomic<int> allocations{0};
}  // namespace

void* operator new(std::size_t size) {
    if (counting) ++allocations;
    if (void* place = std::malloc(size ? size : 1)) return place;
    throw std::bad_alloc();
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }

namespace corvane {

void StartCountingAllocations() {
    allocations = 0;
    counting = true;
}

int StopCountingAllocations() {
    counting = false;
    return allocations;
}

}  // namespace corvane
