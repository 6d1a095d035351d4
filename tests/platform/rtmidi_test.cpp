#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "base/Notify.h"
#include "model/ClassTable.h"
#include "model/Relations.h"
#include "platform/rtmidi/MidiKeyboard.h"
#include "platform/rtmidi/MidiSystems.h"
#include "platform/rtmidi/MidiThru.h"
#include "platform/rtmidi/RtMidiPort.h"
#include "rtmidi_jackd.h"

namespace corvane {
namespace {

using Bytes = std::vector<unsigned char>;
using std::chrono::milliseconds;

class NotingSynth : public BuiltInSynth {
public:
    bool Send(uint8_t status, uint8_t data1, uint8_t data2) override {
        const std::lock_guard lock(_mutex);
        _sent.push_back({status, data1, data2});
        return true;
    }
    void Reset() override { ++resets; }
    std::vector<Bytes> Sent() const {
        const std::lock_guard lock(_mutex);
        return _sent;
    }
    int resets = 0;

private:
    mutable std::mutex _mutex;
    std::vector<Bytes> _sent;
};

// Some other program's MIDI input, which our port finds as a device.
class Receiver {
public:
    Receiver() : _in(RtMidi::UNIX_JACK, "receiver") {
        _in.setCallback(
            [](double, Bytes* message, void* self) {
                auto* receiver = static_cast<Receiver*>(self);
                const std::lock_guard lock(receiver->_mutex);
                receiver->_got.push_back(*message);
            },
            this);
        _in.openVirtualPort("in");
    }
    // What has come once `count` messages have, or after twenty seconds: a busy machine takes its time.
    std::vector<Bytes> Wait(size_t count) {
        for (int i = 0; i < 20000; ++i) {
            {
                const std::lock_guard lock(_mutex);
                if (_got.size() >= count) break;
            }
            std::this_thread::sleep_for(milliseconds(1));
        }
        std::this_thread::sleep_for(milliseconds(20));  // whatever should not come
        const std::lock_guard lock(_mutex);
        return _got;
    }

private:
    std::mutex _mutex;
    std::vector<Bytes> _got;
    RtMidiIn _in;
};

int16_t OutputNamed(const std::string& part) {
    for (const MidiDevice& device : ListMidiDevices())
        if (device.isOutput && device.name.find(part) != std::string::npos) return device.number;
    return SoundPort::kNone;
}

TEST(RtMidiPort, WithoutDevicesEverythingForTheBuiltInPortReachesTheSynthesiser) {
    setenv("JACK_DEFAULT_SERVER", "corvane-no-such-server", 1);
    NotingSynth synth;
    {
        RtMidiPort port(&synth);
        port.SetInstrument(-1, 2, 1);
        port.SendNote(-1, 2, 60, 100);
        port.SendNote(port.Count(), 2, 60, 100);
    }
    const std::vector<Bytes> expected = {
        {0xC1, 0, 0}, {0x91, 60, 100}, {0x91, 60, 0}, {0xB1, 64, 0}, {0xB1, 123, 0}};
    EXPECT_EQ(synth.Sent(), expected) << "closing leaves nothing sounding";
    EXPECT_EQ(synth.resets, 1);
    RtMidiPort(nullptr).SendNote(-1, 1, 60, 100);
    unsetenv("JACK_DEFAULT_SERVER");
}

TEST(RtMidiPort, AnotherProgramReceivesEveryMessageInOrderOnceAndNoNoteHangs) {
    const TestJackd jackd;
    if (!jackd.Runs()) GTEST_SKIP() << jackd.WhyNot();
    Receiver receiver;
    const int16_t device = OutputNamed("receiver");
    ASSERT_GE(device, 0);
    NotingSynth synth;
    std::vector<Bytes> expected;
    {
        RtMidiPort port(&synth);
        port.SetInstrument(device, 1, 41);
        port.SetInstrument(device, 1, 0);  // 255 fits on no wire
        expected.push_back({0xC0, 40});
        for (unsigned char key = 0; key < 127; ++key) {
            port.SendNote(device, 1, key, 100);
            port.SendNote(device, 1, key, 0);
            expected.push_back({0x90, key, 100});
            expected.push_back({0x90, key, 0});
        }
        port.SetVolume(device, 16, 90);
        port.SendNote(device, 16, 60, 1);
        expected.insert(expected.end(), {{0xBF, 7, 90}, {0x9F, 60, 1}, {0x9F, 60, 0}});
        for (const unsigned char status : {0xB0, 0xBF}) {
            expected.push_back({status, 64, 0});
            expected.push_back({status, 123, 0});
        }
    }
    EXPECT_EQ(receiver.Wait(expected.size()), expected);
    EXPECT_TRUE(synth.Sent().empty());
}

TEST(RtMidiPort, ThreadsThatSendAtOnceDoNotMixTheirMessages) {
    const TestJackd jackd;
    if (!jackd.Runs()) GTEST_SKIP() << jackd.WhyNot();
    Receiver receiver;
    const int16_t device = OutputNamed("receiver");
    ASSERT_GE(device, 0);
    NotingSynth synth;  // device 0 is reached only past an open built-in port
    RtMidiPort port(&synth);
    constexpr int each = 200;
    std::vector<std::thread> senders;
    for (int channel = 1; channel <= 3; ++channel)
        senders.emplace_back([&, channel] {
            for (int i = 0; i < each; ++i) port.SendNote(device, channel, i % 128, 1 + i % 100);
        });
    for (auto& sender : senders) sender.join();
    const auto got = receiver.Wait(3 * each);
    int next[3] = {};
    for (const Bytes& m : got) {
        ASSERT_EQ(m.size(), 3u);
        int& i = next[m[0] & 3];
        EXPECT_EQ(
            m, (Bytes{m[0], static_cast<unsigned char>(i % 128), static_cast<unsigned char>(1 + i % 100)}));
        ++i;
    }
    for (const int count : next) EXPECT_EQ(count, each);
}

TEST(RtMidiPort, AServerThatEndsIsAFailureAndNobodyWaitsForIt) {
    TestJackd jackd;
    if (!jackd.Runs()) GTEST_SKIP() << jackd.WhyNot();
    Receiver receiver;
    const int16_t device = OutputNamed("receiver");
    ASSERT_GE(device, 0);
    std::vector<std::string> told;
    static std::vector<std::string>* listener;
    listener = &told;
    SetNotifySink([](Severity, std::string_view text) { listener->emplace_back(text); });
    NotingSynth synth;
    {
        RtMidiPort port(&synth);
        port.SetVolume(device, 1, 100);
        SoundPort::PollError();
        EXPECT_TRUE(told.empty());
        jackd.Stop();
        // More than any buffer on the way holds.
        for (int i = 0; i < 5000; ++i) port.SendNote(device, 1, i % 128, 100);
        port.SetVolume(device, 1, 100);
        SoundPort::PollError();
        EXPECT_EQ(told.size(), 1u);
    }
    SetNotifySink(nullptr);
}

// A keyboard of another program's, and the port behind the factory as the program has it.
class Keyboard : public testing::Test {
protected:
    Keyboard() {
        SoundPort::SetFactory([this] { return std::make_unique<RtMidiPort>(&synth); });
    }
    ~Keyboard() override {
        SoundPort::Close();
        SoundPort::SetFactory(nullptr);
        SoundPort::SetThruPort(SoundPort::kNone);
    }
    // Its number among the inputs; false without a JACK server.
    bool PlugIn() {
        // A server that starts or ends beside this one can keep clients out for a moment.
        for (int i = 0; i < 50 && jackd.Runs() && number < 0; ++i) {
            if (i) std::this_thread::sleep_for(milliseconds(100));
            keys.emplace(RtMidi::UNIX_JACK, "keys");
            keys->openVirtualPort("out");
            for (const MidiDevice& device : ListMidiDevices())
                if (!device.isOutput && device.name.find("keys") != std::string::npos) number = device.number;
        }
        return number >= 0;
    }
    static void WaitForTheServer() { std::this_thread::sleep_for(milliseconds(100)); }  // some periods
    void Press(const Bytes& message) { keys->sendMessage(&message); }
    static void WaitUntil(const std::function<bool()>& holds) {
        for (int i = 0; i < 2000 && !holds(); ++i) std::this_thread::sleep_for(milliseconds(1));
    }

