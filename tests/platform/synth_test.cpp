#include <gtest/gtest.h>
#include <sndfile.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "base/Notify.h"
#include "platform/fluidsynth/FluidSynth.h"
#include "platform/fluidsynth/PeakLimiter.h"
#include "platform/fluidsynth/RenderSound.h"
#include "platform/fluidsynth/SoundFile.h"
#include "platform/fluidsynth/SoundFont.h"
#include "platform/rtmidi/RtMidiPort.h"
#include "play/SynthPort.h"
#include "rtmidi_jackd.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

class TestFolder {
public:
    TestFolder() {
        std::string name = (fs::temp_directory_path() / "corvane-synth-XXXXXX").string();
        _path = mkdtemp(name.data());
    }
    ~TestFolder() { fs::remove_all(_path); }
    std::string File(const char* name) const { return (_path / name).string(); }
    size_t Count() const {
        return static_cast<size_t>(std::distance(fs::directory_iterator(_path), fs::directory_iterator()));
    }

private:
    fs::path _path;
};

std::string Contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

template <class Number>
Number At(const std::string& bytes, size_t place) {
    Number value;
    std::memcpy(&value, bytes.data() + place, sizeof value);
    return value;
}

// The samples, once the header has been found to tell the truth about them.
std::vector<int16_t> Samples(const std::string& path) {
    const std::string bytes = Contents(path);
    EXPECT_GE(bytes.size(), 44u);
    if (bytes.size() < 44) return {};
    EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(8, 8) + bytes.substr(36, 4), "RIFFWAVEfmt data");
    EXPECT_EQ(At<uint32_t>(bytes, 4), bytes.size() - 8);
    EXPECT_EQ(At<uint16_t>(bytes, 22), 2);
    EXPECT_EQ(At<uint32_t>(bytes, 24), 48000u);
    EXPECT_EQ(At<uint32_t>(bytes, 28), 192000u);
    EXPECT_EQ(At<uint16_t>(bytes, 34), 16);
    EXPECT_EQ(At<uint32_t>(bytes, 40), bytes.size() - 44);
    std::vector<int16_t> samples((bytes.size() - 44) / 2);
    std::memcpy(samples.data(), bytes.data() + 44, samples.size() * 2);
    return samples;
}

int Peak(const std::vector<int16_t>& samples, size_t fromFrame, size_t toFrame) {
    int peak = 0;
    for (size_t i = 2 * fromFrame; i < 2 * toFrame && i < samples.size(); ++i)
        peak = std::max(peak, std::abs(int{samples[i]}));
    return peak;
}

// Frames per tick of 4 ms.
constexpr size_t kTick = 192;

TEST(RenderSound, NotesBeginWhereTheyAreDueAndTheSoundDiesAway) {
    const TestFolder folder;
    const std::string path = folder.File("scale.wav");
    const int64_t onsets[] = {0, 125, 365, 606};
    const Status status = RenderSound(path, [&](int64_t tick, BuiltInSynth& synth) {
        SynthPort port(synth);
        port.SetInstrument(0, 1, 14);  // an instrument that speaks at once
        for (size_t i = 0; i < 4; ++i) {
            if (tick == onsets[i]) port.SendNote(3, 1, 60 + static_cast<int>(i) * 2, 100);
            if (tick == onsets[i] + 80) port.SendNote(3, 1, 60 + static_cast<int>(i) * 2, 0);
        }
        return tick < 750;
    });
    ASSERT_TRUE(status.ok()) << status.message();
    const auto samples = Samples(path);
    ASSERT_GT(samples.size() / 2, 750 * kTick);
    EXPECT_LT(samples.size() / 2, 750 * kTick + 8 * 48000);
    for (const int64_t onset : onsets) {
        SCOPED_TRACE(onset);
        const size_t due = static_cast<size_t>(onset) * kTick;
        const int loud = Peak(samples, due, due + 4800);
        EXPECT_GT(loud, 1000) << "audible";
        const int before = due ? Peak(samples, due - 480, due) : 0;
        EXPECT_LT(before, loud / 10) << "not before it is due";
        EXPECT_GT(Peak(samples, due, due + 240), std::max(2 * before, loud / 20)) << "within 5 ms";
    }
    EXPECT_LE(Peak(samples, samples.size() / 2 - 2400, samples.size() / 2), 8) << "ends in silence";
}

