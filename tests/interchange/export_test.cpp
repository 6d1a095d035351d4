// What a score is as a MIDI file, on scores made by hand.
#include "../play/events_SmallScore.h"
#include "base/BigEndian.h"
#include "interchange/ExportMidi.h"

namespace corvane {
namespace {

class Export : public SmallScore {
protected:
    // Each track as lines "time: bytes in hex", written straight from the file; tempo and meter included.
    std::vector<std::string> Tracks() const {
        const std::vector<uint8_t> bytes = ExportMidi(document);
        EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 4), "MThd");
        std::vector<std::string> tracks;
        for (size_t at = 14; at < bytes.size(); at += 8 + ReadBig32(&bytes[at + 4]))
            tracks.push_back(Track(&bytes[at + 8], ReadBig32(&bytes[at + 4])));
        EXPECT_EQ(ReadBig16(&bytes[10]), tracks.size());
        return tracks;
    }
    // The notes of a track, "time+key" and "time-key".
    static std::string Notes(const std::string& track) {
        std::string notes;
        for (size_t at = 0; at < track.size(); at = track.find('\n', at) + 1) {
            const size_t colon = track.find(": 9", at);
            if (colon == std::string::npos || colon > track.find('\n', at)) continue;
            const int key = std::stoi(track.substr(colon + 5, 2), nullptr, 16);
            notes += notes.empty() ? "" : " ";
            notes += track.substr(at, colon - at) + (track.substr(colon + 8, 2) == "00" ? '-' : '+');
            notes += std::to_string(key);
        }
        return notes;
    }

    void Show(Measure* measure) {
        auto* sign = Make<TimeSignature>();
        staffSymbols.Add(Crossing(measure), sign);
    }

private:
    static std::string Track(const uint8_t* p, size_t size) {
        std::string text;
        int32_t time = 0;
        for (const uint8_t* end = p + size; p < end;) {
            int32_t delta = 0;
            do delta = delta << 7 | (*p & 0x7F);
            while (*p++ & 0x80);
            time += delta;
            const size_t length = *p == 0xFF ? 3u + p[2] : (*p & 0xF0) == 0xC0 ? 2 : 3;
            text += std::to_string(time) + ":";
            for (size_t i = 0; i < length; ++i) {
                char byte[4];
                std::snprintf(byte, sizeof byte, " %02X", p[i]);
                text += byte;
            }
            text += "\n";
            p += length;
        }
        return text;
    }
};

TEST_F(Export, EveryByteOfAShortScoreIsAsTold) {
    Show(AddMeasure(3, 4));
    Enter(VoiceOf(systemMeasures.First(pageSystems.First(documentPages.First(document)))), 4, {kC4});
    const uint8_t expected[] = {'M',  'T',  'h',  'd',  0,    0,    0,    6,    0,
                                1,    0,    2,    0,    240,  // format 1, two tracks, 240 to a quarter
                                'M',  'T',  'r',  'k',  0,    0,    0,    19,  //
                                0,    0xFF, 0x58, 4,    3,    2,    24,   8,    0,
                                0xFF, 0x51, 3,    0x0F, 0x42, 0x40, 0,    0xFF, 0x2F,
                                0,    'M',  'T',  'r',  'k',  0,    0,    0,    17,  //
                                0,    0xB0, 7,    127,  120,  0x90, 60,   64,   0x81,
                                0x70, 0x90, 60,   0,    0,    0xFF, 0x2F, 0};
    EXPECT_EQ(ExportMidi(document), std::vector<uint8_t>(std::begin(expected), std::end(expected)));
}

