// What the MIDI keyboard played, on its way from the input thread to the main thread's idle tick.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace corvane {

struct InputRecord {
    uint32_t message = 0;  // status, first data, second data, from the lowest byte up
    uint32_t time = 0;     // units of 4 ms, as the clock counts them
    std::array<uint8_t, 8> stamp{};
};

// A ring of 20 that holds 19. One thread pushes, one pops; neither waits nor allocates.
class InputRing {
public:
    static constexpr size_t kSize = 20;

    // Stores a record with the present stamp. True if the ring is full, and nothing is stored. Input thread.
    bool Push(uint32_t message, uint32_t time);
    // Takes the oldest record. True if the ring is empty, and `record` is untouched. Main thread.
    bool Pop(InputRecord& record);
    bool IsEmpty() const;
    // Forgets everything. With no input open.
    void Clear();
    // What Push copies into each record. With no input open.
    void SetStamp(const std::array<uint8_t, 8>& stamp) { _stamp = stamp; }

private:
    std::array<InputRecord, kSize> _records{};
    std::atomic<size_t> _head{0};  // read next; the popping thread's
    std::atomic<size_t> _tail{0};  // written next; the pushing thread's
    std::array<uint8_t, 8> _stamp{};
};

enum class InputMode : uint8_t { RealTime = 0, Step = 1 };

// How the main thread tells the input thread what to keep.
struct InputFlags {
    std::atomic<bool> ignore{false};   // keep nothing
    std::atomic<bool> running{false};  // the take runs: keep messages with the clock's time
    std::atomic<InputMode> mode{InputMode::RealTime};
    std::atomic<int32_t> countOffTicks{0};  // of the take, as the walker tells it when it starts
};
InputFlags& TheInputFlags();

}  // namespace corvane