    TestJackd jackd;
    NotingSynth synth;
    std::optional<RtMidiOut> keys;
    int16_t number = -1;
};

TEST_F(Keyboard, WhatIsPlayedReachesTheRingAndIsEchoed) {
    if (!jackd.Runs()) GTEST_SKIP() << jackd.WhyNot();
    ASSERT_TRUE(PlugIn());
    MidiKeyboard keyboard;
    constexpr auto record = SoundPort::InputUse::Record;
    EXPECT_EQ(keyboard.Open(99, record).message(), "Invalid input port/device");
    ASSERT_TRUE(keyboard.Open(number, record).ok());
    SoundPort& port = *SoundPort::Instance();
    WaitForTheServer();
    SoundPort::SetThruPort(SoundPort::kBuiltIn);
    SoundPort::SetThruChannel(2);
    TheInputFlags().mode = InputMode::Step;
    Press({0x93, 64, 70});
    WaitUntil([&] { return !port.Input().IsEmpty(); });
    std::this_thread::sleep_for(milliseconds(20));
    keyboard.Close();
    InputRecord got;
    ASSERT_FALSE(port.Input().Pop(got));
    EXPECT_EQ(got.message, 0x464093u);
    EXPECT_EQ(synth.Sent(), (std::vector<Bytes>{{0x91, 64, 70}}));
    TheInputFlags().mode = InputMode::RealTime;
}

TEST_F(Keyboard, SoundsWhereTheScoreSaysWhilePortsComeAndGoUntilThruIsTurnedOff) {
    if (!jackd.Runs()) GTEST_SKIP() << jackd.WhyNot();
    ASSERT_TRUE(PlugIn());
    RegisterClasses();
    NewMemoryPool* pool = MemoryManager::Instance().NewPool();
    auto* document = Make<Document>();
    auto* staff = Make<DocStaff>();
    staff->_active = 1;
    staff->_voiceCount = 1;
    staff->_voices[0]._recordActive = 1;
    staff->_voices[0]._port = SoundPort::kBuiltIn;
    staff->_voices[0]._channel = 5;
    documentDocStaffs.Add(document, staff);
    SessionPreferences preferences;
    SetWord(preferences, SessionWord::MidiThru, 1);
    SetWord(preferences, SessionWord::RecordPort, 99);
    MidiThru thru;
    EXPECT_EQ(thru.Refresh(preferences, document).message(), "Invalid input port/device");
    EXPECT_TRUE(thru.Refresh(preferences, document).ok()) << "told once";
    SetWord(preferences, SessionWord::RecordPort, number);
    ASSERT_TRUE(thru.Refresh(preferences, document).ok());
    WaitForTheServer();
    Press({0x90, 60, 70});
    WaitUntil([&] { return synth.Sent().size() == 1; });
    SoundPort::Close();  // as a play does that ends
    const std::vector<Bytes> closed = {{0x94, 60, 70}, {0x94, 60, 0}, {0xB4, 64, 0}, {0xB4, 123, 0}};
    EXPECT_EQ(synth.Sent(), closed);
    ASSERT_TRUE(thru.Refresh(preferences, document).ok());
    staff->_voices[0]._channel = 6;
    ASSERT_TRUE(thru.Refresh(preferences, document).ok());
    Press({0x90, 62, 70});
    WaitUntil([&] { return synth.Sent().size() == closed.size() + 1; });
    SetWord(preferences, SessionWord::MidiThru, 0);
    ASSERT_TRUE(thru.Refresh(preferences, document).ok());
    EXPECT_FALSE(thru.IsOpen());
    const auto sent = synth.Sent();
    ASSERT_GE(sent.size(), closed.size() + 2);
    EXPECT_EQ(sent[closed.size()], (Bytes{0x95, 62, 70}));
    EXPECT_EQ(sent[closed.size() + 1], (Bytes{0x95, 62, 0})) << "no key hangs";
    EXPECT_EQ(SoundPort::Existing(), nullptr) << "the devices are free";
    MemoryManager::Instance().DeletePool(pool);
}

TEST_F(Keyboard, OfAServerThatHasEndedIsClosedWithoutWaiting) {
    if (!jackd.Runs()) GTEST_SKIP() << jackd.WhyNot();
    ASSERT_TRUE(PlugIn());
    MidiKeyboard keyboard;
    ASSERT_TRUE(keyboard.Open(number, SoundPort::InputUse::Echo).ok());
    WaitForTheServer();
    SoundPort::Instance();
    jackd.Stop();
    keys.reset();
    std::this_thread::sleep_for(milliseconds(100));
    EXPECT_TRUE(ListMidiDevices().empty()) << "asked while the port and the keyboard are still open";
    keyboard.Close();
    SoundPort::Close();
    EXPECT_EQ(keyboard.Open(number, SoundPort::InputUse::Echo).message(), "Invalid input port/device");
}

}  // namespace
}  // namespace corvane
