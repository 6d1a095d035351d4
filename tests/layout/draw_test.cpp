// What each class paints: the order, the colour, the reach of its ink.
#include <set>

#include "draw_score.h"
#include "graphics/MemoryPort.h"
#include "ink_port.h"
#include "layout/PageFiling.h"
#include "layout/Sheet.h"
#include "store/NewMemoryPool.h"

namespace corvane::draw {
namespace {

using enum StemDirection;
using Lines = std::vector<std::string>;

class DrawingTest : public DrawTest {
protected:
    DrawingTest() { New("D", 3, 1); }
    static Lines TraceOf(void* record, const DrawContext& context = {}) {
        MemoryPort port(MemoryPort::Tracing::On);
        PatchOf(record).Draw(port, context);
        return port.Lines();
    }
    // The first word of each call, a character with its code: "char 207 line".
    static std::string Calls(const Lines& lines) {
        std::string text;
        for (const std::string& line : lines) {
            size_t end = line.find(' ');
            if (line.starts_with("char")) end = line.find(' ', end + 1);
            text += (text.empty() ? "" : " ") + line.substr(0, end);
        }
        return text;
    }
    // The colours of the calls, in order.
    static std::string Colours(const Lines& lines) {
        std::string text;
        for (const std::string& line : lines) text += line.substr(line.find('#'), 7);
        return text;
    }
    // A page with something of everything.
    void FillPage() {
        ChordSymbol* chord = AddChord(VoiceOfStaff(0, 0), {8, {14, 6, 5, -3}, 100});
        AddAccident(HeadOf(chord), "#B(");
        AddDot(ChordOf(chord), 2);
        AddChord(VoiceOfStaff(0, 0), {128, {-6}, 500, Down});
        AddRest(VoiceOfStaff(0, 1), 1, 500, 0);
        std::vector<BeamSymbol*> stems;
        for (int32_t i = 0; i < 3; ++i)
            stems.push_back(
                StemOf(AddChord(VoiceOfStaff(1, 1), {16, {3}, 250 * i, Up, "Croce", 350, false})));
        AddBeam(stems, {16, 32, 16}, 'U');
        SetEnd(static_cast<Stem*>(stems[2]), LineOf(static_cast<Stem*>(stems[2])).end - 300);
        AddRest(VoiceOfStaff(1, 0), 128, 300);
        MeasureAt(SystemAt(0), 1)->_startRepeat = 1;
        MeasureAt(SystemAt(0), 1)->_endRepeat = 1;
        MeasureAt(SystemAt(0), 0)->_barline = BarlineKind::Dashed;
        auto* text = Make<PageText>();
        text->_text = Make<GenericText>();
        SetText(text->_text->_text, "Sonata");
        text->_text->_font = LookupFont(document, "Times New Roman", 300, 1);
        text->_x = 5000;
        text->_y = 900;
        pageTexts.Add(FirstPage(), text);
    }
    static constexpr StemDirection Up = StemDirection::Up;
};

TEST_F(DrawingTest, AColumnPaintsHeadsWithTheirLedgerLinesThenStemThenFlags) {
    ChordSymbol* chord = AddChord(VoiceOfStaff(0, 0), {8, {5, -3}});
    EXPECT_EQ(Calls(TraceOf(chord)), "char 207 char 207 line line line char 106");
    EXPECT_EQ(Calls(TraceOf(AddChord(VoiceOfStaff(0, 0), {1, {5}, 0, HiddenUp, "Intero"}))), "char 119");
    EXPECT_EQ(Calls(TraceOf(AddChord(VoiceOfStaff(0, 0), {32, {5}, 0, Down}))),
              "char 207 line char 240 char 75");

    HeadOf(chord, 1)->_hidden = 1;
    EXPECT_EQ(Calls(TraceOf(chord)), "char 207 char 207 line char 106")
        << "a hidden head has no ledger lines";
    HeadOf(chord, 0)->_side = Side::Right;
    const Lines lines = TraceOf(chord);
    EXPECT_NE(lines[0].find(" l "), std::string::npos);
    EXPECT_NE(lines[1].find(" r "), std::string::npos) << "heads left of the stem end at it";
}

TEST_F(DrawingTest, AGraceChordsSlashNeedsAFlag) {
    ChordSymbol* column = AddChord(VoiceOfStaff(0, 0), {8, {5}, 0, Up, "GraceQuarto"});
    Chords* plain = ChordOf(column);
    GenericNote* head = HeadOf(column);
    auto* grace = Make<GraceChord>();
    grace->_slash = 1;
    chordNotes.Remove(head);
    chordNotes.Add(grace, head);
    voiceSymbols.Add(VoiceOfStaff(0, 0), grace);
    chordSymbolChords.Remove(plain);
    chordSymbolChords.Add(column, grace);
    EXPECT_EQ(Calls(TraceOf(column)), "char 207 line char 106 line");
    const StemLine line = LineOf(StemOf(column));
    const std::string expected = "line " + std::to_string(line.x - 50) + " " +
                                 std::to_string(line.end + 100) + " " + std::to_string(line.x + 50) + " " +
                                 std::to_string(line.end);
    EXPECT_TRUE(TraceOf(column).back().starts_with(expected)) << TraceOf(column).back();
    for (const StemDirection direction : {Up, Down}) {
        SetDirection(StemOf(column), direction);
        InkPort port;
        PatchOf(column).Draw(port, {});
        const Rect rect = PatchOf(column).Bounds().GrownBy(2);
        EXPECT_EQ(Union(rect, port.Ink()), rect) << "the slash stands out beyond stem and flag";
    }
    SetDirection(StemOf(column), Up);
    beamSymbolAttributes.Remove(FlagOf(StemOf(column)));
    EXPECT_EQ(Calls(TraceOf(column)), "char 207 line");
}

TEST_F(DrawingTest, HiddenObjectsFollowTheRuleOfTheirKind) {
    GenericNote* head = HeadOf(AddChord(VoiceOfStaff(0, 0), {4, {5}, 0}));
    head->_hidden = 1;
    ChordSymbol* hiddenStem = AddChord(VoiceOfStaff(0, 0), {4, {5}, 300, HiddenUp});
    Pause* rest = AddRest(VoiceOfStaff(0, 0), 4, 600);
    rest->_hidden = 1;
    const struct {
        const char* why;
        bool printing, show, hideInPrint;
        const char *note, *stem, *rest;  // the colours painted
    } cases[] = {
        {"on screen, shown", false, true, true, "#506870#000000", "#000000#506870", "#506870"},
        {"on screen, not shown", false, false, false, "#000000", "#000000", ""},
        {"printed, hidden", true, true, true, "#000000", "#000000", ""},
        {"printed in black", true, false, false, "#000000#000000", "#000000#000000", "#000000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const HiddenRule rule{c.show, c.hideInPrint}, other{!c.show, !c.hideInPrint};
        EXPECT_EQ(Colours(TraceOf(ChordSymbolPar(ChordPar(head)), {c.printing, rule, other, other, {}, 0})),
                  c.note);
        EXPECT_EQ(Colours(TraceOf(hiddenStem, {c.printing, other, rule, other, {}, 0})), c.stem);
        EXPECT_EQ(Colours(TraceOf(rest, {c.printing, other, other, rule, {}, 0})), c.rest);
    }
}

TEST_F(DrawingTest, HeadsOfOneColumnTakeTheColoursOfTheirVoices) {
    Voice* one = VoiceOfStaff(0, 0);
    Voice* two = MakeVoice(MeasureStaffPar(one), 2);
    ChordSymbol* column = AddChord(one, {4, {8}});
    auto* lower = Make<Chords>();
    voiceSymbols.Add(two, lower);
    chordSymbolChords.Add(column, lower);
    AddHead(lower, StemOf(column), 2, "Quarto");
    DrawContext context;
    context.editVoice = 2;
    EXPECT_EQ(Colours(TraceOf(column, context)), "#506870#000000#000000");
    context.colouring.coloured = true;
    context.colouring.colours = {0x4040D0, 0x00FF00};
    EXPECT_EQ(Colours(TraceOf(column, context)), "#d04040#00ff00#000000");
    context.printing = true;
    EXPECT_EQ(Colours(TraceOf(column, context)), "#000000#000000#000000") << "printing knows no colours";
}

TEST_F(DrawingTest, BarlinesRunThroughConnectedStavesOnly) {
    const auto upright = [&](int measure) { return TraceOf(MeasureAt(SystemAt(0), measure)).size(); };
    EXPECT_EQ(upright(0), 2u) << "a pair: one barline and the line that opens the system";
    EXPECT_EQ(upright(1), 1u);
    New("SS", 3, 1);
    EXPECT_EQ(upright(0), 3u) << "two staves apart, opened by one line";
    EXPECT_EQ(upright(1), 2u);
    New("S", 3, 1);
    EXPECT_EQ(upright(0), 1u) << "a single staff is not opened";
}

TEST_F(DrawingTest, BarlinesShowTheirKind) {
    New("S", 3, 1);
    Measure *first = MeasureAt(SystemAt(0), 0), *second = MeasureAt(SystemAt(0), 1);
    const auto calls = [&](Measure* measure) { return Calls(TraceOf(measure)); };
    first->_barline = BarlineKind::Double;
    EXPECT_EQ(calls(first), "line line");
    first->_barline = BarlineKind::Final;
    EXPECT_EQ(calls(first), "line line");
    EXPECT_NE(TraceOf(first)[1].find("pen 42 "), std::string::npos) << "thin, then thick";
    first->_barline = BarlineKind::Dashed;
    EXPECT_EQ(calls(first), "line line line line line") << "410 high in dashes of 50";
    first->_hiddenBarline = 1;
    EXPECT_EQ(calls(first), "");
    first->_hiddenBarline = 0;
    first->_barline = BarlineKind::Single;
    second->_startRepeat = 1;
    EXPECT_EQ(calls(first), "") << "the repeat behind it stands for it";
    EXPECT_EQ(calls(second), "line line line fillellipse fillellipse");
    first->_endRepeat = 1;
    EXPECT_EQ(calls(first), "line line fillellipse fillellipse");
    EXPECT_EQ(calls(second), "line line fillellipse fillellipse") << "one thick bar serves both";
    const Rect ink = PatchOf(first).Bounds();
    EXPECT_EQ(ink.right, FrameOf(first).left + FrameOf(first).width);
}

TEST_F(DrawingTest, StaffAndHeaderAreDrawnFromLeftToRight) {
    const StaffFrame frame = FrameOf(StaffsFromTop(SystemAt(0))[0]);
    const Lines lines = TraceOf(StaffsFromTop(SystemAt(0))[0]);
    ASSERT_EQ(lines.size(), 5u);
    for (size_t i = 0; i < 5; ++i) {
        const std::string y = std::to_string(frame.top + 100 * static_cast<int32_t>(i));
        EXPECT_EQ(lines[i], "line " + std::to_string(frame.left + 5) + " " + y + " " +
                                std::to_string(frame.right - 5) + " " + y + " pen 11 solid #000000");
    }
    std::vector<Rect> header;
    std::string calls;
    ForEachPatch(FirstPage(), [&](const DrawPatch& patch, int) {
        if (!patch.Record<StaffMeasureSymbol>() || patch.Bounds().IsEmpty()) return;
        header.push_back(patch.Bounds());
        calls += Calls(TraceOf(patch.Object())) + ";";
    });
    EXPECT_EQ(calls, "char 38;char 52 char 52;char 63;char 52 char 52;");
    EXPECT_LT(header[0].right, header[1].left);
    EXPECT_LT(header[1].right, FrameOf(MeasureAt(SystemAt(0), 0)).XOf(0));
}

TEST_F(DrawingTest, BraceAndBracketEndWhereTheirStavesDo) {
    Connection* connection = systemConnections.First(SystemAt(0));
    const std::vector<Staff*> staffs = StaffsFromTop(SystemAt(0));
    const int32_t top = FrameOf(staffs[0]).top, bottom = FrameOf(staffs[1]).Bottom();
    const Rect brace = PatchOf(connection).Bounds();
    EXPECT_NEAR(brace.top, top, 8);
    EXPECT_NEAR(brace.bottom, bottom, 8);
    EXPECT_NEAR(brace.right, FrameOf(staffs[0]).left - 40, 3);
    ChangeSymbol(document, connection->_symbol, "Bracket");
    EXPECT_EQ(Calls(TraceOf(connection)), "line char 194 char 76");
    EXPECT_NE(TraceOf(connection)[0].find("pen 60 "), std::string::npos);
    EXPECT_NE(TraceOf(connection)[1].find("Marcelane 400 "), std::string::npos) << "tips do not grow";
}

// Whatever is painted lies within the rectangle by which it is filed: otherwise traces of it stay behind.
TEST_F(DrawingTest, NothingPaintsBeyondItsRectangle) {
    FillPage();
    std::set<int16_t> classes;
    ForEachPatch(FirstPage(), [&](const DrawPatch& patch, int) {
        SCOPED_TRACE(InfoOf(patch.ClassNumber())->name);
        InkPort port;
        patch.Draw(port, {});
        if (port.Ink().IsEmpty()) return;
        classes.insert(patch.ClassNumber());
        const Rect rect = patch.Bounds().GrownBy(2), both = Union(rect, port.Ink());
        EXPECT_EQ(both, rect) << port.Ink().left << " " << port.Ink().top << " " << port.Ink().right << " "
                              << port.Ink().bottom;
    });
    EXPECT_EQ(classes, (std::set<int16_t>{5, 10, 17, 19, 26, 27, 30, 31, 38, 64, 101}));
}

TEST_F(DrawingTest, PaintingLeavesPortAndRecordsAsTheyWere) {
    FillPage();
    _pool->SetModified(false);
    ForEachPatch(FirstPage(), [&](const DrawPatch& patch, int) {
        SCOPED_TRACE(InfoOf(patch.ClassNumber())->name);
        MemoryPort port;
        port.SetColor(0x123456);
        port.SetPenSize(7, 7);
        patch.Draw(port, {});
        EXPECT_EQ(port.CurrentColor(), 0x123456u);
        EXPECT_EQ(port.PenSize(), (Point{7, 7}));
    });
    EXPECT_FALSE(_pool->Modified());
}

TEST_F(DrawingTest, OnlyDrawnClassesHaveAPatch) {
    EXPECT_FALSE(PatchOf(nullptr));
    EXPECT_FALSE(PatchOf(documentDocStaffs.First(document)));
    ChordSymbol* chord = AddChord(VoiceOfStaff(0, 0), {4, {5}});
    EXPECT_FALSE(PatchOf(HeadOf(chord)));
    const DrawPatch patch = PatchOf(chord);
    ASSERT_TRUE(patch);
    EXPECT_EQ(patch.Record<ChordSymbol>(), chord);
    EXPECT_EQ(patch.Record<Pause>(), nullptr);
    EXPECT_TRUE(PatchOf(AddAccident(HeadOf(chord), "#d")).Record<NoteAttribute>());
    EXPECT_FALSE(
        PatchOf(StaffsFromTop(SystemAt(0))[0]).Behaviour().Hit(StaffsFromTop(SystemAt(0))[0], {3000, 1900}));
}

}  // namespace
}  // namespace corvane::draw
