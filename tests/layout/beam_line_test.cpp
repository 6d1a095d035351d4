// The line of a beam, the stems that reach it, its stubs. Heights are counted from the bottom line.
#include "engraving_score.h"

namespace corvane::draw {
namespace {

class BeamLineTest : public EngravingTest {
protected:
    // All events under one beam.
    Beam* Beamed(const std::string& events) {
        symbols = Add(events);
        Meter(4, 1);
        Notes()._binary = BinaryGroups::All;
        BeamVoice(voice);
        return BeamOf(BeamSymbolOf(symbols[0]));
    }
    std::string Ends() const {
        std::string text;
        for (VoiceSymbol* symbol : symbols)
            if (As<Chords>(symbol)) text += (text.empty() ? "" : " ") + std::to_string(EndOf(symbol));
        return text;
    }
    std::vector<VoiceSymbol*> symbols;
};

TEST_F(BeamLineTest, DirectionAndLineFollowTheHeads) {
    const struct {
        const char *why, *events;
        char direction;
        const char *ends, *lengths;
    } cases[] = {
        {"one line: four spaces above line 5", "8:5 8:5", 'U', "600 600", "400 400"},
        {"ascending 200: 34 lower at the left", "8:3 8:4@200", 'U', "516 550", "416 400"},
        {"descending: the first is the higher", "8:4 8:3@200", 'U', "550 516", "400 416"},
        {"below: four spaces under the lower", "8:8 8:7@200", 'D', "-66 -100", "416 400"},
        {"an average of exactly 6 is below", "8:5 8:7", 'D', "-200 -183", "400 483"},
        {"5.5 is truncated", "8:5 8:6", 'U', "633 650", "433 400"},
        {"first and last alike, a higher between", "8:3 8:6 8:3", 'U', "650 650 650", "550 400 550"},
        {"and a lower", "8:8 8:4 8:8", 'D', "-250 -250 -250", "600 400 600"},
        {"of equal highest the first", "8:5 8:5@200 8:4@400", 'U', "600 566 532", "400 366 382"},
        {"of equal lowest the last", "8:8 8:8@200 8:9@400", 'D', "-84 -50 -16", "434 400 416"},
        {"a chord's outer head counts, its heads weigh", "8:9,1 8:7,1@100", 'U', "800 783", "400 483"},
        {"a chord that is repeated", "8:5,1 8:5,1@200", 'U', "600 600", "400 400"},
        {"its lowest heads tell of a beam below", "8:11,7 8:12,8@200", 'D', "-100 -66", "400 416"},
        {"1000 units fall by 170", "8:5 8:4@1000", 'U', "600 430", "400 280"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear();
        Beam* beam = Beamed(c.events);
        ASSERT_NE(beam, nullptr);
        EXPECT_EQ(beam->_direction, c.direction);
        EXPECT_EQ(Ends(), c.ends);
        EXPECT_EQ(LengthsOf(symbols), c.lengths);
        const BeamLine line = ComputeBeam(beam);
        EXPECT_EQ(bottom - line.start.y, EndOf(symbols.front()));
        EXPECT_EQ(bottom - line.end.y, EndOf(symbols.back()));
        EXPECT_EQ(line.end.x, LineOf(StemAt(symbols.back())).x);
        EXPECT_EQ(Faults(), "");
    }
}

TEST_F(BeamLineTest, OverALongWayABeamRisesByTwoSpaces) {
    for (const int32_t distance : {100, 60}) {
        Clear("S", 3000);
        StaffsFromTop(SystemAt(0))[0]->_lineDistance = distance;
        bottom = FrameOf(StaffsFromTop(SystemAt(0))[0]).Bottom();
        Beamed("8:3 8:4@800");
        EXPECT_EQ(EndOf(symbols[1]), 550 * distance / 100);
        EXPECT_EQ(EndOf(symbols[0]), 350 * distance / 100);
    }
}

TEST_F(BeamLineTest, LevelsScaleWithTheStaffAndAreHalfAsThickForGraceNotes) {
    const struct {
        const char *why, *events;
        int32_t distance, thickness, step, stub;
    } cases[] = {
        {"42, 84 from line to line, a stub of twice 42", "16:5 8:5 16:5", 100, 42, 84, 84},
        {"60 of 100: 25.2, 50.4 and twice 25", "16:5 8:5 16:5", 60, 25, 50, 50},
        {"half of each, a stub of one and a half", "g16:5 g8:5 g16:5", 100, 21, 42, 63},
        {"and on a small staff: 12.6, 25.2 and 37.5", "g16:5 g8:5 g16:5", 60, 12, 25, 37},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear();
        StaffsFromTop(SystemAt(0))[0]->_lineDistance = c.distance;
        const std::vector<BeamStroke> strokes = StrokesOf(Beamed(c.events));
        ASSERT_EQ(strokes.size(), 3u);
        EXPECT_EQ(strokes[1].thickness, c.thickness);
        EXPECT_EQ(strokes[1].from.y - strokes[0].from.y, c.step) << "towards the heads";
        EXPECT_EQ(strokes[1].to.x - strokes[1].from.x, c.stub);
    }
}

TEST_F(BeamLineTest, WithoutAnglesEveryBeamIsLevel) {
    SetAngledBeams(false);
    Beamed("8:3 8:4@200");
    EXPECT_EQ(Ends(), "550 550");
    SetAngledBeams(true);
    BeamVoice(voice);
    EXPECT_EQ(Ends(), "516 550") << "a beam that stays is fitted anew";
}

TEST_F(BeamLineTest, EveryStemIsLongEnough) {
    const struct {
        const char *why, *events, *lengths;
    } cases[] = {
        {"200 down over 2000 units: the far high head keeps 250", "8:3 8:5 8:5@950 8:2@1000",
         "540 420 250 390"},
        {"five levels of 128ths", "128:5 128:5", "457 457"},
        {"four have room", "64:5 64:5", "400 400"},
        {"only where they are", "8:5 128:2", "400 516"},
        {"to the middle line from far below", "8:-4 8:-5", "484 500"},
        {"and from far above", "8:15 8:17", "534 600"},
        {"grace notes keep less and need not reach", "g8:-6 g8:-6", "285 285"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear("S", 2000);  // places are 200 units apart, 34 units of height
        Beamed(c.events);
        EXPECT_EQ(LengthsOf(symbols), c.lengths);
    }
    Clear();
    Notes()._beamMinDistance.Put(300);
    Beamed("8:5 8:5");
    EXPECT_EQ(LengthsOf(symbols), "300 300") << "the score's own distance";
    StaffsFromTop(SystemAt(0))[0]->_lineDistance = 60;
    RefitBeamsOf(voice);
    EXPECT_EQ(LengthsOf(symbols), "300 300") << "in lines, not in units";
}

TEST_F(BeamLineTest, VoicesAndGraceNotesHaveTheirSide) {
    EXPECT_EQ(Beamed("g16:11 g16:12")->_direction, 'U');
    Clear();
    Voices()._automaticStems = 0;
    Voices()._forced[0] = ForcedStems::Down;
    EXPECT_EQ(Beamed("8:1 8:1")->_direction, 'D');
    EXPECT_EQ(Ends(), "-400 -400");
    Clear();
    AddTo(MakeVoice(MeasureStaffPar(voice), 2), "4:1");
    EXPECT_EQ(Beamed("8:9 8:9")->_direction, 'U');

    ChangeStemDirection(StemAt(symbols[0]), StemDirection::HiddenDown);
    RefitBeamsOf(voice);
    EXPECT_EQ(StemAt(symbols[0])->_direction, StemDirection::HiddenUp) << "a hidden stem stays hidden";
    EXPECT_EQ(EndOf(symbols[0]), 800);
}

TEST_F(BeamLineTest, RestsGiveWayToTheBeam) {
    Notes()._completion = Completion::Complete;
    const auto rest = [&] { return As<Pause>(symbols[1]); };
    Beamed("16:5 r16 16:5");
    EXPECT_EQ(rest()->_beamY, rest()->_y) << "the beam is clear of it";
    for (const char* events : {"16:-3 r16 16:-3", "16:14 r16 16:14", "64:-3 r64 64:-3"}) {
        SCOPED_TRACE(events);
        Clear();
        Notes()._completion = Completion::Complete;
        const Beam* beam = Beamed(events);
        const int sign = beam->_direction == 'U' ? 1 : -1;
        const int32_t levels = rest()->_value == 64 ? 3 : 1, line = LineOf(StemAt(symbols[0])).end;
        const int32_t inner = line + sign * (levels * 84 + 21);
        const Rect ink = RectOf(rest());
        EXPECT_GE(sign > 0 ? ink.top - inner : inner - ink.bottom, 50);
        EXPECT_LT(sign > 0 ? ink.top - inner : inner - ink.bottom, 150) << "and no further than needed";
        EXPECT_EQ((rest()->_beamY - rest()->_y) % 1000, 0) << "whole spaces";
        EXPECT_EQ(Faults(), "");
    }
}

TEST_F(BeamLineTest, StubsPointIntoTheirGroup) {
    const struct {
        const char *events, *sides;
    } cases[] = {
        {"8. 16", "RL"},    {"16 8.", "RL"},    {"16 8 16", "RRL"}, {"8 16 8", "RLL"},
        {"8. 16 8", "RLL"}, {"8 32 16", "RRL"}, {"16 32 8", "RLL"}, {"16 32 32 16", "RRLL"},
        {"8 16 16", "RRL"}, {"32 8 16", "RRL"},
    };
    const auto sides = [&](const Beam* beam) {
        std::string text;
        for (const BeamMarker* marker : beamMarkers.Of(beam))
            text += static_cast<char>(marker->_stubSide.Get());
        return text;
    };
    for (const auto& c : cases) {
        Clear();
        EXPECT_EQ(sides(Beamed(c.events)), c.sides) << c.events;
    }
    Clear();
    Notes()._subGroups = SubGroups::ByEighthBeam;
    symbols = Add("16 8. 16 8. 8. 16");
    BeamVoice(voice);
    const std::string connected = sides(BeamOf(StemAt(symbols[0])));
    EXPECT_EQ(connected[2], 'R') << "a 16th at the start of a beat does not point back into the one before";
    EXPECT_EQ(connected[5], 'L');
}

}  // namespace
}  // namespace corvane::draw
