// The engraver's spacing: time points of all staves with widths from a table; figures worked out by hand. A
// measure of 2200 page units has 2200 - 200 - 50 * 2200 / 1000 = 1890 of them for its events.
#include "base/Rounding.h"
#include "draw_score.h"
#include "layout/EventSymbols.h"
#include "layout/PageFiling.h"
#include "layout/SignRecords.h"
#include "layout/Spacing.h"
#include "layout/SymbolInk.h"
#include "model/Preferences.h"

namespace corvane::draw {
namespace {

class EngraverSpacing : public DrawTest {
protected:
    void Open(const char* staffs, int32_t width = 2200) {
        New(staffs);
        measure = MeasureAt(SystemAt(0), 1);
        measure->_right = measure->_left + width;
    }
    Voice* VoiceOn(int staff) { return VoiceOfStaff(1, staff); }
    void Fill(int staff, const std::vector<uint8_t>& values) {
        for (const uint8_t value : values) AddChord(VoiceOn(staff), {value, {3}, 0});
    }
    static std::vector<int32_t> Xs(Voice* voice) {
        std::vector<int32_t> xs;
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) xs.push_back(XOf(symbol));
        return xs;
    }
    static std::vector<VoiceSymbol*> EventsOf(Voice* voice) {
        std::vector<VoiceSymbol*> events;
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) events.push_back(symbol);
        return events;
    }
    std::vector<int32_t> Spaced(const SpacingRoom& room = {}, int staff = 0) {
        SpaceMeasure(measure, room);
        return Xs(VoiceOn(staff));
    }
    GraceChord* AddGrace() {
        auto* column = Make<ChordSymbol>();
        column->_value = 8;
        measureSymbols.Add(measure, column);
        auto* chord = Make<GraceChord>();
        voiceSymbols.Add(VoiceOn(0), chord);
        chordSymbolChords.Add(column, chord);
        auto* stem = Make<Stem>();
        stem->_slant = kVerticalStem;
        stem->_length = 250;
        chordSymbolStems.Add(column, stem);
        auto* note = Make<Grace>();
        note->_symbol = LookupSymbol(document, "GraceQuarto");
        note->_line = 5;
        note->_size = 100;
        chordNotes.Add(chord, note);
        AddNoteToStem(stem, note);
        SetDirection(stem, StemDirection::Up);
        return chord;
    }
    static void PutInTuplet(VoiceSymbol* symbol, int16_t count, int16_t inTimeOf) {
        auto* tuplet = Make<Irregular>();
        tuplet->_count = count;
        tuplet->_inTimeOf = inTimeOf;
        auto* mark = Make<MarkIrreg>();
        voiceSymbolAttributes.Add(symbol, mark);
        irregularMarks.Add(tuplet, mark);
    }
    int32_t EndOfMeasure() const { return FrameOf(measure).left + measure->Width(); }
    using Xv = std::vector<int32_t>;
    Measure* measure = nullptr;
};

TEST_F(EngraverSpacing, TheTableHasNoStepsBetweenItsRows) {
    const struct {
        double duration;
        float width;
    } cases[] = {{3.0, 11.5F},   {2.0, 11.5F},    {1.5, 9.0F},     {0.9, 6.6F},   {0.25, 4.0F},
                 {0.166, 2.81F}, {0.0625, 1.41F}, {0.03125, 1.5F}, {0.02, 1.25F}, {-0.5, 1.25F}};
    SpacingTable table;
    table.widths[6] = 1.5F;
    table.widths[7] = 1.25F;
    for (const auto& c : cases) EXPECT_EQ(table.WidthOf(c.duration), c.width) << c.duration;
}