TEST(RenderSound, TheLoudestChordIsNotClippedAndIsMadeFarFasterThanItSounds) {
    const TestFolder folder;
    const std::string path = folder.File("loud.wav");
    const auto begin = std::chrono::steady_clock::now();
    const Status status = RenderSound(path, [&](int64_t tick, BuiltInSynth& synth) {
        SynthPort port(synth);
        for (int channel = 1; channel <= 16 && tick % 250 == 10; ++channel)
            for (int key = 48; key < 60; key += 4) port.SendNote(-1, channel, key, 127);
        return tick < 5000;
    });
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    ASSERT_TRUE(status.ok()) << status.message();
    const auto samples = Samples(path);
    const int peak = Peak(samples, 0, samples.size() / 2);
    EXPECT_LE(peak, 31130);
    EXPECT_GE(peak, 30000) << "held at the ceiling, not far below it";
    const double seconds = static_cast<double>(samples.size()) / 2 / 48000;
    std::printf("%.1f s of 48 voices in %.2f s: %.0f times real time\n", seconds, took.count(),
                seconds / took.count());
    EXPECT_LT(took.count(), seconds);
}

TEST(RenderSound, AFailureLeavesTheOldFileAndNothingElse) {
    const TestFolder folder;
    const auto silence = [](int64_t, BuiltInSynth&) { return false; };
    EXPECT_EQ(RenderSound(folder.File("no/such.wav"), silence).fault(), Fault::ReadOnly);
    const std::string path = folder.File("old.wav");
    std::ofstream(path) << "precious";
    {
        SoundFile unfinished;
        ASSERT_TRUE(unfinished.Open(path, 48000).ok());
        ASSERT_TRUE(unfinished.Write(std::vector<int16_t>(1000)).ok());
    }
    EXPECT_EQ(Contents(path), "precious");
    EXPECT_EQ(folder.Count(), 1u);
    EXPECT_TRUE(RenderSound(path, silence).ok());
    EXPECT_NE(Contents(path), "precious");
    EXPECT_EQ(folder.Count(), 1u);
}

TEST(RenderSound, FlacHoldsTheSamplesOfTheWav) {
    const TestFolder folder;
    const auto note = [](int64_t tick, BuiltInSynth& synth) {
        SynthPort port(synth);
        if (tick == 10) port.SendNote(-1, 1, 60, 100);
        return tick < 50;
    };
    const std::string wav = folder.File("a.wav"), flac = folder.File("a.flac");
    ASSERT_TRUE(RenderSound(wav, note).ok());
    ASSERT_TRUE(RenderSound(flac, note).ok());
    EXPECT_EQ(Contents(flac).substr(0, 4), "fLaC");
    SF_INFO info{};
    SNDFILE* sound = sf_open(flac.c_str(), SFM_READ, &info);
    ASSERT_TRUE(sound);
    EXPECT_EQ(info.samplerate, 48000);
    std::vector<int16_t> samples(static_cast<size_t>(info.frames) * 2);
    sf_readf_short(sound, samples.data(), info.frames);
    sf_close(sound);
    EXPECT_EQ(samples, Samples(wav));
    EXPECT_LT(Contents(flac).size(), Contents(wav).size());
}

TEST(RenderSound, WhatIsGivenUpLeavesNothing) {
    const TestFolder folder;
    int asked = 0;
    const Status status = RenderSound(
        folder.File("a.flac"), [](int64_t, BuiltInSynth&) { return true; }, [&] { return ++asked < 3; });
    EXPECT_EQ(status.fault(), Fault::Refused);
    EXPECT_EQ(status.message(), "");
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(folder.Count(), 0u);
}

