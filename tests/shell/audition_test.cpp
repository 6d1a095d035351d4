// An entered note sounds where its voice plays, and ends there, whatever becomes of the ports meanwhile.
#include "edit/Audition.h"

#include <QEventLoop>
#include <QTimer>

#include "ViewFixture.h"
#include "play/Mixer.h"
#include "play/RecordingPort.h"
#include "shell/AuditionPlayer.h"

namespace corvane {
namespace {

class AuditionTest : public ViewTest {
protected:
    AuditionTest() {
        EnterSome();
        Switches().playbackNotes = true;
        OfferPorts(3);
        BeginAuditions();
    }
    ~AuditionTest() override {
        EndAuditions();
        SoundPort::Close();
        SoundPort::SetFactory({});
    }

    // From now on as many devices beside the synthesiser.
    void OfferPorts(int16_t count) {
        SoundPort::Close();
        SoundPort::SetFactory([this, count] {
            auto port = std::make_unique<RecordingPort>(
                count, [this](const SentMessage& message) { sent.push_back(message); });
            return port;
        });
    }
    void PlayOn(int port, int channel, int program) {
        const EditStep step(*window);
        SetVoiceValue(Staff(), 1, VoiceValue::Port, port);
        SetVoiceValue(Staff(), 1, VoiceValue::Channel, channel);
        SetVoiceValue(Staff(), 1, VoiceValue::Program, program);
        SetVoiceValue(Staff(), 1, VoiceValue::Volume, 90);
    }
    DocStaff* Staff() { return documentDocStaffs.First(window->GetDocument()); }
    void SoundFirstNote() {
        const Measure* measure = systemMeasures.First(pageSystems.First(window->CurrentPage()));
        const auto* chord =
            As<Chords>(voiceSymbols.First(measureStaffVoices.First(measureStaffs.First(measure))));
        AuditionNote(chordNotes.First(chord), 20);
    }
    // Until what has been begun has ended.
    static void Wait() {
        QEventLoop loop;
        QTimer::singleShot(60, &loop, &QEventLoop::quit);
        loop.exec();
    }
    // Status and port of each message.
    std::string Told() const {
        std::string told;
        for (const SentMessage& message : sent) {
            const bool off = (message.status & 0xF0) == 0x90 && message.data2 == 0;
            told +=
                std::to_string(message.port) + ":" + std::to_string(message.status) + (off ? "off " : " ");
        }
        return told;
    }

    std::vector<SentMessage> sent;
};

TEST_F(AuditionTest, NoteProgramAndVolumeGoToThePortAndChannelOfTheVoice) {
    PlayOn(2, 5, 41);
    SoundFirstNote();
    ASSERT_EQ(Told(), "2:196 2:180 2:148 ");  // program, volume, note on channel 5
    EXPECT_EQ(sent[0].data1, 40);
    EXPECT_EQ(sent[1].data2, 90);
    PlayOn(0, 1, 1);  // the end goes where the note began
    Wait();
    ASSERT_EQ(sent.size(), 4u);
    EXPECT_EQ(sent[3].data1, sent[2].data1);
    EXPECT_EQ(Told(), "2:196 2:180 2:148 2:148off ");

    sent.clear();
    PlayOn(SoundPort::kBuiltIn, 3, 0);  // a voice without a program plays with the one that is there
    SoundFirstNote();
    Wait();
    EXPECT_EQ(Told(), "-1:146 -1:146off ");
}

TEST_F(AuditionTest, APortThatVanishesMeanwhileGetsNothingMore) {
    PlayOn(2, 5, 41);
    SoundFirstNote();
    SoundPort::Close();
    sent.clear();
    Wait();
    EXPECT_EQ(Told(), "") << "closed";

    OfferPorts(3);
    SoundFirstNote();
    OfferPorts(1);
    ASSERT_TRUE(SoundPort::Instance());
    sent.clear();
    Wait();
    EXPECT_EQ(Told(), "") << "one port is left, and was asked for nothing";
    SoundFirstNote();
    Wait();
    EXPECT_EQ(Told(), "") << "the voice's own port is gone";
}

}  // namespace
}  // namespace corvane