TEST_F(EngraverSpacing, SlackIsSharedByDurationWithACarry) {
    Open("S");
    Fill(0, {4, 4, 2});
    // 400 + 400 + 660 = 1460; of the 430 left a quarter gives 107.5, rounded 108: 508 and 400 + 400 + 216.
    EXPECT_EQ(Spaced(), (Xv{0, 508 * 1000 / 1890, 1016 * 1000 / 1890}));
    // 1100 - 200 - 55 = 845: 615 too much, -153.75 each: 246 and 492.
    measure->_right = measure->_left + 1100;
    EXPECT_EQ(Spaced(), (Xv{0, 246 * 1000 / 845, 492 * 1000 / 845}));
    // Far too narrow: nobody overtakes another. 300 - 200 - 15 = 85; -343.75 each.
    measure->_right = measure->_left + 300;
    EXPECT_EQ(Spaced(), (Xv{0, 56 * 1000 / 85, 112 * 1000 / 85}));
    measure->_right = measure->_left + 200;
    EXPECT_FALSE(SpaceMeasure(measure, {})) << "no room at all";
}

TEST_F(EngraverSpacing, EachEventTakesItsRowOfTheTableAndItsShareOfTheSlack) {
    const auto fillBare = [&](const std::vector<uint8_t>& values) {
        for (const uint8_t value : values)
            AddChord(VoiceOn(0), {value, {3}, 0, StemDirection::Up, "Quarto", 350, false});
    };
    const auto xs = [](std::vector<int32_t> units, int32_t usable) {
        for (int32_t& x : units) x = x * 1000 / usable;
        return units;
    };
    // 281 + 141 + 141 + 400 + 660 = 1623, 267 to share: an eighth 33.4, a 16th 16.7, a quarter 66.75. So 281
    // + 33, 422 + 17 + 33, 563 + 17 + 50, 963 + 67 + 67.
    Open("S");
    fillBare({8, 16, 16, 4, 2});
    EXPECT_EQ(Spaced(), xs({0, 314, 472, 630, 1097}, 1890));
    // Lines 73 apart: 2.81 * 73 is 205.1, 6.6 * 73 481.8; 205 + 205 + 292 + 482 = 1184, 706 to share: an
    // eighth 88.25, a quarter 176.5, rounded up. So 205 + 88, 410 + 88 + 88, 702 + 177 + 176.
    Open("S");
    StaffsFromTop(SystemAt(0))[0]->_lineDistance = 73;
    fillBare({8, 8, 4, 2});
    EXPECT_EQ(Spaced(), xs({0, 293, 586, 1055}, 1890));
    // Other gaps: 2200 - 300 - 220 = 1680; of 220 to share a quarter gives 55.
    Open("S");
    Preferences<PagePref>(document)->_firstNoteGap = 300;
    Preferences<PagePref>(document)->_lastNoteGap = 100;
    fillBare({4, 4, 2});
    EXPECT_EQ(Spaced(), xs({0, 455, 910}, 1680));
}

TEST_F(EngraverSpacing, OnsetsLessThanAThousandthApartAreOne) {
    Open("SS", 2210);
    Fill(0, {4, 4, 4, 2});
    Fill(1, {2, 2});
    VoiceSymbol* symbol = voiceSymbols.First(VoiceOn(0));
    for (int i = 0; i < 3; ++i, symbol = voiceSymbols.Next(symbol)) PutInTuplet(symbol, 3, 2);
    // Four events, at 0, 1/6, 1/3 and 1/2: a sixth of a whole note takes the row of the eighth. 2210 - 200 -
    // 110 = 1900; 3 * 281 + 660 = 1503; of the 397 left a sixth gives 66.2.
    EXPECT_EQ(Spaced(), (Xv{0, 347 * 1000 / 1900, 694 * 1000 / 1900, 1041 * 1000 / 1900}));
    EXPECT_EQ(Xs(VoiceOn(1)), (Xv{0, 1041 * 1000 / 1900}));

    // A quarter of 499/500 ends 0.0005 before a whole one, of 199/200 0.00125 before it.
    for (const int16_t count : {500, 200}) {
        Open("SS");
        Fill(0, {4, 2});
        Fill(1, {4, 2});
        PutInTuplet(voiceSymbols.First(VoiceOn(0)), count, static_cast<int16_t>(count - 1));
        EXPECT_EQ(ListaEventi(measure, {}).events.size(), count == 500 ? 2u : 3u);
    }
}

