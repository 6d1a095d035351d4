// A number that stands at any even address: records are packed to 2 bytes.
#pragma once

#include <cstring>
#include <type_traits>

namespace corvane {

template <class T>
class alignas(sizeof(T) < 2 ? 1 : 2) Packed2 {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    T Get() const {
        T value;
        std::memcpy(&value, _bytes, sizeof(T));
        return value;
    }
    void Put(T value) { std::memcpy(_bytes, &value, sizeof(T)); }

private:
    unsigned char _bytes[sizeof(T)];
};

}  // namespace corvane
