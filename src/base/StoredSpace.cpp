#include "base/StoredSpace.h"

#include <sys/mman.h>

#include <iterator>
#include <map>

#include "base/Assert.h"

namespace corvane {
namespace {

constexpr uint64_t kSpan = uint64_t{1} << 32;
constexpr uint32_t kPages = static_cast<uint32_t>(kSpan / StoredSpace::kPage);

// Free runs, first page to page count. Page 0 stays out: its distance is null.
std::map<uint32_t, uint32_t> freeRuns;
// The owner of each page; mapped without a reserve, so that only the used stretch costs memory.
void** owners = nullptr;
uint64_t pagesInUse = 0;

uint32_t PagesFor(uint32_t bytes) {
    return static_cast<uint32_t>((uint64_t{bytes} + StoredSpace::kPage - 1) / StoredSpace::kPage);
}

void* Map(uint64_t bytes, int protection) {
    void* p = mmap(nullptr, bytes, protection, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    CORVANE_ASSERT_AS(p != MAP_FAILED, "startPointer");
    return p;
}

// The lowest place at or behind page `from` where `count` pages are free, or 0.
uint32_t FindRun(uint32_t count, uint32_t from) {
    auto run = freeRuns.upper_bound(from);
    if (run != freeRuns.begin()) run = std::prev(run);
    for (; run != freeRuns.end(); ++run) {
        const uint32_t start = run->first < from ? from : run->first;
        const uint32_t end = run->first + run->second;
        if (end > start && end - start >= count) return start;
    }
    return 0;
}

void TakeRun(uint32_t start, uint32_t count) {
    auto run = std::prev(freeRuns.upper_bound(start));
    const uint32_t runStart = run->first, runEnd = run->first + run->second;
    freeRuns.erase(run);
    if (start > runStart) freeRuns[runStart] = start - runStart;
    if (runEnd > start + count) freeRuns[start + count] = runEnd - (start + count);
}

void GiveRun(uint32_t start, uint32_t count) {
    auto next = freeRuns.lower_bound(start);
    if (next != freeRuns.end() && next->first == start + count) {
        count += next->second;
        next = freeRuns.erase(next);
    }
    if (next != freeRuns.begin()) {
        auto before = std::prev(next);
        if (before->first + before->second == start) {
            before->second += count;
            return;
        }
    }
    freeRuns[start] = count;
}

}  // namespace

void StoredSpace::Reserve() {
    _base = static_cast<uint8_t*>(Map(kSpan, PROT_NONE));
    owners = static_cast<void**>(Map(uint64_t{kPages} * sizeof(void*), PROT_READ | PROT_WRITE));
    freeRuns[1] = kPages - 1;
}

uint8_t* StoredSpace::Allocate(uint32_t bytes, void* owner, const uint8_t* from) {
    if (!_base) Reserve();
    const uint32_t count = PagesFor(bytes);
    const uint32_t start = FindRun(count, from ? static_cast<uint32_t>((from - _base) / kPage) : 1);
    if (!start) return nullptr;
    uint8_t* place = _base + uint64_t{start} * kPage;
    if (mprotect(place, uint64_t{count} * kPage, PROT_READ | PROT_WRITE) != 0) return nullptr;
    TakeRun(start, count);
    for (uint32_t i = 0; i < count; ++i) owners[start + i] = owner;
    pagesInUse += count;
    return place;
}

void StoredSpace::Free(uint8_t* place, uint32_t bytes) {
    const uint32_t start = static_cast<uint32_t>((place - _base) / kPage), count = PagesFor(bytes);
    madvise(place, uint64_t{count} * kPage, MADV_DONTNEED);
    mprotect(place, uint64_t{count} * kPage, PROT_NONE);
    for (uint32_t i = 0; i < count; ++i) owners[start + i] = nullptr;
    GiveRun(start, count);
    pagesInUse -= count;
}

void* StoredSpace::OwnerOf(const void* address) {
    const auto* p = static_cast<const uint8_t*>(address);
    if (!_base || p < _base || p >= _base + kSpan) return nullptr;
    return owners[(p - _base) / kPage];
}

uint64_t StoredSpace::BytesInUse() { return pagesInUse * kPage; }

}  // namespace corvane
