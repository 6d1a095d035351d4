// Places of events in proportion to time, and the room of a measure's header; figures worked out by hand with
// the default of 50 per mille kept free before the barline.
#include "layout/Spacing.h"

#include "build_score.h"
#include "layout/Frames.h"
#include "layout/NoteGeometry.h"
#include "layout/SpacingHeader.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane::build {
namespace {

// Values with dots behind them, "t" a triplet's: "4 8. 8t 11".
struct Event {
    uint8_t value;
    int16_t dots;
    bool triplet;
};
std::vector<Event> EventsIn(const std::string& text) {
    std::vector<Event> events;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '.')
            ++events.back().dots;
        else if (text[i] == 't')
            events.back().triplet = true;
        else if (text[i] != ' ') {
            size_t length = 0;
            events.push_back({static_cast<uint8_t>(std::stoi(text.substr(i), &length)), 0, false});
            i += length - 1;
        }
    }
    return events;
}

class SpacingTest : public ScoreTest {
protected:
    SpacingTest() { New("D"); }

    Pause* AddRest(Voice* voice, const Event& event) {
        auto* rest = Make<Pause>();
        rest->_value = event.value;
        rest->_symbol = LookupSymbol(document, "Pausa8");
        rest->_y = 2000;
        voiceSymbols.Add(voice, rest);
        if (event.dots) {
            auto* dot = Make<Dot>();
            dot->_count = event.dots;
            voiceSymbolAttributes.Add(rest, dot);
        }
        if (event.triplet) {
            auto* triplet = Make<Irregular>();
            triplet->_count = 3;
            triplet->_inTimeOf = 2;
            auto* mark = Make<MarkIrreg>();
            voiceSymbolAttributes.Add(rest, mark);
            irregularMarks.Add(triplet, mark);
        }
        return rest;
    }

    template <class ChordRecord, class NoteRecord>
    Stem* AddChord(Voice* voice, uint8_t value, int stems = 1) {
        auto* column = Make<ChordSymbol>();
        column->_value = value;
        measureSymbols.Add(MeasurePar(voice), column);
        auto* chord = Make<ChordRecord>();
        voiceSymbols.Add(voice, chord);
        chordSymbolChords.Add(column, chord);
        for (int i = 0; i < stems; ++i) {
            auto* stem = Make<Stem>();
            stem->_slant = kVerticalStem;
            stem->_length = 350;
            chordSymbolStems.Add(column, stem);
            auto* note = Make<NoteRecord>();
            note->_symbol = LookupSymbol(document, "Quarto");
            note->_line = static_cast<int16_t>(3 + 5 * i);
            note->_size = 100;
            chordNotes.Add(chord, note);
            AddNoteToStem(stem, note);
        }
        return chordSymbolStems.First(column);
    }

    Voice* Empty(int num, int den) {
        New("D");
        Voice* voice = VoiceAt(1);
        MeasurePar(voice)->_num = static_cast<int16_t>(num);
        MeasurePar(voice)->_den = static_cast<int16_t>(den);
        return voice;
    }
    static std::vector<int32_t> PlacesIn(Voice* voice) {
        std::vector<int32_t> places;
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) places.push_back(XOf(symbol));
        return places;
    }
};

