// Other values and dots: heads, flags, beams, places and events follow, and no measure holds more than it
// can.
#include "notes_fixture.h"

namespace corvane {
namespace {

class Durations : public NotesTest {
protected:
    // "4 8. r2": values and dots, "r" for rests.
    std::string Lengths(int measure, int staff = 1) {
        std::string text;
        for (const VoiceSymbol* event : Events(measure, staff)) {
            text += (text.empty() ? "" : " ") + std::string(As<Pause>(event) ? "r" : "") +
                    std::to_string(ValueOf(event)) + std::string(static_cast<size_t>(DotCount(event)), '.');
        }
        return text;
    }
    std::string_view HeadName(int measure, int number) {
        return SymbolName(Head(measure, 1, number)->_symbol);
    }
    bool IsBeamed(int measure, int number) { return BeamOf(StemOf(ChordNumber(measure, 1, number))); }
    const char* Shape(int measure, int number) {
        const Stem* stem = StemOf(ChordNumber(measure, 1, number));
        return FlagOf(stem) ? "flag" : IsVisible(stem->_direction) ? "stem" : "none";
    }
    void Change(int measure, CommandArguments arguments) {
        Step([&] { Do(kDurations, In(measure, std::move(arguments))); });
    }
};

TEST_F(Durations, HeadsStemsFlagsAndRestsAreThoseOfTheNewValue) {
    Fill(1, 1, kQuarter, 1, 2);
    Enter(kQuarterRest, 1, 1, 900, 2);
    const struct {
        const char *value, *head, *shape, *rest;
    } cases[] = {
        {"2", "Meta", "stem", "PausaMeta"},
        {"8", "Quarto", "flag", "Pausa8"},
        {"128", "Quarto", "flag", "Pausa128"},
        {"4", "Quarto", "stem", "Pausa4"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value);
        Change(1, {{"value", c.value}});
        EXPECT_EQ(HeadName(1, 1), c.head);
        EXPECT_STREQ(Shape(1, 1), c.shape);
        EXPECT_EQ(SymbolName(As<Pause>(Events(1, 1)[1])->_symbol), c.rest);
        EXPECT_EQ(Lengths(1), std::string(c.value) + " r" + c.value);
    }
    Fill(2, 1, kHalf, 1, 2);
    Change(2, {{"value", "1"}});
    EXPECT_EQ(HeadName(2, 1), "Intero");
    EXPECT_STREQ(Shape(2, 1), "none");
    EXPECT_EQ(Notes().substr(Notes().find("\n") + 1), "2 1 0 2 5 0 1 1 65 64\n");
    Change(2, {{"value", "16"}, {"dots", "2"}});
    EXPECT_STREQ(Shape(2, 1), "flag");
    EXPECT_EQ(Lengths(2), "16..");
    ExpectSameAfterReload();
}

TEST_F(Durations, TheVoiceIsSpacedBeamedAndTimedAnew) {
    Fill(1, 1, kQuarter, 4, 2);
    Change(1, {{"by", "half"}});
    EXPECT_EQ(Lengths(1), "8 8 8 8");
    EXPECT_TRUE(IsBeamed(1, 1) && IsBeamed(1, 4));
    EXPECT_EQ(Notes(),
              "1 1 0 1 1 16000 1 1 65 64\n1 1 16000 1 2 0 1 1 67 64\n"
              "1 2 0 1 2 16000 1 1 69 64\n1 2 16000 1 3 0 1 1 71 64\n");
    EXPECT_LT(XOf(Events(1, 1)[3]), 500);
    Change(1, {{"by", "double"}});
    EXPECT_EQ(Lengths(1), "4 4 4 4");
    EXPECT_FALSE(IsBeamed(1, 1));
    Change(1, {{"value", "8"}, {"dots", "1"}});
    EXPECT_EQ(Lengths(1), "8. 8. 8. 8.");
    Change(1, {{"dots", "0"}});
    EXPECT_EQ(Lengths(1), "8 8 8 8");
    // A head of another shape than its value's keeps it.
    {
        const EditStep step(*window);
        ChangeSymbol(Score(), Head(1, 1, 1)->_symbol, "Croce");
    }
    Change(1, {{"value", "16"}});
    EXPECT_EQ(HeadName(1, 1), "Croce");
}

TEST_F(Durations, NoMeasureHoldsMoreThanItCan) {
    Fill(1, 1, kQuarter, 4, 2);
    Fill(2, 1, kHalf, 1, 2);
    window->ForgetUndo();
    const PoolState before = PoolState::Of(*window->Pool());
    EXPECT_EQ(Refusal(kDurations, {{"from", "1"}, {"to", "2"}, {"by", "double"}}),
              "Measure 1 cannot hold so much");
    EXPECT_EQ(Refusal(kDurations, In(2, {{"value", "11"}})), "Measure 2 cannot hold so much");
    EXPECT_EQ(Refusal(kDurations, In(1)), "Please fill in all the fields");
    EXPECT_EQ(Refusal(kDurations, In(1, {{"value", "3"}})),
              "value is one of 1, 2, 4, 8, 16, 32, 64, 128, 11");
    EXPECT_EQ(PoolState::Of(*window->Pool()), before);
    Change(1, {{"value", "128"}});
    EXPECT_EQ(Refusal(kDurations, In(1, {{"by", "half"}})), "Nothing is shorter than a 128th note");
    // Who spaces by hand may overfill.
    Do(kAutoSpacing, {});
    Change(2, {{"value", "11"}});
    EXPECT_EQ(Refusal(kDurations, In(2, {{"by", "double"}})), "Nothing is longer than a double whole note");
    Do(kAutoSpacing, {});
    Change(2, {{"value", "1"}});
    EXPECT_EQ(Lengths(2), "1");
}

}  // namespace
}  // namespace corvane
