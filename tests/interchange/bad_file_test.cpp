// MIDI files that lie or exaggerate: a score or the message, and never more memory than 200 bytes for each of
// the file's and 64 MiB, of which half is left to whoever saves or draws the score.
#include <algorithm>
#include <string_view>

#include "HeapMeter.h"
#include "base/BigEndian.h"
#include "base/StoredSpace.h"
#include "import_fixture.h"

namespace corvane {
namespace {

constexpr const char* kInvalid = "Invalid MIDI File";
constexpr int32_t kWhole = 4 * 480, kLongest = 0x0FFFFFFF;

class BadFile : public ImportTest {
protected:
    // A track of raw bytes behind its tag and length.
    static Bytes Chunk(const Bytes& content) {
        constexpr std::string_view kTag = "MTrk";
        Bytes bytes(kTag.size() + 4 + content.size());
        std::copy(kTag.begin(), kTag.end(), bytes.begin());
        WriteBig32(&bytes[kTag.size()], static_cast<uint32_t>(content.size()));
        std::copy(content.begin(), content.end(), bytes.begin() + kTag.size() + 4);
        return bytes;
    }
    static Bytes TempoMap() { return MidiTrackWriter().Finish(); }
    static Bytes Same(size_t tracks, const Bytes& track, int ticksPerQuarter = 480) {
        std::vector<Bytes> all(tracks + 1, track);
        all[0] = TempoMap();
        return File(all, ticksPerQuarter);
    }
    // The head tells more tracks than there are.
    static Bytes Promising(int tracks, Bytes bytes) {
        WriteBig16(&bytes[10], static_cast<uint16_t>(tracks));
        return bytes;
    }
    // The length of the second chunk lies.
    static Bytes Lying(uint32_t length, Bytes bytes) {
        WriteBig32(&bytes[14 + 8 + ReadBig32(&bytes[14 + 4]) + 4], length);
        return bytes;
    }
    static Bytes WithoutEnd(Bytes bytes) {
        bytes.erase(bytes.end() - 4, bytes.end());
        return Lying(static_cast<uint32_t>(bytes.size()), bytes);
    }

