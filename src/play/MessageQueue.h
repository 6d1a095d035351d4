// Lets several threads put messages to one device that takes them from a single thread at a time, with nobody
// waiting.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace corvane {

struct ShortMessage {
    uint8_t status, data1, data2;
};

// Who adds a message also delivers, unless somebody is at it already, who then delivers that one too.
// Messages of one thread keep their order. Holds kSize messages; one more is refused.
class MessageQueue {
public:
    static constexpr size_t kSize = 1024;

    // With `held`, messages only gather until `Release`.
    explicit MessageQueue(bool held = false);

    // Adds a message, then has `deliver(const ShortMessage&)` called, on this thread, for whatever waits.
    // False if the queue is full. Any thread; neither locks nor allocates.
    template <class Deliver>
    bool Put(ShortMessage message, Deliver&& deliver) {
        if (!Add(message)) return false;
        Drain(deliver);
        return true;
    }

    // Delivers what has gathered and lets `Put` deliver from now on. Once, by who held it.
    template <class Deliver>
    void Release(Deliver&& deliver) {
        _busy.store(false);
        Drain(deliver);
    }

private:
    // A slot is free for the turn that its number names, and full one turn later.
    struct Slot {
        std::atomic<size_t> turn;
        ShortMessage message;
    };

    bool Add(ShortMessage message);
    bool Take(ShortMessage& message);  // only by who set _busy
    bool HasMore() const;

    // Looks again after stepping back: a message added meanwhile would have no one else to deliver it.
    template <class Deliver>
    void Drain(Deliver& deliver) {
        while (HasMore() && !_busy.exchange(true)) {
            ShortMessage message;
            while (Take(message)) deliver(message);
            _busy.store(false);
        }
    }

    std::array<Slot, kSize> _slots;
    std::atomic<size_t> _added{0};
    std::atomic<size_t> _taken{0};
    std::atomic<bool> _busy;
};

}  // namespace corvane