TEST_F(Export, TheConductorTellsMetersAndTheTemposOfDownbeats) {
    const struct {
        const char* why;
        int num, den, figure, dots, actual, normal, bpm;
        const char* expected;
    } cases[] = {
        {"six eighths, eighth = 240", 6, 8, 4, 0, 1, 1, 240, "FF 58 04 06 03 18 08|FF 51 03 07 A1 20"},
        {"a denominator between powers is rounded down", 4, 6, 3, 0, 1, 1, 97,
         "FF 58 04 04 02 18 08|FF 51 03 09 70 3C"},
        {"a dotted quarter", 6, 8, 3, 1, 1, 1, 60, "FF 58 04 06 03 18 08|FF 51 03 0A 2C 2A"},
        {"a quarter of a triplet", 4, 4, 3, 0, 2, 3, 60, "FF 58 04 04 02 18 08|FF 51 03 16 E3 60"},
        {"no metronome", 4, 4, 3, 0, 1, 1, 0, "FF 58 04 04 02 18 08|FF 51 03 00 00 00"},
        {"slower than the file can tell", 4, 4, 3, 0, 1, 1, 1, "FF 58 04 04 02 18 08|FF 51 03 FF FF FF"},
    };
    AddMeasure();
    int32_t time = 960, last = 0;
    std::string expected = "0: FF 51 03 0F 42 40\n";  // the first measure has no mark
    for (const auto& c : cases) {
        Measure* measure = AddMeasure(c.num, c.den);
        Show(measure);
        Time* mark = AddTempo(measure, 1, c.bpm);
        mark->_figure = static_cast<int16_t>(c.figure);
        mark->_dots = static_cast<int16_t>(c.dots);
        mark->_tupletActual = static_cast<int16_t>(c.actual);
        mark->_tupletNormal = static_cast<int16_t>(c.normal);
        AddTempo(measure, 2, 80);  // inside the measure: not told
        const std::string both = c.expected, at = std::to_string(time) + ": ";
        expected += at + both.substr(0, 20) + "\n" + at + both.substr(21) + "\n";
        last = time;
        time += c.den == 6 ? 4 * 240 * 4 / 6 : c.num * 960 / c.den;
    }
    EXPECT_EQ(Tracks()[0], expected + std::to_string(last) + ": FF 2F 00\n");
}

TEST_F(Export, EachVoiceOfAStaffIsATrackInOrderOfAppearance) {
    DocStaff *upper = AddStaff(), *lower = AddStaff();
    AddStaff();
    Measure* measure = AddMeasure();
    Enter(AddVoice(Crossing(measure), 3), 1, {kE4});
    Enter(VoiceOf(measure), 2, {kC4});
    Enter(VoiceOf(measure, 1), 4, {kG4});
    VoiceRecord& third = upper->_voices[2];
    third._program = 13;
    third._channel = 10;
    third._volume = 32;
    third._transposition = -12;
    lower->_voices[0]._channel = 0;  // none: nothing can be sent
    upper->_active = 0;              // mute does not count
    const std::vector<std::string> tracks = Tracks();
    ASSERT_EQ(tracks.size(), 5u);
    EXPECT_EQ(tracks[1], "0: C9 0C\n0: B9 07 20\n120: 99 34 10\n1080: 99 34 00\n1080: FF 2F 00\n");
    EXPECT_EQ(tracks[2], "0: B0 07 7F\n120: 90 3C 40\n600: 90 3C 00\n600: FF 2F 00\n");
    EXPECT_EQ(tracks[3], "0: FF 2F 00\n");
    EXPECT_EQ(tracks[4], "0: B0 07 7F\n0: FF 2F 00\n");
}

TEST_F(Export, TimesFollowTheMeters) {
    EnterQuarters(AddMeasure(2, 4), {kC4, kD4});
    AddMeasure(3, 8);  // nothing sounds, yet its time passes
    Measure* odd = AddMeasure(7, 128);
    odd->_endRepeat = 1;  // written once all the same
    Enter(VoiceOf(odd), 128, {kE4});
    AddMeasure(1, 128);
    Enter(VoiceOf(AddMeasure(1, 4)), 4, {kF4});
    // 7/128 are 52 ticks and a half of 7.5 each; what rounding leaves goes to the next measure: 52 and 8.
    EXPECT_EQ(Notes(Tracks()[1]), "120+60 360-60 360+62 600-62 960+64 967-64 1020+65 1260-65");
}

TEST_F(Export, AnOverfullMeasureDoesNotRunIntoTheNext) {
    Measure* measure = AddMeasure(2, 4);
    EnterQuarters(measure, {kC4, kD4, kE4});
    EnterQuarters(AddMeasure(2, 4), {kF4});
    // The third quarter never starts; what it would end is ended with the measure.
    EXPECT_EQ(Notes(Tracks()[1]), "120+60 360-60 360+62 600-62 600-64 600+65 840-65");
}

}  // namespace
}  // namespace corvane
