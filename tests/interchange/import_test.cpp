// MIDI files as scores: what is refused, and what is written of what is heard.
#include "import_fixture.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/PageLayout.h"
#include "layout/SignRecords.h"
#include "layout/Spacing.h"
#include "layout/SpacingHeader.h"
#include "model/Texts.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

using MidiImport = ImportTest;
using Bytes = std::vector<uint8_t>;

Bytes Poke(Bytes bytes, size_t place, uint8_t value) {
    bytes[place] = value;
    return bytes;
}

TEST_F(MidiImport, WhatIsNoScoreIsRefusedInWords) {
    const Bytes good = Music({{0, 480, 60}});
    const struct {
        const char* why;
        Bytes bytes;
        const char* expected;
    } cases[] = {
        {"nothing", {}, "Invalid MIDI File"},
        {"another kind of file", Poke(good, 0, 'X'), "Invalid MIDI File"},
        {"another header length", Poke(good, 7, 8), "Invalid MIDI File"},
        {"format 0", Poke(good, 9, 0), "Can't import MIDI Files type 0"},
        {"format 2", Poke(good, 9, 2), "Can't import MIDI Files type 2"},
        {"a format that is none", Poke(good, 9, 3), "Invalid MIDI File"},
        {"no ticks to a quarter", Poke(Poke(good, 12, 0), 13, 0), "Invalid MIDI File"},
        {"no track at all", Bytes(good.begin(), good.begin() + 14), "Invalid MIDI File"},
        {"another chunk", Poke(good, 14, 'X'), "Invalid MIDI File"},
        {"a status that means nothing", Poke(good, 35, 0xF4), "Invalid MIDI File"},
        {"a status where a key should be", Poke(good, 36, 0xB0), "Invalid MIDI File"},
        {"more measures than a score holds", Music({{0, 480, 60}, {1920 * 32767, 1920 * 32767 + 480, 60}}),
         "Invalid MIDI File"},
        {"far more of them than the file's size can mean", Music({{0, 0x0FFFFFFF, 60}}), "Invalid MIDI File"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Import(c.bytes).message(), c.expected);
    }
    options.tuplets = true;
    EXPECT_TRUE(Import(Poke(good, 12, 0xE7))) << "time codes count as many ticks";
    EXPECT_TRUE(Import(Poke(good, 11, 200))) << "more tracks promised than there are";
    EXPECT_TRUE(Import(Poke(good, 26 + 4, 0xFF))) << "a length that lies";
}

TEST_F(MidiImport, AFileCutOffAnywhereIsRefusedOrAScore) {
    const Bytes good = Real("m21-test02.mid");
    ASSERT_TRUE(Import(good));
    for (size_t length = 0; length < good.size(); length += 13) {
        const Status status = Import(Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length)));
        EXPECT_EQ(status.message(), status ? "" : "Invalid MIDI File") << length;
    }
}