TEST_F(EngraverSpacing, AllStavesShareTheirTimePoints) {
    Open("SS");
    Fill(0, {4, 2, 4});
    Fill(1, {2, 2});
    // Events at 0, 1/4, 1/2 and 3/4, each a quarter long: 1600, and 72.5 of 290 each, rounded 73.
    const Xv points{0, 473 * 1000 / 1890, 946 * 1000 / 1890, 1419 * 1000 / 1890};
    EXPECT_EQ(Spaced(), (Xv{points[0], points[1], points[3]}));
    EXPECT_EQ(Xs(VoiceOn(1)), (Xv{points[0], points[2]}));
}

TEST_F(EngraverSpacing, ALargerStaffRulesAndExtentsAreMinima) {
    Open("SS");
    StaffsFromTop(SystemAt(0))[1]->_lineDistance = 150;
    Fill(0, {4, 4, 4, 4});
    // 600 each is 2400, 510 too much; -127.5 rounds to -128 each.
    EXPECT_EQ(Spaced(), (Xv{0, 472 * 1000 / 1890, 944 * 1000 / 1890, 1416 * 1000 / 1890}));

    Open("S");
    Fill(0, {4, 4, 4, 4});
    const SpacingTable kept = spacingTable;
    spacingTable.widths.fill(0.0F);
    const int32_t head = RectOf(As<ChordSymbol>(measureSymbols.First(measure))).Width();
    ListaEventi list(measure, {});
    list.LayOut(spacingTable);
    EXPECT_EQ(list.events[1].rightExtent, head * 1000 / 1890);
    const int32_t share = Round((1890 - 4 * head) * 0.25);
    EXPECT_EQ(list.events[1].x, (head + share) * 1000 / 1890);
    // An accidental needs its room left of its head alone: the event before is as wide as that, its own as
    // its head.
    const int32_t sharp = 110 + RectOf(AddAccident(HeadOf(ChordSymbolPar(As<Chords>(
                                                       voiceSymbols.Next(voiceSymbols.First(VoiceOn(0)))))),
                                                   "#d"))
                                    .Width();
    ASSERT_GT(sharp, head);
    const int32_t quarter = Round((1890 - sharp - 3 * head) * 0.25);
    const Xv spaced = Spaced();
    EXPECT_EQ(spaced[1], (sharp + quarter) * 1000 / 1890);
    EXPECT_EQ(spaced[2], (sharp + head + 2 * quarter) * 1000 / 1890);
    spacingTable = kept;
}

