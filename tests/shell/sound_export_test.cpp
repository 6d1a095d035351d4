// A score as a sound file: made by a script as a person makes it, exported as the menu does, measured sample
// by sample.
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "ViewFixture.h"
#include "edit/Audition.h"
#include "platform/timer/TimerClock.h"
#include "play/RecordingPort.h"
#include "play/TaskPlay.h"
#include "session/ScriptRunner.h"
#include "shell/AuditionPlayer.h"
#include "shell/ScoreExport.h"

namespace corvane {
namespace {

constexpr int kFramesPerTick = 192;  // 4 ms at 48 kHz
constexpr size_t kHeader = 44;

class SoundExport : public ViewTest {
protected:
    SoundExport() {
        std::string name = (std::filesystem::temp_directory_path() / "corvane-sound-XXXXXX").string();
        _folder = mkdtemp(name.data());
    }
    ~SoundExport() override { std::filesystem::remove_all(_folder); }

    std::string File(const char* name) const { return (_folder / name).string(); }
    static std::string Contents(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // Left and right in turn.
    static std::vector<int16_t> Samples(const std::string& path) {
        const std::string bytes = Contents(path);
        if (bytes.size() < kHeader) return {};
        std::vector<int16_t> samples((bytes.size() - kHeader) / 2);
        std::memcpy(samples.data(), bytes.data() + kHeader, samples.size() * 2);
        return samples;
    }
    // Steps that make a scale of quarters over four measures, from the line below the staff up, in one staff
    // that sounds on a program.
    std::string Scale(int program) {
        std::string steps = "new D 4 1\ncommand 33050 staff=1 program=" + std::to_string(program) + "\n";
        std::string out;
        ScriptRunner scout(_session, nullptr, out);
        EXPECT_TRUE(scout.Run(steps).ok());
        const System* system = pageSystems.First(_session.Windows().back()->CurrentPage());
        const Staff* staff = As<SimpleStaff>(systemStaffs.First(system));
        int line = -1;
        steps += "item 1 7\n";
        for (const Measure* measure : systemMeasures.Of(system)) {
            const MeasureFrame frame = FrameOf(measure);
            const int x = frame.left + frame.width - frame.NoteArea() / 50;
            for (int beat = 0; beat < 4; ++beat)
                steps += "press " + std::to_string(x) + ' ' + std::to_string(FrameOf(staff).YOfLine(line++)) +
                         '\n';
        }
        return steps;
    }

private:
    std::filesystem::path _folder;
};

int PeakOf(const std::vector<int16_t>& samples, int64_t from, int64_t to) {
    int peak = 0;
    for (int64_t i = 2 * from; i < 2 * to && i < static_cast<int64_t>(samples.size()); ++i)
        peak = std::max(peak, std::abs(int{samples[static_cast<size_t>(i)]}));
    return peak;
}

// The first frame from one on that is far louder than the ringing of what went before: a quarter of what the
// next tenth of a second reaches.
int64_t OnsetOf(const std::vector<int16_t>& samples, int64_t from) {
    const int loud = PeakOf(samples, from, from + 7200);
    for (int64_t frame = from; frame < from + 7200; ++frame)
        if (PeakOf(samples, frame, frame + 1) > loud / 4) return frame;
    return INT64_MAX;
}

TEST_F(SoundExport, AScaleSoundsWhenItIsDueAndIsNotClipped) {
    const std::string path = File("scale.wav");
    std::string out;
    const auto exporter = [](WindowTarn& score, const std::string& to, int, int) {
        return ExportScore(score, {to});
    };
    // A xylophone speaks at once and dies away before the next note.
    const Status made =
        ScriptRunner(_session, exporter, out).Run(Scale(14) + "export " + path + "\ndump notes\n");
    ASSERT_TRUE(made.ok()) << made.message();
    ASSERT_EQ(std::count(out.begin(), out.end(), '\n'), 16) << out;
    const std::vector<int16_t> samples = Samples(path);
    double worst = 0;
    for (int note = 0; note < 16; ++note) {
        // The first beat at tick 120; a quarter at 60 lasts 240 ticks, that is 0.96 s.
        const int64_t due = (120 + 240 * note) * int64_t{kFramesPerTick};
        const double late = static_cast<double>(OnsetOf(samples, due - 2400) - due) / 48.0;
        EXPECT_LE(std::fabs(late), 5.0) << "note " << note << ", milliseconds";
        worst = std::max(worst, std::fabs(late));
    }
    const int peak = PeakOf(samples, 0, static_cast<int64_t>(samples.size() / 2));
    EXPECT_GT(peak, 1000);
    EXPECT_LT(peak, 31129) << "below the limiter's ceiling: nothing was held back either";
    std::printf("16 onsets at most %.2f ms from where they are due, peak %d of 32767\n", worst, peak);
}

// What a play and an entered note do meanwhile stays out of the file, and the file out of them.
TEST_F(SoundExport, BesideAPlayAndAnEnteredNoteNeitherHearsTheOther) {
    EnterSome();
    const std::string quiet = File("quiet.wav"), busy = File("busy.wav");
    ASSERT_TRUE(ExportScore(*window, {quiet}).ok());

    RecordingPort* heard = nullptr;
    SoundPort::SetFactory([&] {
        auto port = std::make_unique<RecordingPort>();
        heard = port.get();
        return port;
    });
    BeginAuditions();
    Switches().playbackNotes = true;
    const Document* document = window->GetDocument();
    const Measure* measure = systemMeasures.First(pageSystems.First(window->CurrentPage()));
    const auto* chord =
        As<Chords>(voiceSymbols.First(measureStaffVoices.First(measureStaffs.First(measure))));
    AuditionNote(chordNotes.First(chord), 30);
    ASSERT_TRUE(heard);
    const SentMessage audition = heard->Messages().back();
    ASSERT_GT(audition.data2, 0) << "sounds as the export begins";

    TaskPlay task;
    const auto makeClock = [](int resolution, int unit, ClockDealer* dealer) {
        return std::make_unique<TimerClock>(resolution, unit, dealer);
    };
    ASSERT_TRUE(task.Init(document, makeClock) && task.Start());
    int asked = 0;
    // As the box that tells how far it is, and long enough for both to send.
    const auto goOn = [&](int) {
        if (++asked > 2) return true;
        const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(400);
        while (std::chrono::steady_clock::now() < until) QCoreApplication::processEvents();
        return true;
    };
    ASSERT_TRUE(ExportScore(*window, {busy, 0, 0, goOn}).ok());
    EXPECT_TRUE(ThePlayFlags().playing) << "the play goes on";
    int starts = 0, auditionEnds = 0;
    for (const SentMessage& sent : heard->Messages()) {
        starts += sent.tick > 0 && sent.data2 > 0 && (sent.status & 0xF0) == 0x90;
        auditionEnds += sent.status == audition.status && sent.data1 == audition.data1 && sent.data2 == 0;
    }
    EXPECT_GT(starts, 0) << "the play was heard meanwhile";
    EXPECT_GT(auditionEnds, 0) << "the entered note has ended";
    task.Stop();
    EXPECT_EQ(SoundPort::Existing(), nullptr);
    EXPECT_TRUE(Contents(quiet) == Contents(busy)) << "the same file";
    EndAuditions();
    SoundPort::SetFactory({});
}

}  // namespace
}  // namespace corvane