TEST_F(MidiImport, NotesAreWrittenAsTheyAreRead) {
    const struct {
        const char* why;
        std::vector<MadeNote> notes;
        const char* expected;
    } cases[] = {
        {"a quarter, and rests that show the beats", {{0, 480, 60}}, "4:60 r4 r2"},
        {"a chord", {{0, 960, 60}, {0, 960, 64}}, "2:60+64 r2"},
        {"over the barline", {{1440, 2400, 60}}, "r2 r4 4:60~|4:60 r4 r2"},
        {"a gap that nobody means", {{0, 470, 60}, {480, 900, 62}, {960, 1920, 64}}, "4:60 4:62 2:64"},
        {"a note before a long silence ends on the beat", {{0, 360, 60}, {960, 1920, 62}}, "4:60 r4 2:62"},
        {"a short one is short on purpose", {{0, 120, 60}, {960, 1920, 62}}, "16:60 r16 r8 r4 2:62"},
        {"a note that sounds on is cut where the next one begins",
         {{0, 960, 60}, {480, 960, 64}, {960, 1920, 60}},
         "4:60~ 4:60+64 2:60"},
        {"what ends earlier leaves the others tied",
         {{0, 480, 60}, {0, 960, 64}, {960, 1920, 60}},
         "4:60+64~ 4:64 2:60"},
        {"from one beat into another", {{120, 720, 60}, {720, 1920, 62}}, "r16 8.:60~ 8:60 8:62~ 2:62"},
        {"no end at all: it sounds to the last of the track",
         {{0, -1, 60}, {960, 1920, 67}},
         "2:60~ 2:60+67"},
        {"a doubling is one note", {{0, 1920, 60}, {0, 1920, 60}}, "1:60"},
        {"triplets of a beat each",
         {{0, 160, 60}, {160, 320, 62}, {320, 480, 64}, {480, 800, 65}, {800, 960, 67}, {960, 1920, 69}},
         "(8/3:60 8/3:62 8/3:64 (4/3:65 8/3:67 2:69"},
        {"a triplet with a silence in it",
         {{0, 160, 60}, {320, 480, 64}, {480, 1920, 65}},
         "(8/3:60 r8/3 8/3:64 2.:65"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        ASSERT_TRUE(Import(Music(c.notes)));
        EXPECT_EQ(Voice(), c.expected);
    }
}

TEST_F(MidiImport, AnAccidentalHoldsForItsMeasureInAllVoices) {
    std::vector<MadeNote> notes = {{0, 1920, 73, 1}};
    for (const int key : {61, 61, 60, 61, 61, 73, 61, 61}) {
        const auto on = static_cast<int32_t>(notes.size() - 1) * 480;
        notes.push_back({on, on + 480, key, 0});
    }
    ASSERT_TRUE(Import(Music(notes)));
    EXPECT_EQ(Signs(), "#d#d-#A#d|#d#d--|");
    // Parts of one note show it once, and what is struck behind them shows it again.
    ASSERT_TRUE(Import(Music({{1440, 3000, 61}, {3000, 3840, 61}})));
    EXPECT_EQ(Voice(), "r2 r4 4:61~|2:61~ 16:61 4..:61");
    EXPECT_EQ(Signs(), "#d|--#d|");
}

TEST_F(MidiImport, MeasuresAreFilledWhateverTheMeter) {
    const struct {
        int num, doublings;
        MadeNote note;
        const char* expected;
    } cases[] = {
        {3, 2, {0, 1440, 60}, "2.:60"},           {3, 2, {480, 960, 60}, "r4 4:60 r4"},
        {6, 3, {720, 960, 60}, "r4. 8:60 r8 r8"}, {6, 3, {240, 1440, 60}, "r8 4:60~ 4.:60"},
        {5, 3, {0, 240, 60}, "8:60 r8 r8 r8 r8"}, {2, 1, {0, 1920, 60}, "1:60"},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(Import(File({Meter(c.num, c.doublings), Track({c.note})})));
        EXPECT_EQ(Voice(), c.expected) << c.num << "/" << (1 << c.doublings);
    }
}

TEST_F(MidiImport, ChannelsAreVoicesAndTracksAreStaves) {
    std::vector<MadeNote> nine;
    for (int channel = 0; channel < 9; ++channel) nine.push_back({0, 1920, 60 + channel, channel});
    ASSERT_TRUE(Import(File({MidiTrackWriter().Finish(), Track(nine), Track({{0, 1920, 40}})})));
    EXPECT_EQ(documentDocStaffs.Count(score), 3) << "a pair, and a staff whose pair would be empty";
    EXPECT_EQ(Voice(1, 8), "1:67");
    EXPECT_EQ(Voice(2, 1), "1:68");
    EXPECT_EQ(Voice(3, 1), "1:40");
    EXPECT_EQ(documentDocStaffs.First(score)->_voices[7]._channel, 8);
    const MeasureStaff* low = docStaffMeasureStaffs.First(documentDocStaffs.Last(score));
    EXPECT_EQ(SignOf<StaticClaf>(low)->_code, 2) << "low notes stand under a bass clef";
}

TEST_F(MidiImport, NotesThatDoNotMoveTogetherGoToAnotherVoice) {
    const Bytes file = Music({{0, 1920, 72}, {0, 480, 60}, {480, 960, 62}, {960, 1920, 64}});
    options.splitVoice = 2;
    ASSERT_TRUE(Import(file));
    EXPECT_EQ(Voice(1, 1), "1:72");
    EXPECT_EQ(Voice(1, 2), "4:60 4:62 2:64");
    options.splitVoice = 0;
    ASSERT_TRUE(Import(file));
    EXPECT_EQ(Voice(1, 2), "");
}

TEST_F(MidiImport, TheTempoMapIsReadInBeatsOfTheMeter) {
    MidiTrackWriter map;
    const auto tempo = [&](int32_t time, int32_t us) {
        const char bytes[] = {static_cast<char>(us >> 16), static_cast<char>(us >> 8), static_cast<char>(us)};
        map.Meta(time, MetaKind::Tempo, {bytes, 3});
    };
    tempo(0, 500000);
    tempo(2400, 600000);  // within the second measure
    map.Meta(3840, MetaKind::Meter, std::string_view("\x06\x03\x18\x08", 4));
    tempo(3840, 400000);
    map.Meta(3840, MetaKind::Key, std::string_view("\xFE\x00", 2));
    ASSERT_TRUE(Import(File({map.Finish(), Track({{0, 480, 70}, {3840, 5280, 70}})})));
    std::string tempos;
    const Measure* measure = systemMeasures.First(pageSystems.First(documentPages.First(score)));
    for (; measure; measure = NextMeasure(measure))
        for (const MeasureSymbol* symbol : measureSymbols.Of(measure))
            if (const auto* mark = As<Time>(symbol))
                tempos += std::to_string(measure->_number) + ":" + std::to_string(mark->_beat) + " " +
                          std::to_string(mark->_figure) + "=" + std::to_string(mark->_bpm) + " ";
    EXPECT_EQ(tempos, "1:1 3=120 2:1 3=100 3:1 4=300 ");
    std::vector<Alteration> spelt;
    for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(documentDocStaffs.First(score)))
        if (const auto* chord = As<Chords>(voiceSymbols.First(measureStaffVoices.First(crossing))))
            spelt.push_back(chordNotes.First(chord)->_alteration);
    EXPECT_EQ(spelt, (std::vector<Alteration>{Alteration::Sharp, Alteration::Flat})) << "the key spells";
}

