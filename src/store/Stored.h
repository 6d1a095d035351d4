// Fields of records. Reading is plain; every write goes through the write barrier first, so that undo sees
// it. A field lives in a pool of the current score; main thread only for writes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/StoredSpace.h"
#include "store/Packed.h"

namespace corvane {

// The write barrier: to be called before any of these bytes of an object in the current pool changes. Null is
// ignored.
void Touch(const void* place, size_t bytes);

// A number of a record. `field = value` touches and writes.
template <class T>
class Stored {
public:
    Stored() = delete;
    Stored(const Stored&) = delete;
    operator T() const { return _value.Get(); }
    T Get() const { return _value.Get(); }
    Stored& operator=(T value) {
        Touch(this, sizeof *this);
        _value.Put(value);
        return *this;
    }
    Stored& operator=(const Stored& other) { return *this = other.Get(); }
    Stored& operator+=(T value) { return *this = static_cast<T>(Get() + value); }
    Stored& operator-=(T value) { return *this = static_cast<T>(Get() - value); }

private:
    Packed2<T> _value;
};

// A stored pointer: a 32-bit distance from the start of the stored space. `pointer = object` touches and
// writes.
template <class T>
class Ptr {
public:
    Ptr() = delete;
    Ptr(const Ptr&) = delete;
    T* Get() const { return StoredSpace::At<T>(_distance.Get()); }
    operator T*() const { return Get(); }
    T* operator->() const { return Get(); }
    Ptr& operator=(T* target) {
        Touch(this, sizeof *this);
        _distance.Put(StoredSpace::DistanceOf(target));
        return *this;
    }
    Ptr& operator=(const Ptr& other) { return *this = other.Get(); }
    uint32_t Distance() const { return _distance.Get(); }

private:
    Packed2<uint32_t> _distance;
};

// Bytes of a record that no field names. They are carried through files as they are.
template <int Count>
class Filler {
public:
    uint8_t operator[](int i) const { return _bytes[i]; }
    void Put(int i, uint8_t value) {
        Touch(_bytes + i, 1);
        _bytes[i] = value;
    }

private:
    uint8_t _bytes[Count];
};

}  // namespace corvane