TEST_F(EngraverSpacing, AccidentalsStandInColumnsUnlessTheyAreApart) {
    const struct {
        const char* why;
        std::vector<int16_t> lines;  // each with a sharp
        int gaps, columns;
    } cases[] = {{"one", {5}, 1, 1}, {"five steps", {8, 3}, 2, 2}, {"six steps", {9, 3}, 1, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Open("S");
        AddChord(VoiceOn(0), {2, {3}, 0});
        ChordSymbol* chord = AddChord(VoiceOn(0), {2, c.lines, 500});
        int32_t width = 0;
        for (size_t i = 0; i < c.lines.size(); ++i)
            width = RectOf(AddAccident(HeadOf(chord, static_cast<int>(i)), "#d")).Width();
        const auto left = [&](SpacingRoom room) {
            ListaEventi list(measure, room);
            list.LayOut(spacingTable);
            return list.events[1].leftExtent;
        };
        // 110 before the first, 100 before each further column.
        EXPECT_EQ(left({}), (110 + 100 * (c.gaps - 1) + width * c.columns) * 1000 / 1890);
        EXPECT_EQ(left({true, true, false}), 0) << "unless they are to take no room";
    }
}

TEST_F(EngraverSpacing, DotsAndClefsTakeRoomWhereTheyAreTo) {
    Open("S");
    Fill(0, {4, 4, 2});
    VoiceSymbol* first = voiceSymbols.First(VoiceOn(0));
    const int32_t head = RectOf(ChordSymbolPar(As<Chords>(first))).Width(),
                  dot = RectOf(AddDot(first, 1)).Width();
    MeasureStaff* crossing = MeasureStaffPar(first);
    DrawTest::StemOf(ChordSymbolPar(As<Chords>(voiceSymbols.Next(first))))->_x = 400;
    MovingClaf* clef = AddMovingClaf(crossing, 2, 200);
    const int32_t clefWidth = InkOf(clef->_symbol, {}, 100, 75).Width() + 100;
    ListaEventi list(measure, {});
    list.LayOut(spacingTable);
    EXPECT_EQ(list.events[0].rightExtent, (head + 100 + dot) * 1000 / 1890);
    EXPECT_EQ(list.events[1].leftExtent, clefWidth * 1000 / 1890);
    SpaceMeasure(measure, {});
    EXPECT_EQ(clef->_place, Xs(VoiceOn(0))[1] - clefWidth * 1000 / 2200);
    // A clef that nothing follows has no event to stand before.
    clef->_place = 1000;
    EXPECT_FALSE(ListaEventi(measure, {}).CanBeSpaced());
    StemOf(ChordSymbolPar(As<Chords>(voiceSymbols.Last(VoiceOn(0)))))->_x = 990;
    EXPECT_FALSE(SpaceMeasure(measure, {}));
    EXPECT_TRUE(SpaceMeasure(measure, {true, false, true})) << "where clefs take no room it may";
    EXPECT_GT(clef->_place, Xs(VoiceOn(0)).back() - 1) << "and stays behind the last note";
}

// Also in a measure that is too narrow for the table, and where another staff has notes in between.
TEST_F(EngraverSpacing, AClefHasItsRoomBetweenTheNotesOfItsStaff) {
    for (const int32_t width : {1750, 1900, 2600}) {
        SCOPED_TRACE(width);
        Open("SS", width);
        Fill(0, {4, 4, 4, 4});
        Fill(1, {8, 8, 2, 4});
        const std::vector<VoiceSymbol*> notes = EventsOf(VoiceOn(0));
        AddDot(notes[1], 1);
        AddAccident(chordNotes.First(As<Chords>(notes[2])), "#B");
        for (size_t i = 0; i < notes.size(); ++i) PutX(notes[i], static_cast<int32_t>(i) * 250);
        MovingClaf* clef = AddMovingClaf(MeasureStaffPar(notes[0]), 2, 400);
        SpaceMeasure(measure, {});
        const Rect ink = PatchOf(clef).Bounds();
        EXPECT_GE(ink.left - RectOf(DotOf(notes[1])).right, 30);
        EXPECT_EQ(RectOf(AccidentOf(chordNotes.First(As<Chords>(notes[2])))).left - ink.right, 50);
        // The others give room, but none gets before another.
        const Xv xs = Xs(VoiceOn(0)), others = Xs(VoiceOn(1));
        EXPECT_TRUE(std::is_sorted(others.begin(), others.end()));
        EXPECT_LT(xs[1] - xs[0], xs[2] - xs[1]);
        EXPECT_LE(xs[3], 1000);
    }
}

TEST_F(EngraverSpacing, RestsAndGracesHaveTheirPlaces) {
    Open("SS");
    AddRest(VoiceOn(0), 1, 500);
    Fill(1, {2, 2});
    EXPECT_EQ(Spaced(), Xv{500}) << "a whole rest alone in its voice, in the middle of the measure";
    Voice* below = MakeVoice(MeasureStaffPar(VoiceOn(1)), 2);
    AddRest(below, 1, 0);
    AddRest(below, 1, 0);
    Spaced();
    EXPECT_EQ(Xs(below)[0], 0) << "at its time where it is not alone";

    Open("S");
    AddGrace();
    Fill(0, {2});
    AddGrace();
    AddGrace();
    Fill(0, {2});
    // A grace chord takes its ink and 0.6 of a line distance.
    const int32_t wide = RectOf(ChordSymbolPar(As<Chords>(voiceSymbols.First(VoiceOn(0))))).Width() + 60;
    // The first event leaves its grace chord room; 660 + 660 and half of what is left go on from there.
    const int32_t slack = 1890 - wide - 2 * 660, second = wide + 660 + Round(slack * 0.5);
    const int32_t first = wide * 1000 / 1890, next = second * 1000 / 1890;
    EXPECT_EQ(Spaced(), (Xv{first - wide * 1000 / 1890, first, next - 2 * wide * 1000 / 1890,
                            next - wide * 1000 / 1890, next}));
}

TEST_F(EngraverSpacing, AWholeRestAloneTakesNoPartInTheColumns) {
    for (const uint8_t value : {1, 2}) {
        Open("SS");
        StaffsFromTop(SystemAt(0))[0]->_lineDistance = 150;
        const Pause* rest = AddRest(VoiceOn(0), value, 0);
        Fill(1, {2, 2});
        const int32_t head = RectOf(As<ChordSymbol>(measureSymbols.First(measure))).Width(),
                      wide = RectOf(rest).Width();
        ASSERT_GT(wide, head);
        ListaEventi list(measure, {});
        list.LayOut({});
        EXPECT_EQ(list.events[0].rightExtent, (value == 1 ? head : wide) * 1000 / 1890);
    }
}

// Sharps on all events but the first, and what stands on the staff before each.
class DenseAccidentals : public EngraverSpacing {
protected:
    // Eight semiquavers and a minim, in the first measure behind a header.
    void Fill(int index, int32_t noteArea) {
        New("S");
        measure = MeasureAt(SystemAt(0), index);
        measure->_right = measure->_left + FrameOf(measure).header + noteArea;
        voice = VoiceOfStaff(index, 0);
        for (int i = 0; i < 9; ++i) {
            const auto line = static_cast<int16_t>(3 + i % 4);
            const uint8_t value = i < 8 ? 16 : 2;
            ChordSymbol* column =
                AddChord(voice, {value, {line}, 60 * i, StemDirection::Up, "Quarto", 350, false});
            if (i) AddAccident(HeadOf(column), "#d");
        }
        SpaceMeasure(measure, {});
    }
    // The least way from a head to the accidental behind it; below 0 where they touch.
    int32_t LeastGap() const {
        int32_t least = 1000;
        const VoiceSymbol* before = nullptr;
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            const GenericNote* note = chordNotes.First(As<Chords>(symbol));
            if (before)
                least = std::min(least, RectOf(AccidentOf(note)).left -
                                            RectOf(chordNotes.First(As<Chords>(before))).right);
            before = symbol;
        }
        return least;
    }
    Voice* voice = nullptr;
};