    // Every key held from the start, and nothing ended before `end`.
    static Bytes AllHeld(int channels, int32_t end) {
        std::vector<MadeNote> notes;
        for (int channel = 0; channel < channels; ++channel)
            for (int key = 0; key < 128; ++key) notes.push_back({0, end, key, channel});
        return Track(notes);
    }
    // Held keys, and one struck over and over: each stroke cuts all the others.
    static Bytes Cutting(int strokes, int ticks) {
        MidiTrackWriter writer;
        for (int key = 1; key < 128; ++key) writer.Message(0, 0x90, key, 80);
        for (int i = 1; i <= strokes; ++i) writer.Message(i * ticks, 0x90, 0, 80);
        return writer.Finish();
    }
    static Bytes Programs(int channels, int times) {
        MidiTrackWriter writer;
        for (int i = 0; i < times; ++i)
            for (int channel = 0; channel < channels; ++channel)
                writer.Message(0, 0xC0 | channel, (i + channel) & 127);
        for (int channel = 0; channel < channels; ++channel) {
            writer.Message(0, 0x90 | channel, 60, 80);
            writer.Message(kWhole, 0x90 | channel, 60, 0);
        }
        return writer.Finish();
    }
    static Bytes Tempos(int count, int ticks) {
        MidiTrackWriter writer;
        for (int i = 0; i < count; ++i) writer.Meta(i * ticks, MetaKind::Tempo, {"\x07\xA1\x20", 3});
        return writer.Finish();
    }
};

TEST_F(BadFile, IsAScoreOrTheMessageWithinItsMemory) {
    const Bytes good = Music({{0, 480, 60}, {480, 960, 62}});
    const Bytes running = {0, 0x90, 60, 80, 0,    0xFF, 1,  1, 'x', 0x83, 0x60, 60,
                           0, 0,    62, 80, 0x83, 0x60, 62, 0, 0,   0xFF, 0x2F, 0};
    const struct {
        const char* why;
        Bytes bytes;
        int staves;  // 0: refused
    } cases[] = {
        {"running status behind a meta event", File({TempoMap(), Chunk(running)}), 1},
        {"data before any status", File({TempoMap(), Chunk({0, 60, 80})}), 0},
        {"no end of track", WithoutEnd(good), 1},
        {"a track longer than the file", Lying(0xFFFFFFFF, good), 1},
        {"a track that ends within an event", Lying(7, Music({{0, 480, 60}})), 1},
        {"a track that ends before another", Lying(3, Same(2, Track({{0, 480, 60}}))), 0},
        {"a meta event longer than its track", File({TempoMap(), Chunk({0, 0xFF, 3, 0xFF, 0x7F, 'x'})}), 1},
        {"a number without an end", File({TempoMap(), Chunk({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x90})}), 0},
        {"a quarter of one tick", File({TempoMap(), Track({{0, 3, 60}, {3, 4, 62}})}, 1), 1},
        {"time codes for quarters", File({TempoMap(), Track({{0, 480, 60}})}, 0xE728), 1},
        {"a note that lasts 2^28 ticks of the finest", File({TempoMap(), Track({{0, kLongest, 60}})}, 32767),
         1},
        {"the same in a coarse file", File({TempoMap(), Track({{0, kLongest, 60}})}, 24), 0},
        {"times beyond 2^31",
         File({TempoMap(), Chunk({0xFF, 0xFF, 0xFF, 0x7F, 0x90, 60, 80,  //
                                  0xFF, 0xFF, 0xFF, 0x7F, 60,   0,  0xFF, 0xFF, 0xFF, 0x7F, 60, 80,
                                  0xFF, 0xFF, 0xFF, 0x7F, 60,   0,  0xFF, 0xFF, 0xFF, 0x7F, 60, 80,
                                  0xFF, 0xFF, 0xFF, 0x7F, 60,   0,  0xFF, 0xFF, 0xFF, 0x7F, 60, 80,
                                  0xFF, 0xFF, 0xFF, 0x7F, 60,   0,  0xFF, 0xFF, 0xFF, 0x7F, 60, 80})},
              32767),
         0},
        {"10,000 tracks", Same(10000, Track({{0, 480, 60}})), 0},
        {"10,000 empty ones", Same(10000, Chunk({})), 0},
        {"65,535 promised", Promising(65535, good), 1},
        {"1,000 tracks", Same(1000, Track({{0, 480, 60}})), 1000},
        {"programs for 128 channels", Same(8, Programs(16, 1)), 16},
        {"all programs on all channels, over and over", Same(1, Programs(16, 5000)), 2},
        {"128 keys over 32,000 measures", Same(1, AllHeld(1, kWhole * 32000)), 0},
        {"the same on all channels", Same(1, AllHeld(16, kWhole * 32000)), 0},
        {"128 keys over some measures", Same(1, AllHeld(16, kWhole * 4)), 2},
        {"a key that cuts all others, at each tick", Same(1, Cutting(60000, 1)), 1},
        {"the same at each note", Same(1, Cutting(60000, 120)), 0},
        {"fewer of them", Same(1, Cutting(300, 120)), 1},
        {"a silent end far away", File({TempoMap(), Track({{kWhole * 32000, kWhole * 32000 + 480, 60}})}), 1},
        {"the same over 200 tracks", Same(200, Track({{kWhole * 32000, kWhole * 32000 + 480, 60}})), 0},
        {"over 40 tracks", Same(40, Track({{kWhole * 1400, kWhole * 1400 + 480, 60}})), 40},
        {"a tempo at each tick", File({Tempos(60000, 1), Track({{0, 480, 60}})}), 1},
        {"a tempo in each measure", File({Tempos(30000, kWhole), Track({{0, 480, 60}})}), 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Drop();
        const uint64_t stored = StoredSpace::BytesInUse();
        const size_t held = HeapInUse();
        StartHeapPeak();
        const Status status = Import(c.bytes);
        const size_t took = HeapPeak() - held + (StoredSpace::BytesInUse() - stored);
        EXPECT_LE(took, 200 * c.bytes.size() + (size_t{32} << 20));
        EXPECT_EQ(status.message(), c.staves ? "" : kInvalid);
        EXPECT_EQ(status ? documentDocStaffs.Count(score) : 0, c.staves);
    }
}

}  // namespace
}  // namespace corvane
