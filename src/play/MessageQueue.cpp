#include "play/MessageQueue.h"

namespace corvane {

MessageQueue::MessageQueue(bool held) : _busy(held) {
    for (size_t i = 0; i < kSize; ++i) _slots[i].turn.store(i, std::memory_order_relaxed);
}

bool MessageQueue::Add(ShortMessage message) {
    size_t place = _added.load(std::memory_order_relaxed);
    for (;;) {
        Slot& slot = _slots[place % kSize];
        const size_t turn = slot.turn.load(std::memory_order_acquire);
        if (turn == place) {
            if (!_added.compare_exchange_weak(place, place + 1, std::memory_order_relaxed)) continue;
            slot.message = message;
            slot.turn.store(place + 1);
            return true;
        }
        if (turn < place) return false;  // still full from the turn before
        place = _added.load(std::memory_order_relaxed);
    }
}

bool MessageQueue::Take(ShortMessage& message) {
    const size_t place = _taken.load(std::memory_order_relaxed);
    Slot& slot = _slots[place % kSize];
    if (slot.turn.load(std::memory_order_acquire) != place + 1) return false;
    message = slot.message;
    slot.turn.store(place + kSize, std::memory_order_release);
    _taken.store(place + 1);
    return true;
}

bool MessageQueue::HasMore() const {
    const size_t place = _taken.load();
    return _slots[place % kSize].turn.load() == place + 1;
}

}  // namespace corvane