TEST_F(DenseAccidentals, TouchNothingWhereTheMeasureIsWideEnough) {
    for (const int index : {0, 1}) {
        SCOPED_TRACE(index ? "behind a barline" : "behind clef and meter");
        // Each needs 118 for the head, some 125 for the accidental, and air; the table gives a minim more.
        for (const int32_t noteArea : {2400, 2800, 3600}) {
            Fill(index, noteArea);
            EXPECT_GE(LeastGap(), 10) << noteArea;
            EXPECT_LE(RectOf(ChordSymbolPar(As<Chords>(voiceSymbols.Last(voice)))).right, EndOfMeasure());
        }
    }
}

TEST_F(DenseAccidentals, AreAllPressedAlikeWhereItIsNot) {
    Fill(1, 1600);
    EXPECT_LT(LeastGap(), 0);
    const Xv xs = Xs(voice);
    for (size_t i = 2; i + 1 < xs.size(); ++i)
        EXPECT_NEAR(xs[i + 1] - xs[i], xs[2] - xs[1], 10) << "no pair is better off than another";
    EXPECT_LE(RectOf(ChordSymbolPar(As<Chords>(voiceSymbols.Last(voice)))).right, EndOfMeasure());
}

TEST_F(EngraverSpacing, GraceChordsStandBehindTheirAccidentals) {
    for (const auto& [why, firstIsGrace] :
         {std::pair("at the start", true), std::pair("after a note", false)}) {
        SCOPED_TRACE(why);
        Open("S", 1500);
        if (!firstIsGrace) Fill(0, {8});
        const GraceChord *one = AddGrace(), *two = AddGrace();
        std::vector<const Accident*> sharps;
        for (const GraceChord* grace : {one, two})
            sharps.push_back(AddAccident(const_cast<GenericNote*>(chordNotes.First(grace)), "#d"));
        Fill(0, {8, 4, 2});
        SpaceMeasure(measure, {});
        const auto right = [](const VoiceSymbol* symbol) {
            return RectOf(ChordSymbolPar(As<Chords>(symbol))).right;
        };
        const int32_t before = firstIsGrace ? FrameOf(measure).left : right(voiceSymbols.First(VoiceOn(0)));
        EXPECT_LT(before, RectOf(sharps[0]).left);
        EXPECT_LT(right(one), RectOf(sharps[1]).left);
        EXPECT_LT(right(two), RectOf(ChordSymbolPar(As<Chords>(voiceSymbols.Next(two)))).left);
    }
}

