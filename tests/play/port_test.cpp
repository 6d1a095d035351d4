#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "base/Notify.h"
#include "play/RecordingPort.h"
#include "play/SoundPort.h"

namespace corvane {
namespace {

std::vector<std::string> told;

void Collect(Severity, std::string_view text) { told.emplace_back(text); }

// Has as many devices as it is told, of which some could not be opened.
class BrokenPort : public RecordingPort {
public:
    BrokenPort(int16_t devices, std::set<int16_t> closed)
        : RecordingPort(devices), _closed(std::move(closed)) {}

protected:
    bool IsOpen(int16_t port) const override { return _closed.count(port) == 0; }
    bool Send(int16_t port, uint8_t status, uint8_t data1, uint8_t data2) override {
        return IsOpen(port) && RecordingPort::Send(port, status, data1, data2);
    }

private:
    std::set<int16_t> _closed;
};

class QuietingPort : public RecordingPort {
public:
    using RecordingPort::RecordingPort;
    std::vector<int16_t> wasReset;

protected:
    void ResetDevice(int16_t port) override { wasReset.push_back(port); }
};

void ExpectSent(const RecordingPort& port, const std::vector<SentMessage>& expected) {
    const auto sent = port.Messages();
    ASSERT_EQ(sent.size(), expected.size());
    for (size_t i = 0; i < sent.size(); ++i)
        EXPECT_EQ(sent[i], expected[i]) << "message " << i << ": " << int{sent[i].status} << ' '
                                        << int{sent[i].data1} << ' ' << int{sent[i].data2};
}

TEST(SoundPort, RequestsBecomeTheirMessages) {
    RecordingPort port(2);
    port.SendNote(-1, 1, 60, 100);
    port.SendNote(1, 16, 127, 0);
    port.SetVolume(0, 10, 127);
    port.SetPan(0, 2, 64);
    port.SetInstrument(0, 1, 128);
    port.SetInstrument(0, 1, 0);
    port.SendController(-1, 3, 64, 127);
    port.SendNote(0, 1, 0, 200);
    ExpectSent(port, {{0, -1, 0x90, 60, 100},
                      {0, 1, 0x9F, 127, 0},
                      {0, 0, 0xB9, 7, 127},
                      {0, 0, 0xB1, 10, 64},
                      {0, 0, 0xC0, 127, 0},
                      {0, 0, 0xC0, 255, 0},
                      {0, -1, 0xB2, 64, 127},
                      {0, 0, 0x90, 0, 127}});
}

TEST(SoundPort, WhatCannotBeSentIsDroppedInSilence) {
    RecordingPort port(2);
    for (const int16_t absent : {SoundPort::kNone, int16_t{-2}, int16_t{2}, int16_t{32767}}) {
        port.SendNote(absent, 1, 60, 100);
        port.SetVolume(absent, 17, 100);
        port.SetInstrument(absent, 1, 129);
    }
    port.SendNote(0, 1, -1, 100);
    port.SendNote(0, 1, 128, 100);
    port.SendNote(0, 0, 60, 100);
    port.SendNote(0, 17, 60, 100);
    port.SetVolume(0, 0, 100);
    EXPECT_TRUE(port.Messages().empty());
}

TEST(SoundPort, ADeviceIsReachedOnlyIfTheOneBeforeItIsOpen) {
    BrokenPort port(4, {-1, 2});
    for (int16_t p = -1; p < 4; ++p) port.SendNote(p, 1, 60, 100);
    ExpectSent(port, {{0, 1, 0x90, 60, 100}});
}

TEST(SoundPortDeathTest, OurOwnMistakesAssert) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(RecordingPort(1).SetVolume(0, 17, 100), "Assertion \\(channel <= 16\\)");
    EXPECT_DEATH(RecordingPort(1).SetVolume(0, 1, 128), "Assertion \\(volume <= 127\\)");
    EXPECT_DEATH(RecordingPort(1).SetInstrument(0, 1, 129), "Assertion \\(instrument <= 128\\)");
    EXPECT_DEATH(
        {
            RecordingPort one;
            RecordingPort two;
        },
        "Assertion \\(!_instance\\)");
}

TEST(SoundPort, SilenceStopsWhatSoundsThenEveryUsedChannelThenTheDevices) {
    QuietingPort port(1);
    port.SendNote(0, 1, 60, 90);
    port.SendNote(0, 1, 64, 90);
    port.SendNote(0, 1, 127, 90);
    port.SendNote(0, 1, 60, 0);  // stopped by the score itself
    port.SendNote(-1, 16, 0, 90);
    port.SetVolume(-1, 2, 100);
    port.Clear();
    port.Silence();
    const std::vector<SentMessage> channels = {{0, -1, 0xB1, 64, 0}, {0, -1, 0xB1, 123, 0},
                                               {0, -1, 0xBF, 64, 0}, {0, -1, 0xBF, 123, 0},
                                               {0, 0, 0xB0, 64, 0},  {0, 0, 0xB0, 123, 0}};
    std::vector<SentMessage> all = {{0, -1, 0x9F, 0, 0}, {0, 0, 0x90, 64, 0}, {0, 0, 0x90, 127, 0}};
    all.insert(all.end(), channels.begin(), channels.end());
    ExpectSent(port, all);
    EXPECT_EQ(port.wasReset, (std::vector<int16_t>{-1, 0}));

    port.Clear();
    port.Reset();
    ExpectSent(port, channels);
}

TEST(SoundPort, PanicReachesEveryChannelOfADeviceThatNobodyHasUsed) {
    QuietingPort port(1);
    port.Panic();
    std::set<uint8_t> stopped;
    for (const SentMessage& sent : port.Messages()) {
        EXPECT_EQ(sent.port, 0) << "the synthesiser is not woken for it";
        if (sent.data1 == 123) stopped.insert(sent.status);
    }
    EXPECT_EQ(stopped.size(), 16u);
    EXPECT_EQ(port.wasReset, (std::vector<int16_t>{-1, 0}));
}

TEST(SoundPort, TheInstanceIsMadeOnRequestAndFreedByClose) {
    static int made = 0;
    EXPECT_EQ(SoundPort::Instance(), nullptr) << "without a factory";
    SoundPort::SetFactory([]() -> std::unique_ptr<SoundPort> {
        ++made;
        return std::make_unique<RecordingPort>();
    });
    EXPECT_EQ(SoundPort::Existing(), nullptr);
    SoundPort* port = SoundPort::Instance();
    EXPECT_EQ(SoundPort::Instance(), port);
    SoundPort::Close();
    EXPECT_EQ(SoundPort::Existing(), nullptr);
    {
        RecordingPort own;
        EXPECT_EQ(SoundPort::Instance(), &own);
        SoundPort::Close();
        EXPECT_EQ(SoundPort::Existing(), &own) << "somebody else's port stays";
    }
    SoundPort::Instance();
    SoundPort::Close();
    EXPECT_EQ(made, 2);
    SoundPort::SetFactory({});
}

TEST(SoundPort, TheKeyboardIsEchoedAsNotesAndKeptOnlyWhileAsked) {
    RecordingPort port(1);
    constexpr uint32_t on = 0x90 | 60 << 8 | 80 << 16, off = 0x83 | 60 << 8 | 40 << 16;
    port.EchoInput(on);
    EXPECT_TRUE(port.Messages().empty()) << "no thru port at first";
    SoundPort::SetThruPort(0);
    SoundPort::SetThruChannel(5);
    port.EchoInput(on);
    port.RecordInput(off);
    ExpectSent(port, {{0, 0, 0x94, 60, 80}, {0, 0, 0x94, 60, 0}});
    EXPECT_TRUE(port.Input().IsEmpty()) << "no take runs";

    TheInputFlags().mode = InputMode::Step;
    port.RecordInput(on);
    TheInputFlags().ignore = true;
    port.RecordInput(off);
    InputRecord record;
    EXPECT_FALSE(port.Input().Pop(record));
    EXPECT_EQ(record.message, on);
    EXPECT_TRUE(port.Input().IsEmpty());
    TheInputFlags().ignore = false;
    TheInputFlags().mode = InputMode::RealTime;
    SoundPort::SetThruPort(SoundPort::kNone);
    SoundPort::SetThruChannel(SoundPort::kNone);
}

TEST(SoundPort, AnEchoedKeyEndsWhereItBeganWhateverWasChosenMeanwhile) {
    RecordingPort port(2);
    const auto on = [](uint32_t key) { return 0x90 | key << 8 | 80 << 16; };
    const auto choose = [](int16_t to, int16_t channel) {
        SoundPort::SetThruPort(to);
        SoundPort::SetThruChannel(channel);
    };
    choose(0, 5);
    port.EchoInput(on(60));
    port.EchoInput(on(61));
    port.EchoInput(on(62));
    choose(1, 7);
    port.EchoInput(0x80 | 60 << 8);
    port.EchoInput(on(61));  // struck again, without an end
    choose(SoundPort::kNone, SoundPort::kNone);
    port.EchoInput(0x90 | 61 << 8);
    port.EchoInput(on(63));
    port.EndEchoes();
    port.EndEchoes();
    ExpectSent(port, {{0, 0, 0x94, 60, 80},
                      {0, 0, 0x94, 61, 80},
                      {0, 0, 0x94, 62, 80},
                      {0, 0, 0x94, 60, 0},
                      {0, 0, 0x94, 61, 0},
                      {0, 1, 0x96, 61, 80},
                      {0, 1, 0x96, 61, 0},
                      {0, 0, 0x94, 62, 0}});
}

// The thread sanitizer watches.
TEST(SoundPort, TheKeyboardPlaysOnWhilePortsComeAndGo) {
    std::atomic<int> heard = 0, tooLate = 0;
    std::atomic<bool> open = false;
    SoundPort::SetFactory([&] {
        return std::make_unique<RecordingPort>(int16_t{1}, [&](const SentMessage&) {
            ++heard;
            tooLate += !open;
        });
    });
    SoundPort::SetThruPort(0);
    SoundPort::SetThruChannel(1);
    std::atomic<bool> over = false;
    std::thread keyboard([&] {
        for (uint32_t key = 0; !over; key = (key + 1) % 128) {
            for (const uint32_t velocity : {80, 0})
                SoundPort::PassInput(0x90 | key << 8 | velocity << 16, SoundPort::InputUse::Echo);
            std::this_thread::sleep_for(std::chrono::microseconds(20));
        }
    });
    for (int i = 0; i < 50; ++i) {
        const int before = heard;
        open = true;
        SoundPort* port = SoundPort::Instance();
        while (heard == before) std::this_thread::yield();
        if (i % 2) port->Silence();
        SoundPort::Close();
        open = false;
    }
    over = true;
    keyboard.join();
    EXPECT_EQ(tooLate, 0) << "a closed port is played on no more";
    SoundPort::SetFactory({});
    SoundPort::SetThruPort(SoundPort::kNone);
    SoundPort::SetThruChannel(SoundPort::kNone);
}

TEST(SoundPort, ABusyDeviceIsToldOnceAndNotForNotes) {
    SetNotifySink(Collect);
    told.clear();
    {
        BrokenPort port(1, {0});
        port.SendNote(0, 1, 60, 100);
        SoundPort::PollError();
        EXPECT_TRUE(told.empty());
        port.SetVolume(0, 1, 100);
    }
    SoundPort::PollError();
    EXPECT_EQ(told, std::vector<std::string>{"MIDI device already in use."}) << "outlives the port";
    {
        BrokenPort port(1, {0});
        port.SetInstrument(0, 1, 1);
        SoundPort::PollError();
    }
    EXPECT_EQ(told.size(), 1u);
    SetNotifySink(nullptr);
}

}  // namespace
}  // namespace corvane