TEST(PeakLimiter, KeepsTheCeilingWithoutAJumpAndLeavesQuietPassagesAlone) {
    PeakLimiter limiter;
    PeakLimiter::Block quiet, loud;
    for (size_t i = 0; i < quiet.size(); ++i) {
        quiet[i] = i % 4 < 2 ? 0.5f : -0.5f;
        loud[i] = 5 * quiet[i];
    }
    EXPECT_EQ(limiter.Push(quiet), PeakLimiter::Block{});
    EXPECT_EQ(limiter.Push(quiet), quiet);
    float last = 0.5f;
    for (int block = 0; block < 300; ++block) {
        const auto done = limiter.Push(block >= 3 && block < 6 ? loud : quiet);
        for (const float sample : done) {
            ASSERT_LE(std::fabs(sample), PeakLimiter::kCeiling * 1.00001f);
            // Input five times as loud begins where the gain has already fallen.
            ASSERT_LE(std::fabs(sample), 5.01f * last);
            last = std::fabs(sample);
        }
    }
    EXPECT_FLOAT_EQ(last, 0.5f) << "recovers";
}

TEST(SoundFont, TheEnvironmentChoosesIfItNamesOne) {
    const std::string usual = FindSoundFont();
    ASSERT_FALSE(usual.empty()) << "a General MIDI sound font must be installed";
    const TestFolder folder;
    const std::string own = folder.File("own.sf2");
    setenv("CORVANE_SOUNDFONT", own.c_str(), 1);
    EXPECT_EQ(FindSoundFont(), usual) << "no such file";
    std::ofstream(own) << "something else";
    EXPECT_EQ(FindSoundFont(), usual) << "no sound font";
    fs::remove(own);
    fs::create_symlink(usual, own);
    EXPECT_EQ(FindSoundFont(), own);
    unsetenv("CORVANE_SOUNDFONT");
}

std::vector<std::string> told;

TEST(FluidSynth, WithoutASoundSystemEverythingIsTakenInSilenceAndToldOnce) {
    setenv("CORVANE_AUDIO", "none", 1);
    SetNotifySink([](Severity, std::string_view text) { told.emplace_back(text); });
    setenv("JACK_DEFAULT_SERVER", "corvane-no-such-server", 1);
    FluidSynth synth;
    RtMidiPort port(&synth);
    SoundPort::PollSilence();
    EXPECT_TRUE(told.empty()) << "not yet known";
    for (int i = 0; i < 5000; ++i) {
        port.SendNote(-1, 1, i % 128, 100);
        if (i == 10) {
            EXPECT_FALSE(synth.HasSound());
        }
    }
    port.Silence();
    EXPECT_TRUE(synth.Send(0x90, 60, 100)) << "no error, and nothing piles up";
    SoundPort::PollSilence();
    SoundPort::PollSilence();
    EXPECT_EQ(told, std::vector<std::string>{"There is no sound card: playing is silent."});
    SetNotifySink(nullptr);
    unsetenv("CORVANE_AUDIO");
    unsetenv("JACK_DEFAULT_SERVER");
}

TEST(FluidSynth, IsHeardThroughAJackServer) {
    const TestJackd jackd;
    if (!jackd.Runs()) GTEST_SKIP() << jackd.WhyNot();
    setenv("CORVANE_AUDIO", "jack", 1);
    FluidSynth synth;
    EXPECT_TRUE(synth.Send(0x90, 60, 100));
    EXPECT_TRUE(synth.HasSound());
    EXPECT_FALSE(synth.IsSilent());
    EXPECT_TRUE(synth.Send(0x80, 60, 0));
    synth.Reset();
    unsetenv("CORVANE_AUDIO");
}

}  // namespace
}  // namespace corvane