TEST_F(EngraverSpacing, NothingIsWrittenWhereNothingChanges) {
    Open("SS");
    EXPECT_FALSE(SpaceMeasure(measure, {})) << "no events";
    Fill(0, {8, 8, 8, 8});
    EXPECT_TRUE(SpaceMeasure(measure, {}));
    EXPECT_FALSE(SpaceMeasure(measure, {}));
    EXPECT_EQ(Faults(), "");
}

TEST_F(EngraverSpacing, WhatVoicesOfOneStaffMakeRoomForCounts) {
    SpacingTable narrow;
    narrow.widths.fill(0.0F);
    const auto layOut = [&](int16_t lower, bool dotted, bool sharps, int32_t apart) {
        Open("S");
        Voice* second = MakeVoice(MeasureStaffPar(VoiceOn(0)), 2);
        ChordSymbol *above = AddChord(VoiceOn(0), {4, {5}, 0}),
                    *below = AddChord(second, {4, {lower}, apart, StemDirection::Down});
        if (dotted) AddDot(ChordOf(above), 1);
        for (ChordSymbol* column : {above, below})
            if (sharps) AddAccident(HeadOf(column), "#d");
        ListaEventi list(measure, {});
        list.LayOut(narrow);
        return std::pair(list.events[0].rightExtent - list.events[0].leftExtent, list.events[0].leftExtent);
    };
    const auto units = [](int32_t u) { return u * 1000 / 1890; };
    for (const int32_t apart : {0, 80}) {
        SCOPED_TRACE(apart ? "they come from different places" : "they stand together");
        const auto [alone, none] = layOut(1, false, false, apart);
        const auto [second, left] = layOut(4, false, false, apart);
        EXPECT_NEAR(second - alone, units(118), 2) << "a column a head further right";
        const auto dots = layOut(4, true, false, apart).first - layOut(1, true, false, apart).first;
        EXPECT_NEAR(dots, units(118), 2) << "the dots of the other stand behind it";
        const auto columns = layOut(4, false, true, apart).second,
                   one = layOut(-1, false, true, apart).second;
        EXPECT_NEAR(columns - one, units(200), 2) << "100 and a sharp's width: a second column";
        EXPECT_EQ(none, 0);
        EXPECT_EQ(left, 0);
    }
}

TEST_F(EngraverSpacing, ADottedRestBesideChordsOfOtherVoicesHasRoomForItsDot) {
    const auto widthOfFirst = [&](int dots) {
        Open("S");
        Pause* rest = AddRest(VoiceOn(0), 4, 0);
        if (dots) AddDot(rest, dots);
        for (const int16_t number : {2, 3})
            AddChord(MakeVoice(MeasureStaffPar(VoiceOn(0)), number),
                     {4, {static_cast<int16_t>(number)}, 0, StemDirection::Down});
        ListaEventi list(measure, {});
        list.LayOut(SpacingTable());
        return list.events[0].rightExtent - list.events[0].leftExtent;
    };
    EXPECT_GT(widthOfFirst(1), widthOfFirst(0));
}

}  // namespace
}  // namespace corvane::draw
