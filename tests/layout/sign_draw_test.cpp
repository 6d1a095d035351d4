// Signs of measures on the page: clefs within, repeats, meters of all kinds, long rests.
#include "draw_score.h"
#include "graphics/MemoryPort.h"
#include "ink_port.h"
#include "layout/CourtesySigns.h"
#include "layout/DrawPatch.h"
#include "layout/Glyphs.h"
#include "layout/MovingClefs.h"
#include "layout/MultiMeasures.h"
#include "layout/NoteAreas.h"
#include "layout/SignRecords.h"
#include "layout/Spacing.h"
#include "layout/SpacingHeader.h"
#include "model/Preferences.h"

namespace corvane::draw {
namespace {

class SignDrawTest : public DrawTest {
protected:
    static Rect Painted(void* record) {
        InkPort port;
        PatchOf(record).Draw(port, {});
        return port.Ink();
    }
    // What is painted lies within the bounds and comes near each side of them.
    static void ExpectTrueBounds(void* record, int32_t slack = 3) {
        const Rect bounds = PatchOf(record).Bounds(), ink = Painted(record);
        ASSERT_FALSE(bounds.IsEmpty());
        EXPECT_NEAR(ink.left, bounds.left, slack);
        EXPECT_NEAR(ink.top, bounds.top, slack);
        EXPECT_NEAR(ink.right, bounds.right, slack);
        EXPECT_NEAR(ink.bottom, bounds.bottom, slack);
    }
    MeasureStaff* CrossingAt(int measure) { return measureStaffs.First(MeasureAt(SystemAt(0), measure)); }
};

TEST_F(SignDrawTest, AClefWithinStandsBeforeWhatItGovernsWithItsAccidental) {
    New("S");
    ChordSymbol* first = AddChord(VoiceAt(1), {4, {3}, 0});
    ChordSymbol* second = AddChord(VoiceAt(1), {4, {3}, 500});
    MovingClaf* clef = AddMovingClaf(CrossingAt(1), 2, 300);
    const auto right = [&] { return PatchOf(clef).Bounds().right; };
    EXPECT_EQ(right(), RectOf(second).left - 50);
    Accident* sharp = AddAccident(HeadOf(second), "#d");
    EXPECT_EQ(right(), RectOf(sharp).left - 50);
    ExpectTrueBounds(clef);

    // Where notes stand close, it keeps off the one before.
    StemOf(second)->_x = 150;
    clef->_place = 30;
    EXPECT_GT(PatchOf(clef).Bounds().left, RectOf(first).left);
    EXPECT_LT(right(), RectOf(second).left);
    // Behind all notes it stands before the barline, wherever its place.
    const MeasureFrame frame = FrameOf(MeasureAt(SystemAt(0), 1));
    for (const int16_t place : {160, 1000}) {
        clef->_place = place;
        EXPECT_EQ(right(), frame.left + frame.width - 16 - 70);
    }
    MeasureAt(SystemAt(0), 1)->_endRepeat = 1;
    EXPECT_EQ(right(), frame.left + frame.width - (42 + 40 + 16 + 40 + 40) - 70);
}

TEST_F(SignDrawTest, AClefStaysBetweenItsNotesWhenTheyMove) {
    New("S");
    ChordSymbol* notes[3];
    for (int i = 0; i < 3; ++i) notes[i] = AddChord(VoiceAt(1), {4, {3}, i * 300});
    MovingClaf* clef = AddMovingClaf(CrossingAt(1), 2, 450);
    const ClefPlaces places(CrossingAt(1));
    for (int i = 0; i < 3; ++i) StemOf(notes[i])->_x = 100 + i * 100;
    places.Apply();
    EXPECT_EQ(clef->_place, 250);
    // Also where both notes come to one place.
    const ClefPlaces again(CrossingAt(1));
    StemOf(notes[1])->_x = 300;
    again.Apply();
    EXPECT_EQ(clef->_place, 299);
}

TEST_F(SignDrawTest, ClefsBeforeOneEventStandSideBySide) {
    New("S");
    AddChord(VoiceAt(1), {4, {3}, 0});
    ChordSymbol* behind = AddChord(VoiceAt(1), {4, {3}, 900});
    MovingClaf* second = AddMovingClaf(CrossingAt(1), 8, 500);
    MovingClaf* first = AddMovingClaf(CrossingAt(1), 2, 400);
    const auto ink = [](MovingClaf* clef) { return PatchOf(clef).Bounds(); };
    EXPECT_EQ(RectOf(behind).left - ink(second).right, 50);
    EXPECT_EQ(ink(second).left - ink(first).right, 50);
    StemOf(behind)->_x = 300;  // now nothing stands behind them, and at the barline there is room for one
    first->_place = 980;
    second->_place = 990;
    EXPECT_EQ(ink(second).left - ink(first).right, 50);
}

TEST_F(SignDrawTest, ClefsOfAMeasureStandInTheirOrder) {
    New("S");
    MovingClaf* late = AddMovingClaf(CrossingAt(0), 2, 700);
    MovingClaf* early = AddMovingClaf(CrossingAt(0), 8, 200);
    EXPECT_EQ(staffSymbols.Next(early), late);
    EXPECT_TRUE(As<TimeSignature>(staffSymbols.Prev(early)));
    ReleaseSign(early);
    ReleaseSign(late);
    EXPECT_EQ(Faults(), "");
}

TEST_F(SignDrawTest, AStartRepeatKeepsItsRoomBehindTheHeader) {
    New("S");
    for (const int place : {0, 1}) {
        Measure* measure = MeasureAt(SystemAt(0), place);
        const HeaderPlaces before = PlacesOf(measure);
        const int32_t signs = before.noteArea - GapsOf(document).firstNote;
        measure->_startRepeat = 1;
        const HeaderPlaces after = PlacesOf(measure);
        EXPECT_EQ(after.repeat, place ? 0 : signs + 100);
        EXPECT_EQ(after.noteArea, after.repeat + 42 + 40 + 16 + 40 + 40 + GapsOf(document).firstNote);
        const Rect ink = PatchOf(measure).Bounds();
        EXPECT_LT(ink.left, FrameOf(measure).left + after.repeat + 1);
    }
    // The barline before it stays where a header stands between them, and goes where none does.
    Measure* third = MeasureAt(SystemAt(0), 2);
    Measure* second = MeasureAt(SystemAt(0), 1);
    third->_startRepeat = 1;
    const int32_t edge = FrameOf(third).left;
    EXPECT_LT(PatchOf(second).Bounds().right, edge - 100);
    SetKey(measureStaffs.First(third), 2);
    EXPECT_EQ(PatchOf(second).Bounds().right, edge);
}

TEST_F(SignDrawTest, NoteAreasKeepTheirProportionsWhileHeadersGrow) {
    New("S", 3);
    System* system = SystemAt(0);
    Measure *first = MeasureAt(system, 0), *second = MeasureAt(system, 1), *third = MeasureAt(system, 2);
    // The second measure has been made twice as wide as the third.
    second->_right = first->_right + (third->_right - first->_right) * 2 / 3;
    third->_left = second->_right;
    const auto area = [](const Measure* m) { return FrameOf(m).NoteArea(); };
    const double ratio = static_cast<double>(area(second)) / area(third);
    const NoteAreas areas(system);
    SetKey(measureStaffs.First(third), 6);
    areas.Apply();
    EXPECT_NEAR(static_cast<double>(area(second)) / area(third), ratio, 0.005);
    EXPECT_EQ(third->_right, system->_right - system->_left - CourtesyWidth(system));
    EXPECT_EQ(second->_right, third->_left);
}

TEST_F(SignDrawTest, ASignIsPaintedWhereItIsHit) {
    New("D");
    auto* endings = Make<Endings>();
    SetText(endings->_text, "1.");
    std::vector<void*> records;
    for (const int place : {1, 2}) {
        auto* mark = Make<MarkEndings>();
        measureSymbols.Add(MeasureAt(SystemAt(0), place), mark);
        endingsMarks.Add(endings, mark);
        records.push_back(mark);
    }
    MeasureAt(SystemAt(0), 2)->_endRepeat = 1;
    for (int16_t figure = 0; figure <= 8; ++figure) {
        auto* mark = Make<Time>();
        measureSymbols.Add(MeasureAt(SystemAt(0), 3), mark);
        mark->_beat = int16_t{2};
        mark->_figure = figure;
        mark->_dots = static_cast<int16_t>(figure % 3);
        mark->_bpm = int16_t{120};
        mark->_placement = static_cast<uint8_t>(34 + figure % 3);
        records.push_back(mark);
    }
    auto* coda = Make<Coda>();
    measureSymbols.Add(MeasureAt(SystemAt(0), 4), coda);
    coda->_symbol = LookupSymbol(document, "Al Coda");
    records.push_back(coda);
    for (void* record : records) ExpectTrueBounds(record, 40);  // a line of text is as high as its font
}

TEST_F(SignDrawTest, MetersOfEveryKindStandBetweenTheOuterLines) {
    New("S");
    MeasureStaff* crossing = CrossingAt(0);
    const StaffFrame frame = FrameOf(crossing->_staff.Get());
    for (int kind = 0; kind < kMeterKinds; ++kind) {
        SCOPED_TRACE(kind);
        Meter meter{{4}, 4, static_cast<MeterKind>(kind)};
        if (meter.kind == MeterKind::Cut) meter = {{2}, 2, MeterKind::Cut};
        if (meter.kind == MeterKind::Sum || meter.kind == MeterKind::SumOfFractions)
            meter = {{3, 2, 2}, 8, meter.kind};
        ASSERT_EQ(FaultOf(meter), nullptr);
        MeasurePar(crossing)->_num = static_cast<int16_t>(meter.Num());
        MeasurePar(crossing)->_den = static_cast<int16_t>(meter.den);
        SetTime(crossing, meter);
        auto* sign = SignOf<TimeSignature>(crossing);
        EXPECT_EQ(MeterOf(sign), meter) << "what is written can be read again";
        ExpectTrueBounds(sign, 4);
        const Rect ink = Painted(sign);
        EXPECT_GE(ink.top, frame.top - 60);
        EXPECT_LE(ink.bottom, frame.Bottom() + 60);
        EXPECT_LT(ink.right, FrameOf(MeasurePar(crossing)).XOf(0) - 100);
    }
    EXPECT_EQ(Faults(), "");
}

TEST_F(SignDrawTest, TheEndOfASystemTellsWhatTheNextOneBeginsWith) {
    New("D", 2, 2);
    System *first = SystemAt(0), *second = SystemAt(1);
    Measure *last = MeasureAt(first, 1), *head = MeasureAt(second, 0);
    const Rect before = PatchOf(last).Bounds();
    EXPECT_EQ(CourtesyWidth(first), 0);
    for (MeasureStaff* crossing : measureStaffs.Of(head)) SetKey(crossing, 3);
    const int32_t key = CourtesyWidth(first);
    EXPECT_GT(key, 350);
    for (MeasureStaff* crossing : measureStaffs.Of(head)) SetTime(crossing, Meter{{3}, 4, MeterKind::Normal});
    EXPECT_GT(CourtesyWidth(first), key + 150);
    SetClef(SignOf<StaticClaf>(measureStaffs.First(head)), 2);
    FitMeasures(first);
    // The barline leaves the room, and all of it is inside the staves.
    EXPECT_EQ(last->_right, first->_right - first->_left - CourtesyWidth(first));
    const Rect ink = Painted(last);
    EXPECT_LT(ink.right, before.right - 20);
    EXPECT_GT(ink.right, OriginOf(first).x + last->_right + 400);
    EXPECT_LT(ink.left, OriginOf(first).x + last->_right - 200) << "the clef stands before the barline";
    ExpectTrueBounds(last);
    // What holds anyway is not said, nor anything behind a final barline.
    EXPECT_EQ(CourtesyWidth(second), 0);
    last->_barline = BarlineKind::Final;
    EXPECT_EQ(CourtesyWidth(first), 0);
    EXPECT_EQ(Faults(), "");
}

TEST_F(SignDrawTest, ShortStavesHaveBarlinesAndTheirDotsInSpaces) {
    const struct {
        const char* staffs;
        int32_t above, apart;  // from the top line to the barline's top; between the dots' middles
    } cases[] = {{"C11", 100, 100}, {"C21", 5, 50}, {"C41", 5, 200}, {"S", 5, 100}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.staffs);
        New(c.staffs, 2, 1);
        Measure* first = MeasureAt(SystemAt(0), 0);
        first->_endRepeat = 1;
        const StaffFrame staff = FrameOf(StaffsFromTop(SystemAt(0)).front());
        const Rect ink = Painted(first);
        EXPECT_NEAR(staff.top - ink.top, c.above, 1);
        EXPECT_NEAR(ink.bottom - staff.Bottom(), c.above, 1);
        ExpectTrueBounds(first);
        MemoryPort port(MemoryPort::Tracing::On);
        PatchOf(first).Draw(port, {});
        std::vector<int> tops;
        for (const std::string& line : port.Lines())
            if (line.starts_with("fillellipse ")) {
                int left = 0, top = 0;
                ASSERT_EQ(std::sscanf(line.c_str(), "fillellipse %d %d", &left, &top), 2);
                tops.push_back(top);
            }
        ASSERT_EQ(tops.size(), 2u);
        EXPECT_EQ(tops[1] - tops[0], c.apart);
    }
}

TEST_F(SignDrawTest, TimeSignaturesThatAreNotShownLeaveNoTrace) {
    New("D", 2, 2);
    Measure *first = MeasureAt(SystemAt(0), 0), *head = MeasureAt(SystemAt(1), 0);
    for (MeasureStaff* crossing : measureStaffs.Of(head)) SetTime(crossing, Meter{{3}, 4, MeterKind::Normal});
    ASSERT_GT(CourtesyWidth(SystemAt(0)), 0);
    const HeaderPlaces shown = PlacesOf(first);
    auto* sign = SignOf<TimeSignature>(measureStaffs.First(first));
    const int32_t width = PatchOf(sign).Bounds().Width();
    Preferences<TimeMeasurePref>(document)->_showTimeSignature = 0;
    EXPECT_EQ(CourtesyWidth(SystemAt(0)), 0);
    EXPECT_TRUE(PatchOf(sign).Bounds().IsEmpty());
    EXPECT_TRUE(Painted(sign).IsEmpty());
    EXPECT_EQ(PlacesOf(first).noteArea, shown.noteArea - width - GapsOf(document).keyTime);
}

TEST_F(SignDrawTest, ALongRestFillsItsMeasureAndTellsItsCount) {
    New("D", 2);
    System* system = SystemAt(0);
    MultiMeasure* measure = MakeMultiMeasure(system, MeasureAt(system, 1), 24);
    NumberMeasures(document);
    FitMeasures(system);
    EXPECT_EQ(Faults(), "");
    const MeasureFrame frame = FrameOf(measure);
    for (MeasureStaff* crossing : measureStaffs.Of(measure)) {
        auto* rest = SignOf<MultiPause>(crossing);
        ASSERT_TRUE(rest);
        ExpectTrueBounds(rest);
        const Rect ink = Painted(rest);
        const StaffFrame staff = FrameOf(crossing->_staff.Get());
        EXPECT_LT(ink.top, staff.top - 100) << "the number stands above the staff";
        EXPECT_NEAR(ink.left - frame.left, frame.left + frame.width - ink.right, 2)
            << "in the middle of the measure";
    }
    EXPECT_GT(InkOfNumber(24, {}, 100).Width(), InkOfNumber(2, {}, 100).Width() + 60);
}

}  // namespace
}  // namespace corvane::draw