TEST_F(MidiImport, EverySystemStandsWholeOnItsPage) {
    for (const int tracks : {1, 5, 36, 200}) {
        std::vector<Bytes> all(static_cast<size_t>(tracks) + 1, Track({{0, 1920 * 3, 60}}));
        all[0] = MidiTrackWriter().Finish();
        ASSERT_TRUE(Import(File(all)));
        for (const Page* page : documentPages.Of(score))
            for (const System* system : pageSystems.Of(page)) {
                EXPECT_LE(system->_bottom, Document::pageHeight - page->_bottomMargin) << tracks;
                int32_t last = -1;
                for (const Staff* staff : StaffsFromTop(system)) {
                    EXPECT_GT(staff->_top, last);
                    last = staff->_bottom;
                }
            }
    }
}

TEST_F(MidiImport, ALastSystemOfFewMeasuresIsNotTornToTheMargin) {
    MidiTrackWriter writer;
    writer.Meta(0, MetaKind::Name, "Viola");  // the first system makes room for it
    const Bytes map = MidiTrackWriter().Finish(), part = writer.Finish();
    int shortOnes = 0;
    for (int bars = 1; bars <= 12; ++bars) {
        ASSERT_TRUE(Import(File({map, part, Track({{0, 1920 * bars, 60}})})));
        const System* last = SystemPar(LastMeasure(score));
        const Measure* before = PrevMeasure(systemMeasures.First(last));
        const System* above = before ? SystemPar(before) : last;
        const bool isShort = last->_right < above->_right;
        EXPECT_EQ(isShort, 2 * last->_measureCount <= above->_measureCount) << bars;
        EXPECT_EQ(LastMeasure(score)->_right, last->_right - last->_left) << bars;
        if (!isShort) continue;
        ++shortOnes;
        const Measure *one = systemMeasures.Last(last), *other = systemMeasures.Last(above);
        EXPECT_NEAR(one->Width() - NoteAreaLeft(one), other->Width() - NoteAreaLeft(other), 2) << bars;
    }
    EXPECT_GT(shortOnes, 1);
}

