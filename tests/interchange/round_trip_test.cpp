// Scores made as a person makes them: exported, imported and exported again they say the same.
#include "../edit/spanner_fixture.h"
#include "interchange/ExportMidi.h"
#include "interchange/ImportMidi.h"
#include "midi_sounds.h"

namespace corvane {
namespace {

constexpr int kTempo = 32778, kMeter = 32779, kKey = 32781, kBarline = 32783, kEndings = 32796, kTie = 32804,
              kTuplets = 32805, kMixer = 33050;

class RoundTrip : public SpannerTest {
protected:
    // One more head for the chord of that number.
    void Onto(int measure, int staff, int place, int item, int line) {
        Item(item);
        const Rect head = RectOf(Head(measure, staff, place));
        MouseDown(*window, MiddleOf(head).x, At(measure, staff, 0, line).y, 0);
    }
    // A sharp, a flat or a dot for the first head of an event.
    void Mark(int item, int measure, int place) {
        const Point p = MiddleOf(RectOf(Head(measure, 1, place)));
        Item(item);
        MouseDown(*window, p.x, p.y, 0);
    }
    void Tuplets(int measure, const CommandArguments& ratio) {
        Lasso(measure, -20, measure, 1000);
        Do(kTuplets, ratio);
        SetToolMode(ModePencil);
    }
    static std::vector<uint8_t> ExportOfImported(const std::vector<uint8_t>& bytes) {
        NewMemoryPool* pool = MemoryManager::Instance().NewPool();
        Document* score = BuildNewScore({1, 1}, "");
        ImportOptions options;
        options.level = 0;  // every tick counts
        options.tupletKind = 3;
        options.tupletResolution = 128;
        ImportProgress silent;
        const Status status = ImportMidi(score, bytes, options, silent);
        EXPECT_TRUE(status) << status.message();
        for (const Finding& finding : CheckScore(*pool)) ADD_FAILURE() << TextOf(finding);
        std::vector<uint8_t> again = ExportMidi(score);
        MemoryManager::Instance().DeletePool(pool);
        return again;
    }
    // Tempos and meters, but not where the track ends: an eighth later each time.
    static std::vector<std::string> TempoMapOf(const std::vector<uint8_t>& bytes) {
        MidiFile file;
        EXPECT_TRUE(ReadMidiFile(bytes, file));
        std::vector<std::string> map;
        MidiTrackReader reader(file.tracks[0]);
        for (MidiEvent event; reader.Next(event);) {
            std::string line =
                std::to_string(event.time) + " " + std::to_string(static_cast<int>(event.kind));
            for (const uint8_t byte : event.data) line += " " + std::to_string(byte);
            map.push_back(line);
        }
        return map;
    }

public:
    void Voices() {
        Fill(1, 1, "4:8 4:9 2:10");
        Fill(2, 1, "1:9");
        SetCurrentVoice(2);
        Fill(1, 1, "2:2 r4 8:1 8:0");
        Fill(3, 1, "8:2 8:3 4:4 2:5");
        SetCurrentVoice(1);
        Fill(1, 2, "8:3 16:4 16:5 32:6 32:7 64:8 64:9 128:10 128:9 r64 r32 4:5 4:4");
    }
    void Chords() {
        Fill(1, 1, "4:3 2:4 4:5");
        for (const int line : {5, 7}) Onto(1, 1, 0, kQuarter, line);
        Onto(1, 1, 1, kHalf, 8);
        Mark(kSharp, 1, 0);
        Mark(kFlat, 1, 2);
        Do(kKey, {{"fifths", "-4"}, {"from", "2"}});
        Fill(2, 1, "4:3 4:4 4:5 4:6");
        Mark(kDot, 2, 3);
    }
    void TupletsOfManyKinds() {
        Fill(1, 1, "8:3 8:4 8:5 8:6 r8 8:7");
        Tuplets(1, {});
        Fill(1, 1, "16:3 16:4 16:5 16:4 16:3");
        Fill(2, 1, "16:3 16:4 16:5 16:6 16:5");
        Tuplets(2, {{"count", "5"}, {"in", "4"}});
        Fill(3, 1, "4:3 4:4 4:5");
        Tuplets(3, {});
        Fill(3, 1, "2:6");
        Fill(1, 2, "8:3 16:4 16:5 8:6");
        Fill(2, 2, "16:3 16:4 16:5 16:6 16:7 16:8 16:9");
    }
    void Ties() {
        Fill(1, 1, "2:5 2:5");
        Fill(2, 1, "4:5 4:6 2:7");
        Fill(3, 1, "1:7");
        for (const int line : {3, 7}) Onto(1, 1, 1, kHalf, line);
        Lasso(1, 400, 2, 150);
        Do(kTie, {});
        Lasso(2, 400, 3, 400);
        Do(kTie, {});
    }
    void TemposAndMeters() {
        Do(kMeter, {{"num", "6"}, {"den", "8"}, {"from", "2"}, {"to", "3"}});
        Do(kMeter, {{"num", "3"}, {"den", "2"}, {"from", "4"}});
        Do(kTempo, {{"measure", "1"}, {"figure", "4"}, {"bpm", "132"}});
        Do(kTempo, {{"measure", "2"}, {"figure", "4"}, {"dots", "1"}, {"bpm", "61"}});
        Do(kTempo, {{"measure", "4"}, {"figure", "2"}, {"bpm", "49"}});
        Do(kTempo, {{"measure", "6"}, {"figure", "8"}, {"bpm", "200"}});
        Fill(1, 1, "4:3 4:4 4:5 4:6");
        Fill(2, 1, "8:3 8:4 8:5 4:6 8:5");
        Fill(4, 1, "2:3 2:4 4:5 4:6");
        Fill(6, 2, "1:3 2:4");
    }
    void Repeats() {
        Do(kBarline, {{"measure", "1"}, {"type", "repeatstart"}});
        Do(kBarline, {{"measure", "3"}, {"type", "repeatend"}});
        Do(kEndings, {{"from", "3"}, {"to", "3"}, {"text", "1."}});
        Do(kEndings, {{"from", "4"}, {"to", "4"}, {"text", "2."}});
        for (int measure = 1; measure <= 4; ++measure) Fill(measure, 1, "4:3 r4 2:5");
    }
    void Instruments() {
        Do(kMixer, {{"staff", "1"}, {"program", "41"}, {"volume", "90"}, {"channel", "3"}});
        Do(kMixer, {{"staff", "2"}, {"program", "57"}, {"channel", "4"}, {"transposition", "-2"}});
        Fill(1, 1, "4:3 4:4 2:5");
        Fill(3, 2, "2:3 2:12");
    }
    void GapsAndTooMuch() {
        Fill(1, 1, "4:3 4:4 4:5 4:6 4:7");
        Fill(3, 1, "4:3");
        Fill(5, 2, "r2 8:3 r8");
    }
};

TEST_F(RoundTrip, TheSecondExportIsTheFirstAnEighthLater) {
    const struct {
        const char* why;
        void (RoundTrip::*make)();
        size_t least;  // sounds that are compared
    } cases[] = {
        {"two voices and all values", &RoundTrip::Voices, 40},
        {"chords, accidentals, dots and a key", &RoundTrip::Chords, 14},
        {"triplets, quintuplets, triplets of quarters", &RoundTrip::TupletsOfManyKinds, 40},
        {"ties within and over barlines, of chords too", &RoundTrip::Ties, 10},
        {"tempos and meters that change", &RoundTrip::TemposAndMeters, 30},
        {"repeats and endings, written once", &RoundTrip::Repeats, 16},
        {"programs, volumes, channels, a transposing staff", &RoundTrip::Instruments, 10},
        {"measures without notes, one with too many", &RoundTrip::GapsAndTooMuch, 12},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        window = Open("D", 3, 2);
        (this->*c.make)();
        ExpectSound();
        const std::vector<uint8_t> once = ExportMidi(Score()), twice = ExportOfImported(once);
        window->Activate();
        const std::vector<std::string> first = SoundsOf(once, kMidiLeadTicks);
        EXPECT_GE(first.size(), c.least);
        EXPECT_EQ(SoundsOf(twice, 2 * kMidiLeadTicks), first);
        EXPECT_EQ(TempoMapOf(twice), TempoMapOf(once));
    }
}

}  // namespace
}  // namespace corvane
