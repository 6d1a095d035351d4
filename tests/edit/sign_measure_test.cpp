// Barlines, endings, tempo marks, repetition texts, placed symbols: made, played, drawn, erased.
#include "play/DryPlay.h"
#include "sign_fixture.h"

namespace corvane {
namespace {

constexpr int kBarline = 32783, kEndings = 32796, kTempo = 32778, kCoda = 32797, kOctave = 40023;

class MeasureSignTest : public SignTest {
protected:
    // The only symbol of a class in a measure.
    template <class R>
    R* The(int measure) {
        R* found = nullptr;
        for (MeasureSymbol* symbol : measureSymbols.Of(MeasureNumber(measure)))
            if (auto* record = As<R>(symbol)) {
                EXPECT_FALSE(found);
                found = record;
            }
        return found;
    }
    // The keys of the note-ons in the order of a dry play, with their ticks.
    std::vector<std::pair<int, int>> Played() {
        std::vector<std::pair<int, int>> played;
        DryPlay(Score(), [&](std::string_view line) {
            int tick, port, status, key, velocity;
            if (std::sscanf(std::string(line).c_str(), "%d %d %d %d %d", &tick, &port, &status, &key,
                            &velocity) == 5 &&
                (status & 0xF0) == 0x90 && velocity > 0)
                played.emplace_back(key, tick);
        });
        return played;
    }
    int32_t TopOfStaff(int measure) { return FrameOf(Crossing(measure, 1)->_staff.Get()).top; }
};

TEST_F(MeasureSignTest, BarlinesSayOneThingAtTheRightEdge) {
    const auto state = [&] {
        const Measure* m = MeasureNumber(2);
        return std::vector<int>{static_cast<int>(m->_barline.Get()), m->_startRepeat, m->_endRepeat,
                                m->_hiddenBarline};
    };
    using State = std::vector<int>;
    const struct {
        CommandArguments arguments;
        State after;
    } kSteps[] = {
        {{{"type", "double"}}, {1, 0, 0, 0}},
        {{{"type", "repeatend"}}, {0, 0, 1, 0}},
        {{{"type", "repeatstart"}}, {0, 1, 1, 0}},
        {{{"type", "none"}}, {0, 1, 1, 1}},
        {{{"type", "none"}, {"on", "0"}}, {0, 1, 1, 0}},
        {{{"type", "dashed"}}, {3, 1, 0, 0}},
        {{{"type", "repeatstart"}, {"on", "0"}}, {3, 0, 0, 0}},
        {{{"type", "final"}}, {2, 0, 0, 0}},
        {{{"type", "single"}}, {0, 0, 0, 0}},
    };
    for (const auto& step : kSteps) {
        CommandArguments arguments = step.arguments;
        arguments["measure"] = "2";
        Step([&] { Do(kBarline, arguments); });
        EXPECT_EQ(state(), step.after) << arguments["type"];
    }
    EXPECT_EQ(Refusal(kBarline, {{"measure", "2"}}), "type is missing");
    EXPECT_EQ(Refusal(kBarline, {{"measure", "2"}, {"type", "thick"}}),
              "type is one of single, double, final, repeatstart, repeatend, dashed, none");
}

TEST_F(MeasureSignTest, ARepeatStandsBehindTheHeadAndBeforeTheNotes) {
    Enter(kQuarter, 1, 1, 10, 3);
    const int32_t before = FrameOf(MeasureNumber(1)).header;
    Step([&] { Do(kBarline, {{"measure", "1"}, {"type", "repeatstart"}}); });
    const int32_t header = FrameOf(MeasureNumber(1)).header;
    EXPECT_GT(header, before + 200);
    const Rect time = PatchOf(SignOf<TimeSignature>(Crossing(1, 1))).Bounds();
    EXPECT_LT(time.right, FrameOf(MeasureNumber(1)).left + header - 350);
}

TEST_F(MeasureSignTest, FirstEndingsArePlayedOnce) {
    for (int measure = 1; measure <= 6; ++measure) Enter(kWhole, measure, 1, 10, measure - 1 + (measure > 3));
    // Keys 64 (e) upward: measures by their first keys.
    Do(kBarline, {{"measure", "4"}, {"type", "repeatend"}});
    Do(kEndings, {{"from", "3"}, {"to", "4"}, {"text", "1."}});
    Do(kEndings, {{"from", "5"}, {"to", "5"}, {"text", "2."}});
    std::vector<int> keys;
    for (const auto& [key, tick] : Played()) keys.push_back(key);
    ASSERT_EQ(keys.size(), 8u);
    EXPECT_EQ((std::vector<int>{keys[0], keys[1], keys[2], keys[3]}),
              (std::vector<int>{keys[4], keys[5], keys[2], keys[3]}));
    EXPECT_GT(keys[6], keys[3]);
    EXPECT_GT(keys[7], keys[6]);
}

TEST_F(MeasureSignTest, EndingsHangInEveryMeasureAndGoAsOne) {
    Enter(kQuarter, 3, 1, 10, 19);  // high above the staff
    Step([&] { Do(kEndings, {{"from", "2"}, {"to", "5"}, {"text", "1.-3."}}); });
    Endings* endings = endingsMarks.ParentOf(The<MarkEndings>(2));
    EXPECT_EQ(TextOf(endings->_text), "1.-3.");
    for (int measure = 2; measure <= 5; ++measure)
        EXPECT_EQ(endingsMarks.ParentOf(The<MarkEndings>(measure)), endings);
    EXPECT_FALSE(The<MarkEndings>(6));
    const Rect note = PatchOf(ChordSymbolPar(As<Chords>(Events(3, 1)[0]))).Bounds();
    const Rect piece = PatchOf(The<MarkEndings>(3)).Bounds();
    EXPECT_LE(piece.bottom, note.top) << "it clears what stands below";
    EXPECT_EQ(PatchOf(The<MarkEndings>(2)).Bounds().right, piece.left) << "pieces join";
    ExpectSameAfterReload();

    // A bracket that meets it takes its place.
    Step([&] { Do(kEndings, {{"from", "5"}, {"to", "6"}, {"text", "2."}}); });
    EXPECT_FALSE(The<MarkEndings>(2));
    EXPECT_TRUE(The<MarkEndings>(6));
    Step([&] { Erase(The<MarkEndings>(6)); });
    EXPECT_FALSE(The<MarkEndings>(5));
    EXPECT_EQ(Refusal(kEndings, {{"from", "1"}, {"text", std::string(201, 'x')}}),
              "The text of an ending has at most 200 bytes");
}

TEST_F(MeasureSignTest, EndingsThatAdjoinStandAtOneHeight) {
    Enter(kQuarter, 2, 1, 10, 19);
    ASSERT_EQ(SystemPar(MeasureNumber(1)), SystemPar(MeasureNumber(2)));
    const auto top = [&](int measure) { return PatchOf(The<MarkEndings>(measure)).Bounds().top; };
    Do(kEndings, {{"from", "1"}, {"to", "1"}, {"text", "1."}});
    const int32_t low = top(1);
    Step([&] { Do(kEndings, {{"from", "2"}, {"to", "2"}, {"text", "2."}}); });
    EXPECT_LT(top(2), low) << "over the note";
    EXPECT_EQ(top(1), top(2));
    // An octave line that comes under one lifts both.
    const Point from = At(2, 1, -30, 30), to = At(2, 1, 900, -10);
    SetToolMode(ModeArrow);
    MouseDown(*window, from.x, from.y, 0);
    MouseUp(*window, to.x, to.y);
    Step([&] { Do(kOctave, {{"kind", "8up"}}); });
    Rect line;  // the mark at its end draws nothing
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(Crossing(2, 1)))
        if (As<MarkOttava>(symbol) && line.IsEmpty()) line = PatchOf(symbol).Bounds();
    EXPECT_LT(PatchOf(The<MarkEndings>(2)).Bounds().bottom, line.top);
    EXPECT_EQ(top(1), top(2));
    // Also where the lower one comes later.
    Step([&] { Do(kEndings, {{"from", "1"}, {"to", "1"}, {"text", "1.,3."}}); });
    EXPECT_EQ(top(1), top(2));
}

TEST_F(MeasureSignTest, ATempoMarkIsPlayedFromItsBeat) {
    for (const int measure : {1, 2}) Fill(measure, 1, kQuarter, 4, 0);
    const auto ticks = [&] {
        std::vector<int> between;
        const auto played = Played();
        for (size_t i = 1; i < played.size(); ++i) between.push_back(played[i].second - played[i - 1].second);
        return between;
    };
    EXPECT_EQ(ticks(), (std::vector<int>(7, 240)));
    Step([&] { Do(kTempo, {{"measure", "1"}, {"beat", "3"}, {"figure", "4"}, {"bpm", "120"}}); });
    EXPECT_EQ(ticks(), (std::vector<int>{240, 240, 120, 120, 120, 120, 120}));
    // A dotted eighth at 80 is a quarter at 60.
    Step([&] {
        Do(kTempo, {{"measure", "2"}, {"beat", "1"}, {"figure", "8"}, {"dots", "1"}, {"bpm", "80"}});
    });
    EXPECT_EQ(ticks(), (std::vector<int>{240, 240, 120, 120, 240, 240, 240}));
    // A mark of the same beat is changed.
    Step([&] { Do(kTempo, {{"measure", "2"}, {"beat", "1"}, {"figure", "2"}, {"bpm", "60"}}); });
    EXPECT_EQ(ticks(), (std::vector<int>{240, 240, 120, 120, 120, 120, 120}));
    ASSERT_TRUE(The<Time>(2));
    EXPECT_LT(PatchOf(The<Time>(2)).Bounds().bottom, TopOfStaff(2));
    ExpectSameAfterReload();
    Step([&] { Erase(The<Time>(1)); });
    EXPECT_EQ(ticks(), (std::vector<int>{240, 240, 240, 240, 120, 120, 120}));
    EXPECT_FALSE(The<Time>(1));

    EXPECT_EQ(Refusal(kTempo, {{"measure", "1"}, {"beat", "5"}}), "The measure has no such beat");
    EXPECT_EQ(Refusal(kTempo, {{"measure", "1"}, {"figure", "5"}}), "No note has that value");
}

TEST_F(MeasureSignTest, RepetitionTextsStandClearOfEachOther) {
    for (const char* text : {"D.C. al fine", "Fine"})
        Step([&] { Do(kCoda, {{"measure", "2"}, {"text", text}}); });
    Step([&] { Do(kCoda, {{"measure", "3"}, {"text", "Segno"}}); });
    std::vector<Rect> inks;
    for (MeasureSymbol* symbol : measureSymbols.Of(MeasureNumber(2)))
        inks.push_back(PatchOf(symbol).Bounds());
    ASSERT_EQ(inks.size(), 2u);
    EXPECT_FALSE(inks[0].Meets(inks[1]));
    for (const Rect& ink : inks) {
        EXPECT_LT(ink.bottom, TopOfStaff(2));
        EXPECT_NEAR(ink.right, FrameOf(MeasureNumber(3)).left - 50, 2)
            << "half a space before a sign behind it";
    }
    EXPECT_NEAR(PatchOf(The<Coda>(3)).Bounds().left, FrameOf(MeasureNumber(3)).left, 2);
    ExpectSameAfterReload();
    Step([&] { Do(kCoda, {{"measure", "2"}, {"text", "Fine"}}); });  // the same again takes it away
    Step([&] { Erase(The<Coda>(2)); });
    EXPECT_FALSE(The<Coda>(2));
    EXPECT_EQ(Refusal(kCoda, {{"measure", "2"}, {"text", "Da capo"}}), "There is no such repetition text");
}

TEST_F(MeasureSignTest, SymbolsStandWhereTheyArePut) {
    SetToolMode(ModePencil);
    SetPaletteGroup(6);
    SetItem(12);
    Step([&] { Press(2, 1, 300, -3); });
    auto* sign = SignOf<SimboliVari>(Crossing(2, 1));
    ASSERT_TRUE(sign);
    EXPECT_EQ(SymbolName(sign->_symbol), "_Pedale_");
    const Rect ink = PatchOf(sign).Bounds();
    const Point at = At(2, 1, 300, -3);
    EXPECT_NEAR((ink.left + ink.right) / 2, at.x, 3);
    EXPECT_NEAR((ink.top + ink.bottom) / 2, at.y, 3);
    ExpectSameAfterReload();
    Step([&] { Erase(sign); });
    EXPECT_FALSE(SignOf<SimboliVari>(Crossing(2, 1)));
}

}  // namespace
}  // namespace corvane
