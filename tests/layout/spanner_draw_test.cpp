// Ties, slurs, tuplets and lines on the page: sides, clearances, tips, what one system draws of them.
#include <cstdlib>
#include <map>

#include "engraving_score.h"
#include "graphics/MemoryPort.h"
#include "ink_port.h"
#include "layout/DrawFamilies.h"
#include "layout/SlurShape.h"
#include "layout/Spacing.h"
#include "layout/SpannerMarks.h"

namespace corvane::draw {
namespace {

class SpannerDrawTest : public EngravingTest {
protected:
    // What is painted lies within the bounds and comes near each side of them.
    static void ExpectTrueBounds(void* record, int32_t slack = 4) {
        InkPort port;
        PatchOf(record).Draw(port, {});
        const Rect bounds = PatchOf(record).Bounds(), ink = port.Ink();
        ASSERT_FALSE(bounds.IsEmpty());
        EXPECT_NEAR(ink.left, bounds.left, slack);
        EXPECT_NEAR(ink.top, bounds.top, slack);
        EXPECT_NEAR(ink.right, bounds.right, slack);
        EXPECT_NEAR(ink.bottom, bounds.bottom, slack);
    }
    MarkValue* Tie(GenericNote* a, GenericNote* b) {
        auto* tie = Make<TieValue>();
        MarkValue* first = nullptr;
        for (GenericNote* note : {a, b}) {
            auto* mark = Make<MarkValue>();
            noteAttributes.Add(note, mark);
            tieMarks.Add(tie, mark);
            if (!first) first = mark;
        }
        return first;
    }
    static bool IsUpward(const MarkValue* mark) {
        const std::vector<Point> line = OutlineOf(*mark);
        return line[line.size() / 2].y < line.front().y;
    }
    MarkSlur* SlurOver(VoiceSymbol* first, VoiceSymbol* last) {
        auto* slur = Make<Slur>();
        slur->_first = first;
        slur->_last = last;
        MakeMarks<MarkSlur>(slurMarks, slur, MeasureStaffPar(first), MeasureStaffPar(last));
        return slurMarks.First(slur);
    }
    MarkIrreg* TupletOver(const std::vector<VoiceSymbol*>& events, int16_t count, int16_t in) {
        auto* irregular = Make<Irregular>();
        irregular->_count = count;
        irregular->_inTimeOf = in;
        for (VoiceSymbol* event : events) {
            auto* mark = Make<MarkIrreg>();
            voiceSymbolAttributes.Add(event, mark);
            irregularMarks.Add(irregular, mark);
        }
        return irregularMarks.First(irregular);
    }
    // What one mark paints, by the kind of call.
    static std::map<std::string, int> CallsOf(void* record) {
        MemoryPort port(MemoryPort::Tracing::On);
        PatchOf(record).Draw(port, {});
        std::map<std::string, int> calls;
        for (const std::string& line : port.Lines()) ++calls[line.substr(0, line.find(' '))];
        return calls;
    }
};

TEST_F(SpannerDrawTest, TiesBendAwayFromStemsAndPartWithinChords) {
    const struct {
        const char* why;
        const char* events;
        int head;  // from the highest
        bool up;
    } cases[] = {
        {"stems up", "4:3 4:3", 0, false},
        {"stems down", "4:8 4:8", 0, true},
        {"whole notes as if they had", "1:3 1:3", 0, false},
        {"upper of two", "4:5,3 4:5,3", 0, true},
        {"lower of two", "4:9,7 4:9,7", 1, false},
        {"middle of three", "4:5,3,1 4:5,3,1", 1, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear();
        const auto events = Add(c.events);
        SpaceVoice(voice);
        const auto headOf = [&](size_t event) {
            GenericNote* note = stemNotes.First(StemAt(events[event]));
            for (int i = 0; i < c.head; ++i) note = stemNotes.Next(note);
            return note;
        };
        MarkValue* mark = Tie(headOf(0), headOf(1));
        EXPECT_EQ(IsUpward(mark), c.up);
        const std::vector<Point> line = OutlineOf(*mark);
        EXPECT_EQ(line.front().y, line.back().y) << "level";
        EXPECT_GE(line.front().x, RectOf(headOf(0)).left + 40);
        EXPECT_LE(line.back().x, RectOf(headOf(1)).right - 40);
        ExpectTrueBounds(mark);
        EXPECT_TRUE(PatchOf(noteAttributes.First(headOf(1))).Bounds().IsEmpty()) << "one piece";
    }
}

TEST_F(SpannerDrawTest, SlursClearWhatTheyArchOverAndEndNearTheirNotes) {
    const struct {
        const char* why;
        const char* events;
        bool above;
    } cases[] = {
        {"stems up", "4:3 4:4 4:5 4:4", false},
        {"stems down", "4:8 4:9 4:7 4:8", true},
        {"stems both ways", "4:3 4:8 4:3 4:8", true},
        {"one far above in the middle", "4:6 4:7 4:18 4:7 4:6", true},
        {"one far above beside the end", "4:6 4:6 4:6 4:17 4:6", true},
        {"one far below", "4:3 4:-6 4:3", false},
        {"rising", "8:-2 8:1 8:4 8:7 8:10 8:13", true},
        {"close together", "16:8@0 16:8@60", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear();
        const auto events = Add(c.events);
        SpaceVoice(voice);
        MarkSlur* mark = SlurOver(events.front(), events.back());
        EXPECT_EQ(IsAbove(slurMarks.ParentOf(mark)), c.above);
        const std::vector<Point> line = OutlineOf(*mark);
        ASSERT_FALSE(line.empty());
        for (size_t i = 1; i + 1 < events.size(); ++i) {
            const Rect ink = RectOf(ChordSymbolPar(As<Chords>(events[i])));
            for (const Point p : line)
                if (ink.left <= p.x && p.x <= ink.right) {
                    EXPECT_TRUE(c.above ? p.y < ink.top : p.y > ink.bottom) << "over event " << i;
                }
        }
        for (const auto& [event, tip] :
             {std::pair{events.front(), line.front()}, {events.back(), line.back()}}) {
            const Rect ink = RectOf(ChordSymbolPar(As<Chords>(event)));
            EXPECT_TRUE(ink.left - 20 <= tip.x && tip.x <= ink.right + 20);
            EXPECT_TRUE(c.above ? tip.y < ink.bottom : tip.y > ink.top);
        }
        ExpectTrueBounds(mark);
    }
}

TEST_F(SpannerDrawTest, ATupletHasABracketUnlessOneBeamHoldsIt) {
    auto events = Add("8:3@0 8:3@80 8:3@160 4:8@400 4:8@500 4:8@600");
    MarkIrreg* beamed = TupletOver({events[0], events[1], events[2]}, 3, 2);
    BeamVoice(voice);
    MarkIrreg* plain = TupletOver({events[3], events[4], events[5]}, 3, 2);
    ASSERT_TRUE(BeamOf(StemAt(events[0])));
    const Rect figure = PatchOf(beamed).Bounds(), bracket = PatchOf(plain).Bounds();
    EXPECT_EQ(CallsOf(beamed), (std::map<std::string, int>{{"text", 1}}));
    EXPECT_EQ(CallsOf(plain), (std::map<std::string, int>{{"line", 4}, {"text", 1}}));
    EXPECT_LT(figure.bottom, bottom - EndOf(events[1])) << "beyond the beam, on the side of the stems";
    EXPECT_GT(bracket.top, bottom - EndOf(events[4]));
    EXPECT_GT(bracket.bottom, bottom) << "outside the staff";
    EXPECT_NEAR((bracket.left + bracket.right) / 2,
                (RectOf(NoteAt(events[3])).left + RectOf(NoteAt(events[5])).right) / 2, 12);
    // Asked for, it has one all the same, or none.
    irregularMarks.ParentOf(beamed)->_bracket = TupletBracket::Always;
    irregularMarks.ParentOf(plain)->_bracket = TupletBracket::None;
    EXPECT_EQ(CallsOf(beamed)["line"], 4);
    EXPECT_EQ(CallsOf(plain)["line"], 0);
    ExpectTrueBounds(beamed, 45);  // the line of a text is higher than its digits
    irregularMarks.ParentOf(plain)->_figure = TupletFigure::None;
    EXPECT_TRUE(PatchOf(plain).Bounds().IsEmpty());
}

TEST_F(SpannerDrawTest, AHairpinOpensEvenlyOverASystemBreak) {
    New("S", 2, 2);
    const auto crossing = [&](int system, int place) {
        return measureStaffs.First(MeasureAt(SystemAt(system), place));
    };
    auto* hairpin = Make<Hairpin>();
    hairpin->_from = 0;
    hairpin->_to = 1000;
    hairpin->_y = 6000;
    hairpin->_opening = 2000;
    MakeMarks<MarkHairpin>(hairpinMarks, hairpin, crossing(0, 0), crossing(1, 1));
    SettleMarks(hairpinMarks.First(hairpin));
    MarkHairpin *first = hairpinMarks.First(hairpin), *last = hairpinMarks.Last(hairpin);
    const auto heights = [](const MarkHairpin* mark) {
        const std::vector<Point> line = OutlineOf(*mark);
        return std::pair{line[4].y - line[0].y, line[5].y - line[1].y};
    };
    EXPECT_EQ(heights(first), (std::pair{0, 100}));
    EXPECT_EQ(heights(last), (std::pair{100, 200}));
    hairpin->_kind = HairpinKind::Diminuendo;
    EXPECT_EQ(heights(last), (std::pair{100, 0}));
    for (MarkHairpin* mark : {first, last}) ExpectTrueBounds(mark, 8);  // half a pen beyond each tip
    const Measure* measureAtEnd = MeasureAt(SystemAt(0), 1);
    EXPECT_LT(PatchOf(first).Bounds().right, OriginOf(SystemAt(0)).x + measureAtEnd->_right);
}

TEST_F(SpannerDrawTest, RecordsThatMakeNoSenseDrawNothing) {
    const auto events = Add("4:5 4:6 4:7");
    MarkSlur* mark = SlurOver(events[0], events[2]);
    Slur* slur = slurMarks.ParentOf(mark);
    slur->_last = measure;  // no event
    EXPECT_TRUE(PatchOf(mark).Bounds().IsEmpty());
    slur->_last = nullptr;
    EXPECT_TRUE(PatchOf(mark).Bounds().IsEmpty());
    slur->_last = events[0];
    slur->_first = events[2];
    EXPECT_TRUE(PatchOf(mark).Bounds().IsEmpty());
    auto* hairpin = Make<Hairpin>();
    MakeMarks<MarkHairpin>(hairpinMarks, hairpin, measureStaffs.First(MeasureAt(SystemAt(0), 1)),
                           measureStaffs.First(measure));
    EXPECT_TRUE(PatchOf(hairpinMarks.First(hairpin)).Bounds().IsEmpty()) << "the end before the beginning";
    auto* irregular = Make<Irregular>();
    EXPECT_EQ(irregularMarks.First(irregular), nullptr);
}

}  // namespace
}  // namespace corvane::draw
