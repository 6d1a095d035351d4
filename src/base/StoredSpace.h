// The one range of 4 GiB of addresses in which every pool block lies. A stored pointer is the 32-bit distance
// from the start of this range; distance 0 is null and is never handed out. Main thread only, but for Base().
#pragma once

#include <cstdint>

namespace corvane {

class StoredSpace {
public:
    static constexpr uint32_t kPage = 4096;

    // The start of the range; fixed from the first Allocate to the end of the process.
    static uint8_t* Base() { return _base; }

    // `bytes` zeroed bytes at the lowest free address that is not below `from`, in whole pages; null when
    // none is left. OwnerOf answers `owner` for every address of them.
    static uint8_t* Allocate(uint32_t bytes, void* owner, const uint8_t* from = nullptr);

    // Gives back what Allocate gave, with the same size.
    static void Free(uint8_t* start, uint32_t bytes);

    // Who allocated the page of this address; null for an address that nobody holds, inside the range or not.
    static void* OwnerOf(const void* address);

    static uint32_t DistanceOf(const void* address) {
        return address ? static_cast<uint32_t>(static_cast<const uint8_t*>(address) - _base) : 0;
    }
    template <class T>
    static T* At(uint32_t distance) {
        return distance ? static_cast<T*>(static_cast<void*>(_base + distance)) : nullptr;
    }

    // Bytes handed out and not given back, in whole pages.
    static uint64_t BytesInUse();

private:
    static void Reserve();
    static inline uint8_t* _base = nullptr;
};

}  // namespace corvane