TEST_F(MidiImport, TheTitleAndTheNamesOfStavesAreShown) {
    MidiTrackWriter map, part;
    map.Meta(0, MetaKind::Name, "Ständchen");
    part.Meta(0, MetaKind::Text, "Someone has made this file");
    part.Meta(0, MetaKind::Name, "Viola");
    const auto lefts = [&] {
        const Page* page = documentPages.First(score);
        const System *first = pageSystems.First(page), *second = pageSystems.Next(first);
        return std::pair(first->_left.Get(), second->_left.Get());
    };
    const Bytes notes = Track({{0, 1920 * 12, 60}});
    ASSERT_TRUE(Import(File({map.Finish(), part.Finish(), notes})));
    EXPECT_EQ(TitleOf(score), "Ständchen");
    EXPECT_EQ(TextOf(allStaffStaffs
                         .ParentOf(As<SimpleStaff>(
                             systemStaffs.First(pageSystems.First(documentPages.First(score)))))
                         ->_name),
              "Viola");
    EXPECT_GT(lefts().first, lefts().second) << "room for the names";
    ASSERT_TRUE(Import(File({MidiTrackWriter().Finish(), notes, notes})));
    EXPECT_EQ(TitleOf(score), "");
    EXPECT_EQ(lefts().first, lefts().second);
}

TEST_F(MidiImport, WhatSoundsTogetherStandsTogetherAndClearOfBarlines) {
    std::vector<MadeNote> runs;
    for (int i = 0; i < 16; ++i) runs.push_back({i * 120, i * 120 + 120, 61 + i % 2});
    const std::vector<MadeNote> beats = {{0, 480, 61}, {0, 480, 63}, {0, 480, 66}, {480, 1920, 60}};
    ASSERT_TRUE(Import(File({MidiTrackWriter().Finish(), Track(runs), Track(beats)})));
    const Measure* measure = systemMeasures.First(pageSystems.First(documentPages.First(score)));
    const int32_t header = FrameOf(measure).XOf(0) - GapsOf(score).firstNote;
    std::vector<std::vector<int32_t>> places;
    for (const MeasureStaff* crossing : measureStaffs.Of(measure)) {
        places.emplace_back();
        for (const VoiceSymbol* symbol : voiceSymbols.Of(measureStaffVoices.First(crossing))) {
            places.back().push_back(XOf(symbol));
            for (const GenericNote* note : chordNotes.Of(As<Chords>(symbol)))
                if (const Accident* accident = AccidentOf(note)) {
                    EXPECT_GT(RectOf(accident).left, header) << SoundingHeight(note);
                }
        }
    }
    ASSERT_EQ(places.size(), 2u);
    ASSERT_EQ(places[0].size(), 16u);
    ASSERT_EQ(places[1].size(), 2u);
    EXPECT_EQ(places[1], (std::vector<int32_t>{places[0][0], places[0][4]}));
}

// Each export puts its notes 120 ticks behind the meters: what was exported once more has them twice.
TEST_F(MidiImport, WhatWentOutComesBackTheSame) {
    options.level = 0;
    for (const char* name : {"m21-test02.mid", "part-test_anacrusis.mid", "fdm-d_intro.mid"}) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(Import(Real(name)));
        const Bytes once = ExportMidi(score);
        ASSERT_TRUE(Import(once));
        const std::vector<std::string> first = SoundsOf(once, kMidiLeadTicks);
        EXPECT_GT(first.size(), 5u);
        EXPECT_EQ(SoundsOf(ExportMidi(score), 2 * kMidiLeadTicks), first);
    }
}

}  // namespace
}  // namespace corvane
