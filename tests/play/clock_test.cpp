#include <gtest/gtest.h>

#include <vector>

#include "play/RecordingPort.h"
#include "play/SoundClock.h"

namespace corvane {
namespace {

class Noting : public ClockDealer {
public:
    void Tick(int32_t time, int32_t) override { times.push_back(time); }
    std::vector<int32_t> times;
};

TEST(ManualClock, CallsFourTimesAUnitFromZeroAndOnceMoreAfterTheOutSideIsOff) {
    Noting out;
    ManualClock clock(240, 1, &out);
    EXPECT_FALSE(clock.Fire()) << "not started";
    clock.EnableOut();
    clock.Start();
    EXPECT_TRUE(clock.Advance());
    EXPECT_TRUE(clock.Fire());
    EXPECT_EQ(out.times, (std::vector<int32_t>{0, 0, 0, 0, 1}));
    EXPECT_EQ(clock.Time(), 1);
    clock.DisableOut();
    EXPECT_TRUE(clock.Fire()) << "the one that was armed already";
    EXPECT_FALSE(clock.Fire());
    EXPECT_EQ(out.times.size(), 5u);
}

TEST(ManualClock, AnInSideAloneGetsOneCallback) {
    Noting in;
    ManualClock clock(240, 1, nullptr, &in);
    clock.EnableIn();
    clock.Start();
    EXPECT_FALSE(clock.Advance());
    EXPECT_EQ(in.times.size(), 1u);
}

TEST(SoundClock, OnlyOneAtATimeAndItDatesWhatAPortRecords) {
    RecordingPort port;
    EXPECT_EQ(SoundClock::Instance(), nullptr);
    {
        Noting out;
        ManualClock clock(240, 1, &out);
        EXPECT_EQ(SoundClock::Instance(), &clock);
        clock.EnableOut();
        clock.Start();
        for (int i = 0; i < 3; ++i) clock.Advance();
        port.SendNote(0, 1, 60, 1);
    }
    EXPECT_EQ(SoundClock::Instance(), nullptr);
    port.SendNote(0, 1, 60, 0);
    ASSERT_EQ(port.Messages().size(), 2u);
    EXPECT_EQ(port.Messages()[0].tick, 2);
    EXPECT_EQ(port.Messages()[1].tick, 2) << "the last time seen stays when the clock is gone";
}

}  // namespace
}  // namespace corvane
