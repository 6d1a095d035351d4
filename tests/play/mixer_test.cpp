// What the mixer writes, the names of sounds, and where the play cursor stands.
#include "play/Mixer.h"

#include <algorithm>
#include <functional>

#include "events_SmallScore.h"
#include "play/InstrumentNames.h"
#include "play/PlayCursor.h"
#include "play/PlayPreferences.h"
#include "play/RecordingPort.h"
#include "play/TarnPlay.h"

namespace corvane {
namespace {

class MixerTest : public SmallScore {
protected:
    void SetUp() override {
        upper = AddStaff();
        lower = AddStaff();
        upper->_voiceCount = lower->_voiceCount = 2;
    }
    void TearDown() override { ThePlayFlags().clockRunning = false; }
    std::string Switches() const {
        std::string text;
        for (const DocStaff* staff : {upper, lower}) {
            text += staff->_active ? 'a' : '-';
            text += staff->_solo ? 's' : '-';
        }
        return text + (document->_hasSolo ? "!" : "");
    }
    DocStaff *upper = nullptr, *lower = nullptr;
};

TEST_F(MixerTest, SoloAndMuteGoTogether) {
    const struct {
        const char* why;
        std::function<void()> act;
        const char* after;
    } kSteps[] = {
        {"mute", [&] { SetActive(upper, false); }, "--a-"},
        {"solo takes the mute away", [&] { SetSolo(upper, true); }, "asa-!"},
        {"two are soloed", [&] { SetSolo(lower, true); }, "asas!"},
        {"mute takes the solo away", [&] { SetActive(upper, false); }, "--as!"},
        {"no solo is left", [&] { SetSolo(lower, false); }, "--a-"},
        {"heard again", [&] { SetActive(upper, true); }, "a-a-"},
    };
    for (const auto& step : kSteps) {
        step.act();
        EXPECT_EQ(Switches(), step.after) << step.why;
    }
}

TEST_F(MixerTest, SilencesWhatWouldHangWhileItPlays) {
    RecordingPort port;
    const auto silenced = [&](const std::function<void()>& act) {
        port.SendNote(-1, 1, 60, 100);
        port.Clear();
        act();
        const auto sent = port.Messages();
        return std::any_of(sent.begin(), sent.end(), [](const SentMessage& m) {
            return m.status == 0x90 && m.data1 == 60 && !m.data2;
        });
    };
    const auto transpose = [&](int by) {
        return [this, by] { SetVoiceValue(upper, 1, VoiceValue::Transposition, by); };
    };
    EXPECT_FALSE(silenced(transpose(1))) << "nothing plays";
    ThePlayFlags().clockRunning = true;
    EXPECT_TRUE(silenced(transpose(2)));
    EXPECT_FALSE(silenced(transpose(2))) << "no change";
    EXPECT_TRUE(silenced([&] { SetActive(upper, false); }));
    EXPECT_TRUE(silenced([&] { SetSolo(lower, true); }));
    EXPECT_FALSE(silenced([&] { SetVoiceValue(upper, 1, VoiceValue::Volume, 3); }));
}

TEST_F(MixerTest, HoldsValuesToTheirRangesAndChannelsToOneProgram) {
    SetVoiceValue(upper, 8, VoiceValue::Volume, 500);
    SetVoiceValue(upper, 8, VoiceValue::Channel, 0);
    SetVoiceValue(upper, 8, VoiceValue::Port, -10);
    EXPECT_EQ(VoiceValueOf(upper, 8, VoiceValue::Volume), 127);
    EXPECT_EQ(VoiceValueOf(upper, 8, VoiceValue::Channel), 1);
    EXPECT_EQ(VoiceValueOf(upper, 8, VoiceValue::Port), -1);
    SetVoiceValue(lower, 1, VoiceValue::Channel, 2);
    SetProgram(document, upper, 1, 41, "A name beyond nineteen bytes", 1);
    EXPECT_EQ(ProgramNameOf(upper, 1), "A name beyond ninet");
    EXPECT_EQ(VoiceValueOf(upper, 2, VoiceValue::Program), 41) << "on the same channel";
    EXPECT_EQ(VoiceValueOf(upper, 3, VoiceValue::Program), 0) << "a voice that is not in use";
    EXPECT_EQ(VoiceValueOf(lower, 1, VoiceValue::Program), 0) << "another channel";
    EXPECT_EQ(VoiceValueOf(lower, 2, VoiceValue::Program), 41) << "another staff, the same channel";
    SetProgram(document, upper, 1, 0, "none", 1);
    EXPECT_EQ(ProgramNameOf(upper, 1), "");
}

TEST(InstrumentNames, ComeFromConstantsATextAndThePerson) {
    InstrumentNames::Personal personal;
    personal[0][0] = "Mine";
    const InstrumentNames names(
        "# a comment\n1 lost\n[Kawai K1]\n  128   Last one \r\n0 none\n129 none\nx none\n"
        "[No such device]\n1 lost\n[General MIDI]\n1 kept as it is\n[Korg M1]\n1 Beyond twenty characters");
    EXPECT_EQ(names.NameOf(1, 1, personal), "Acou Piano");
    EXPECT_EQ(names.NameOf(1, 128, personal), "Gun Shot");
    EXPECT_EQ(names.NameOf(7, 128, personal), "Last one");
    EXPECT_EQ(names.NameOf(7, 1, personal), "1") << "without a name: its number";
    EXPECT_EQ(names.NameOf(9, 1, personal), "Beyond twenty charac");
    EXPECT_EQ(names.NameOf(10, 1, personal), "Mine");
    EXPECT_EQ(names.NameOf(12, 128, personal), "128");
    EXPECT_EQ(names.NameOf(1, 0, personal), "");
    const InstrumentNames empty(InstrumentNames::EmptyText());
    for (int device = 2; device < kFirstPersonal; ++device) EXPECT_EQ(empty.NameOf(device, 5, personal), "5");
    for (const char* device : DeviceNames()) EXPECT_LT(std::string_view(device).size(), 20u);
}

TEST_F(MixerTest, ThePlayCursorGoesByItsStepsOverTheNoteArea) {
    Measure* measure = AddMeasure(6, 8);
    measure->_left = 1000;
    measure->_right = 4000;
    for (int i = 0; i < 2; ++i) {
        auto* staff = Make<SimpleStaff>();
        staff->_lineDistance = 100;
        staff->_lineCount = 5;
        staff->_top = 1000 * i;
        systemStaffs.Add(systemMeasures.ParentOf(measure), staff);
        Crossing(measure, i)->_staff = staff;
    }
    PlayCursor cursor;
    const auto moves = [&](PlayCursor::Step step) {
        std::string beats;
        cursor.SetStart(measure, step);
        cursor.TakeMoved();
        for (int beat = 0; beat < 6; ++beat) {
            cursor.Move(measure, beat);
            if (cursor.TakeMoved()) beats += static_cast<char>('0' + cursor.Where().beat);
        }
        return beats;
    };
    EXPECT_EQ(moves(PlayCursor::Step::Beat), "012345");
    EXPECT_EQ(moves(PlayCursor::Step::HalfMeasure), "03");
    EXPECT_EQ(moves(PlayCursor::Step::Measure), "0");
    CursorMark first, last;
    ASSERT_TRUE(MarkOf({measure, 0}, first));
    ASSERT_TRUE(MarkOf({measure, 5}, last));
    EXPECT_GE(first.x, 1000);
    EXPECT_EQ((last.x - first.x) % 5, 0) << "evenly";
    EXPECT_LT(last.x, 4000);
    EXPECT_EQ(first.bottom - first.top, 1400) << "over both staves";
    EXPECT_FALSE(MarkOf({}, first));
}

TEST(PlayPreferences, HoldTheClickToWhatDevicesTake) {
    SessionPreferences preferences = DefaultSessionPreferences();
    EXPECT_FALSE(ClickOf(preferences).on);
    EXPECT_EQ(ClickOf(preferences).port, SoundPort::kNone);
    EXPECT_FALSE(PlaySetupOf(preferences).followsTexts);
    EXPECT_TRUE(IsOn(preferences, SessionWord::PageTurn));
    for (int16_t& word : preferences.words) word = 32767;
    ClickSettings click = ClickOf(preferences);
    EXPECT_TRUE(click.on);
    EXPECT_EQ(click.channel, 16);
    EXPECT_EQ(click.barPitch, 127);
    for (int16_t& word : preferences.words) word = -32768;
    click = ClickOf(preferences);
    EXPECT_EQ(click.channel, 1);
    EXPECT_EQ(click.beatVolume, 0);
    EXPECT_GE(click.beatDuration, 1);
}

}  // namespace
}  // namespace corvane
