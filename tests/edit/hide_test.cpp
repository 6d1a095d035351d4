// Notes, stems, rests and tuplets that a person hides and shows again, and the choices of how they are seen.
#include "edit/SessionChoices.h"
#include "layout/HiddenInk.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

constexpr int kOptions = 33082, kRests = 33083, kStems = 33084, kNotes = 33085, kTuplets = 33086;

class HideTest : public SpannerTest {
protected:
    void SetUp() override {
        SpannerTest::SetUp();
        Choices() = SessionChoices();
        Fill(1, 1, "8:3 8:4 4:5 r4 4:7");
    }
    void TearDown() override {
        Choices() = SessionChoices();
        SpannerTest::TearDown();
    }
    // A letter for each event: of chords for the heads and the stem, capital where hidden; of rests "r" or
    // "R".
    std::string State(int measure = 1) {
        std::string state;
        for (const VoiceSymbol* event : Events(measure, 1)) {
            if (const auto* rest = As<Pause>(event)) {
                state += IsHidden(rest) ? "R" : "r";
                continue;
            }
            const auto* chord = As<Chords>(event);
            state += IsHidden(chord) ? "N" : "n";
            state += IsHidden(StemOf(chord)) ? "S" : "s";
        }
        return state;
    }
    std::string Trace(bool printing) {
        MemoryPort port(MemoryPort::Tracing::On);
        DrawPage(port, window->CurrentPage(), ContextFor(printing));
        std::string text;
        for (const std::string& line : port.Lines()) text += line + "\n";
        return text;
    }
};

TEST_F(HideTest, WhatIsChosenIsHiddenAndShownAgain) {
    const std::string sound = Notes();
    const struct {
        const char* why;
        int id;
        const char *hidden, *firstHalf;
    } cases[] = {
        {"notes", kNotes, "NsNsNsrNs", "NsNsnsrns"},
        {"stems", kStems, "nSnSnSrnS", "nSnSnsrns"},
        {"rests", kRests, "nsnsnsRns", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Step([&] { Do(c.id, {{"from", "1"}}); });
        EXPECT_EQ(State(), c.hidden);
        EXPECT_EQ(Notes(), sound) << "it sounds as before";
        ExpectSameAfterReload();
        Step([&] { Do(c.id, {{"from", "1"}}); });
        EXPECT_EQ(State(), "nsnsnsrns");
        if (!*c.firstHalf) continue;
        Lasso(1, -50, 1, 230);
        Step([&] { Do(c.id, {}); });
        EXPECT_EQ(State(), c.firstHalf);
        Step([&] { Do(c.id, {{"from", "1"}}); });
        EXPECT_EQ(State(), c.hidden) << "some can be seen, so all are hidden";
        Do(c.id, {{"from", "1"}, {"show", "1"}});
        Do(c.id, {{"from", "1"}, {"show", "1"}});
        EXPECT_EQ(State(), "nsnsnsrns") << "told what to do it does not turn round";
    }
}

TEST_F(HideTest, ATupletIsHiddenWithItsNotesLeft) {
    Fill(2, 1, "4:3 4:4 4:5");
    ASSERT_TRUE(MakeTuplets(*window, Events(2, 1), {}));
    const Irregular* tuplet =
        irregularMarks.ParentOf(As<MarkIrreg>(voiceSymbolAttributes.First(Events(2, 1)[0])));
    const std::string seen = Trace(true);
    Step([&] { Do(kTuplets, {{"from", "2"}}); });
    EXPECT_TRUE(IsHidden(tuplet));
    EXPECT_NE(Trace(true), seen);
    ExpectSameAfterReload();
    Step([&] { Do(kTuplets, {{"from", "2"}}); });
    EXPECT_EQ(Trace(true), seen);
}

TEST_F(HideTest, RefusalsSayWhatIsMissing) {
    Fill(2, 1, "1:4");
    EXPECT_EQ(Refusal(kTuplets, {{"from", "1"}}), "Select the notes of a tuplet first");
    EXPECT_EQ(Refusal(kRests, {{"from", "2"}}), "Select some rests first");
    EXPECT_EQ(Refusal(kStems, {{"from", "2"}}), "Select notes with stems first");
    EXPECT_EQ(Refusal(kNotes, {{"from", "3"}}), "Select some notes first");
}

TEST_F(HideTest, ScreenAndPaperFollowTheChoices) {
    const std::string page = Trace(true);
    ASSERT_EQ(Trace(false), page);
    Do(kRests, {{"from", "1"}});
    Do(kNotes, {{"from", "1"}});
    const std::string without = Trace(true);
    EXPECT_NE(without, page);
    EXPECT_EQ(Trace(false), without) << "neither shows them as long as nobody chooses";
    Do(kOptions, {{"rests", "1"}, {"notes", "1"}});
    EXPECT_NE(Trace(false).find("#506870"), std::string::npos);
    EXPECT_EQ(Trace(true), without);
    Do(kOptions, {{"printrests", "1"}, {"printnotes", "1"}});
    EXPECT_EQ(Trace(true).find("#506870"), std::string::npos);
    EXPECT_GT(Trace(true).size(), without.size());
    // Undo gives the notes back; the choices are the person's.
    window->Undo();
    EXPECT_TRUE(Choices().hiddenNotes.show);
    EXPECT_FALSE(Choices().hiddenNotes.hideInPrint);
    EXPECT_TRUE(Choices().hiddenStems.hideInPrint) << "what is not told stays";
}

TEST_F(HideTest, ChoicesGoToTheSettingsAndComeBack) {
    SessionPreferences kept = DefaultSessionPreferences();
    Do(kOptions, {{"rests", "1"}, {"printstems", "1"}});
    KeepChoices(kept);
    Choices() = SessionChoices();
    SetWord(kept, SessionWord::MeasuresPerSystem, 7);
    TakeChoices(kept);
    EXPECT_TRUE(Choices().hiddenRests.show);
    EXPECT_TRUE(Choices().hiddenRests.hideInPrint);
    EXPECT_FALSE(Choices().hiddenStems.show);
    EXPECT_FALSE(Choices().hiddenStems.hideInPrint);
    EXPECT_EQ(Choices().measuresPerSystem, 7);
    EXPECT_EQ(GetWord(kept, SessionWord::HideNotesInPrint), 1);
}

}  // namespace
}  // namespace corvane
