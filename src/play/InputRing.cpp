#include "play/InputRing.h"

namespace corvane {
namespace {
constexpr size_t Behind(size_t index) { return (index + 1) % InputRing::kSize; }
}  // namespace

bool InputRing::Push(uint32_t message, uint32_t time) {
    const size_t tail = _tail.load(std::memory_order_relaxed);
    if (Behind(tail) == _head.load(std::memory_order_acquire)) return true;
    _records[tail] = {message, time, _stamp};
    _tail.store(Behind(tail), std::memory_order_release);
    return false;
}

bool InputRing::Pop(InputRecord& record) {
    const size_t head = _head.load(std::memory_order_relaxed);
    if (head == _tail.load(std::memory_order_acquire)) return true;
    record = _records[head];
    _head.store(Behind(head), std::memory_order_release);
    return false;
}

bool InputRing::IsEmpty() const {
    return _head.load(std::memory_order_acquire) == _tail.load(std::memory_order_acquire);
}

void InputRing::Clear() {
    _head = 0;
    _tail = 0;
}

InputFlags& TheInputFlags() {
    static InputFlags flags;
    return flags;
}

}  // namespace corvane
