#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

#include "play/InputRing.h"
#include "play/MessageQueue.h"

namespace corvane {
namespace {

TEST(InputRing, HoldsNineteenAndGivesThemBackInOrder) {
    InputRing ring;
    ring.SetStamp({1, 2, 3, 4, 5, 6, 7, 8});
    InputRecord record;
    EXPECT_TRUE(ring.Pop(record));
    for (uint32_t round = 0; round < 3; ++round) {
        for (uint32_t i = 0; i < 19; ++i) EXPECT_FALSE(ring.Push(i, round));
        EXPECT_TRUE(ring.Push(99, round)) << "the twentieth finds it full";
        for (uint32_t i = 0; i < 19; ++i) {
            ASSERT_FALSE(ring.Pop(record));
            EXPECT_EQ(record.message, i);
            EXPECT_EQ(record.time, round);
            EXPECT_EQ(record.stamp[7], 8);
        }
        EXPECT_TRUE(ring.IsEmpty());
    }
    ring.Push(1, 1);
    ring.Clear();
    EXPECT_TRUE(ring.Pop(record));
}

TEST(InputRing, LosesNothingBetweenTwoThreads) {
    InputRing ring;
    constexpr uint32_t count = 20000;
    std::thread keyboard([&] {
        for (uint32_t i = 0; i < count;)
            if (ring.Push(i, ~i))
                std::this_thread::yield();
            else
                ++i;
    });
    uint32_t wrong = 0;
    for (uint32_t i = 0; i < count;) {
        InputRecord record;
        if (ring.Pop(record)) {
            std::this_thread::yield();
            continue;
        }
        wrong += record.message != i || record.time != ~i;
        ++i;
    }
    keyboard.join();
    EXPECT_EQ(wrong, 0u);
    EXPECT_TRUE(ring.IsEmpty());
}

TEST(MessageQueue, OneDelivererAtATimeTakesEveryMessageInItsSendersOrder) {
    MessageQueue queue;
    constexpr int senders = 3, each = 20000;
    int delivered = 0;  // plain on purpose: two deliverers at once would be a race
    std::array<int, senders> next{};
    int wrong = 0;
    const auto deliver = [&](const ShortMessage& m) {
        ++delivered;
        int& expected = next[m.status];
        wrong += (m.data1 | m.data2 << 8) != (expected & 0xFFFF);
        ++expected;
    };
    std::vector<std::thread> threads;
    for (int s = 0; s < senders; ++s)
        threads.emplace_back([&, s] {
            for (int i = 0; i < each;)
                if (queue.Put(
                        {static_cast<uint8_t>(s), static_cast<uint8_t>(i), static_cast<uint8_t>(i >> 8)},
                        deliver))
                    ++i;
        });
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(delivered, senders * each) << "nothing may be left behind";
    EXPECT_EQ(wrong, 0);
}

TEST(MessageQueue, GathersWhileHeldAndRefusesWhenFull) {
    MessageQueue queue(true);
    size_t delivered = 0;
    const auto deliver = [&](const ShortMessage&) { ++delivered; };
    for (size_t i = 0; i < MessageQueue::kSize; ++i) ASSERT_TRUE(queue.Put({0x90, 1, 1}, deliver));
    EXPECT_FALSE(queue.Put({0x90, 1, 1}, deliver));
    EXPECT_EQ(delivered, 0u);
    queue.Release(deliver);
    EXPECT_EQ(delivered, MessageQueue::kSize);
    EXPECT_TRUE(queue.Put({0x90, 1, 1}, deliver));
    EXPECT_EQ(delivered, MessageQueue::kSize + 1);
}

}  // namespace
}  // namespace corvane