TEST_F(SpacingTest, EventsStandInProportionToTime) {
    const struct {
        const char* why;
        int num, den;
        const char* events;
        std::vector<int32_t> places;
    } cases[] = {
        {"steps are rounded one by one: 237.5", 4, 4, "4 4 4 4", {0, 238, 476, 714}},
        {"a voice that is not full keeps its pace", 4, 4, "8 8", {0, 119}},
        {"316.67", 3, 4, "4 4 4", {0, 317, 634}},
        {"a dot adds a half: 712.5", 4, 4, "2. 4", {0, 713}},
        {"two dots three quarters: 831.25", 4, 4, "2.. 8", {0, 831}},
        {"triplets: a sixth of 950 each", 2, 4, "8t 8t 8t 4", {0, 158, 316, 474}},
        {"a double whole counts twice a whole", 4, 1, "11 11", {0, 475}},
        {"5/6 is spaced as 5/8", 5, 6, "8 8 8 8 8", {0, 190, 380, 570, 760}},
        {"5/5 as 5/4", 5, 5, "4 4 4 4 4", {0, 190, 380, 570, 760}},
        {"an overfull voice is spaced by its own sum", 4, 4, "4 4 4 4 4", {0, 190, 380, 570, 760}},
        {"a whole rest alone is centred, whatever the meter", 3, 4, "1", {500}},
        {"beside others it stands in its time", 4, 4, "1 4", {0, 760}},
        {"only a whole rest is centred", 4, 4, "2", {0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Voice* voice = Empty(c.num, c.den);
        for (const Event& event : EventsIn(c.events)) AddRest(voice, event)->_x = -1;
        EXPECT_TRUE(SpaceVoice(voice));
        EXPECT_EQ(PlacesIn(voice), c.places);
        EXPECT_FALSE(SpaceVoice(voice)) << "nothing changes the second time";
    }
    EXPECT_FALSE(SpaceVoice(VoiceAt(2))) << "an empty voice";
}

TEST_F(SpacingTest, TupletsWithinEachOtherMultiplyAndAnEmptyOneCountsNothing) {
    Voice* voice = Empty(4, 4);
    const auto put = [&](VoiceSymbol* symbol, int16_t count, int16_t inTimeOf) {
        auto* tuplet = Make<Irregular>();
        tuplet->_count = count;
        tuplet->_inTimeOf = inTimeOf;
        auto* mark = Make<MarkIrreg>();
        voiceSymbolAttributes.Add(symbol, mark);
        irregularMarks.Add(tuplet, mark);
    };
    Pause* first = AddRest(voice, {4, 0, false});
    put(first, 3, 2);
    put(first, 5, 4);
    put(AddRest(voice, {4, 0, false}), 0, 2);
    AddRest(voice, {4, 0, false});
    SpaceVoice(voice);
    // 237.5 * 2/3 * 4/5 is 126.7; then 237.5.
    EXPECT_EQ(PlacesIn(voice), (std::vector<int32_t>{0, 127, 127 + 238}));
}

TEST_F(SpacingTest, AMeasureIsFullBeyondATenThousandth) {
    const struct {
        const char* why;
        int num, den;
        const char* events;
        double sum;
        bool full;
    } cases[] = {
        {"nothing", 4, 4, "", 0.0, false},
        {"three triplet quarters and a half fill it", 4, 4, "4t 4t 4t 2", 1.0, false},
        {"the smallest value more", 4, 4, "2 4 4 128", 1.0078125, true},
        {"a half in 5/5, which is 5/4", 5, 5, "1 4", 1.25, false},
        {"a double whole in 3/2", 3, 2, "11", 2.0, true},
        {"a whole rest in 3/4", 3, 4, "1", 1.0, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Voice* voice = Empty(c.num, c.den);
        for (const Event& event : EventsIn(c.events)) AddRest(voice, event);
        double sum = -1.0;
        EXPECT_EQ(IsMeasureFull(voice, &sum), c.full);
        EXPECT_NEAR(sum, c.sum, 1e-9);
    }
}

TEST_F(SpacingTest, AllStemsOfAChordMoveTogetherAndOtherVoicesStay) {
    Voice* voice = VoiceAt(1);
    AddRest(voice, {4, 0, false});
    Stem* stem = AddChord<Chords, Note>(voice, 4, 2);
    Voice* other = MakeVoice(MeasureStaffPar(voice), 2);
    AddRest(other, {4, 0, false})->_x = 77;
    SpaceVoice(voice);
    EXPECT_EQ(stem->_x, 238);
    EXPECT_EQ(chordSymbolStems.Next(stem)->_x, 238);
    EXPECT_EQ(PlacesIn(other), (std::vector<int32_t>{77}));
}

TEST_F(SpacingTest, GraceChordsShareTheGapBeforeTheirMainNote) {
    Voice* voice = VoiceAt(1);
    Pause* rest = AddRest(voice, {2, 0, false});
    AddChord<GraceChord, Grace>(voice, 8);
    AddChord<GraceChord, Grace>(voice, 8);
    AddChord<Chords, Note>(voice, 2);
    SpaceVoice(voice);
    const int32_t own = FrameOf(MeasurePar(voice)).PerMille(RectOf(rest).Width()), step = (475 - own) / 2;
    EXPECT_GT(own, 0);
    EXPECT_EQ(PlacesIn(voice), (std::vector<int32_t>{0, own, own + step, 475}))
        << "the main note keeps its time";
    double sum = 0.0;
    EXPECT_FALSE(IsMeasureFull(voice, &sum));
    EXPECT_EQ(sum, 1.0) << "grace chords take no time";
}

TEST_F(SpacingTest, GraceChordsStandBehindTheirAccidentals) {
    const auto sharpen = [&](VoiceSymbol* symbol) {
        auto* sharp = Make<Accident>();
        sharp->_symbol = LookupSymbol(document, "#d");
        noteAttributes.Add(chordNotes.First(As<Chords>(symbol)), sharp);
        return sharp;
    };
    const auto right = [](VoiceSymbol* symbol) { return RectOf(ChordSymbolPar(As<Chords>(symbol))).right; };
    for (const uint8_t value : {16, 2}) {
        SCOPED_TRACE(value == 2 ? "there is room" : "the main note is pushed");
        Voice* voice = Empty(4, 4);
        AddChord<Chords, Note>(voice, value);
        AddChord<GraceChord, Grace>(voice, 8);
        AddChord<GraceChord, Grace>(voice, 8);
        AddChord<Chords, Note>(voice, 2);
        std::vector<VoiceSymbol*> events;
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) events.push_back(symbol);
        std::vector<const Accident*> sharps = {nullptr};
        for (size_t i = 1; i < events.size(); ++i) sharps.push_back(sharpen(events[i]));
        SpaceVoice(voice);
        for (size_t i = 1; i < events.size(); ++i)
            EXPECT_LT(right(events[i - 1]), RectOf(sharps[i]).left) << "event " << i;
        EXPECT_EQ(XOf(events[3]) == 475, value == 2);
    }
}

TEST_F(SpacingTest, GraceChordsWithoutRoomPushTheirMainNoteButNeverOutOfTheMeasure) {
    Voice* voice = VoiceAt(1);
    AddChord<GraceChord, Grace>(voice, 8);
    AddChord<GraceChord, Grace>(voice, 8);
    AddChord<Chords, Note>(voice, 4);
    AddRest(voice, {4, 0, false});
    SpaceVoice(voice);
    const std::vector<int32_t> atStart = PlacesIn(voice);
    EXPECT_EQ(atStart[0], 0);
    EXPECT_EQ(atStart[1], 25) << "at the start they share what is kept free before the barline";
    EXPECT_GE(atStart[2], 50);
    EXPECT_EQ(atStart[3] - atStart[2], 238);

    voice = Empty(4, 4);
    AddRest(voice, {128, 0, false});
    AddChord<GraceChord, Grace>(voice, 8);
    AddChord<GraceChord, Grace>(voice, 8);
    SpaceVoice(voice);
    EXPECT_EQ(PlacesIn(voice), (std::vector<int32_t>{0, 7, 7}))
        << "behind the last event, never back before it";

    voice = Empty(4, 4);
    for (int i = 0; i < 32; ++i) {
        AddChord<Chords, Note>(voice, 32);
        if (i % 4 == 0) AddChord<GraceChord, Grace>(voice, 8);
    }
    SpaceVoice(voice);
    const std::vector<int32_t> crowded = PlacesIn(voice);
    for (size_t i = 1; i < crowded.size(); ++i)
        EXPECT_GT(crowded[i], crowded[i - 1]) << "order stays the order";
    EXPECT_LT(crowded.back(), 950);
}

TEST_F(SpacingTest, TheHeaderHoldsTheWidestSignsWithTheirGaps) {
    const auto width = [&](const char* symbol) {
        return SymbolWidth(LookupSymbol(document, symbol), 100, 100);
    };
    const int32_t clef = std::max(width("ChiaveSol"), width("ChiaveFa"));
    const int32_t time = width("ts 5 su 4 su 4 su 189*");
    EXPECT_GT(clef, 200);
    EXPECT_GT(time, 80);
    const Measure *first = MeasureAt(SystemAt(0), 0), *second = MeasureAt(SystemAt(1), 0);
    EXPECT_EQ(NoteAreaLeft(first), 100 + clef + 100 + time + 200) << "the key of C takes no room and no gap";
    EXPECT_EQ(NoteAreaLeft(second), 100 + clef + 200);
    EXPECT_EQ(NoteAreaLeft(MeasureAt(SystemAt(0), 1)), 200) << "only the room before the first note";

    auto* key = As<ClafSignature>(staffSymbols.Next(staffSymbols.First(measureStaffs.Last(second))));
    ASSERT_TRUE(key);
    {
        const HeadersAtRest outer;
        EXPECT_EQ(NoteAreaLeft(second), 100 + clef + 200);
        const HeadersAtRest inner;
    }
    ChangeSymbol(document, key->_symbol, "cs2%+++----");
    EXPECT_EQ(NoteAreaLeft(second), 100 + clef + 100 + width("cs2%+++----") + 200)
        << "one staff's key is enough";

    Preferences<TimeMeasurePref>(document)->_showTimeSignature = 0;
    EXPECT_EQ(NoteAreaLeft(first), 100 + clef + 200);
    PagePref& gaps = *Preferences<PagePref>(document);
    gaps._barlineClefGap = 30;
    gaps._clefKeyGap = 45;
    gaps._keyTimeGap = 70;
    gaps._firstNoteGap = 10;
    EXPECT_EQ(NoteAreaLeft(first), 30 + clef + 10);
    EXPECT_EQ(NoteAreaLeft(second), 30 + clef + 45 + width("cs2%+++----") + 10);
    Preferences<TimeMeasurePref>(document)->_showTimeSignature = 1;
    EXPECT_EQ(NoteAreaLeft(first), 30 + clef + 70 + time + 10);
}

TEST_F(SpacingTest, SignsStandInColumnsOnTheirLines) {
    const Measure* first = MeasureAt(SystemAt(0), 0);
    MeasureStaff *upper = measureStaffs.First(first), *lower = measureStaffs.Last(first);
    const HeaderPlaces places = PlacesOf(first);
    EXPECT_EQ(PlaceOfSign(staffSymbols.First(upper)), (Point{1600 + places.clef, 1800 + 300}))
        << "on the G line";
    EXPECT_EQ(PlaceOfSign(staffSymbols.First(lower)), (Point{1600 + places.clef, 2800 + 100}))
        << "on the F line";
    const Point above = PlaceOfSign(staffSymbols.Last(upper)), below = PlaceOfSign(staffSymbols.Last(lower));
    EXPECT_EQ(above.x, below.x);
    EXPECT_EQ(above.y, 2000) << "in the middle of the staff";
    EXPECT_EQ(below.y, 3000);
    As<StaticClaf>(staffSymbols.First(upper))->_x = 50;
    As<StaticClaf>(staffSymbols.First(upper))->_y = -50;
    EXPECT_EQ(PlaceOfSign(staffSymbols.First(upper)), (Point{1650 + places.clef, 2050})) << "moved by hand";

    New("C11", 1, 3);
    MeasureStaff* line = measureStaffs.First(MeasureAt(SystemAt(0), 0));
    As<StaticClaf>(staffSymbols.First(line))->_code = 11;
    EXPECT_EQ(PlaceOfSign(staffSymbols.First(line)).y, 1800 + 200) << "a percussion clef on a single line";
}

}  // namespace
}  // namespace corvane::build
