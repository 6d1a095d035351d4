// Meters over measures: signs where they begin, music spaced, beamed and timed by them.
#include "sign_fixture.h"

namespace corvane {
namespace {

constexpr int kMeter = 32779;

class MeterTest : public SignTest {
protected:
    std::string MetersOfScore() {
        std::string text;
        for (int measure = 1; measure <= 6; ++measure) {
            const Measure* m = MeasureNumber(measure);
            text += std::to_string(m->_num) + "/" + std::to_string(m->_den);
            text += SignOf<TimeSignature>(Crossing(measure, 1)) ? "! " : " ";
            EXPECT_EQ(SymbolOf<TimeSignature>(measure, 1), SymbolOf<TimeSignature>(measure, 2));
        }
        return text;
    }
};

TEST_F(MeterTest, SignsStandWhereAMeterBeginsOrChanges) {
    Step([&] { Do(kMeter, {{"num", "3"}, {"den", "4"}, {"from", "2"}, {"to", "3"}}); });
    EXPECT_EQ(MetersOfScore(), "4/4! 3/4! 3/4 4/4! 4/4 4/4 ");
    Step([&] { Do(kMeter, {{"num", "6"}, {"den", "8"}, {"from", "3"}, {"to", "4"}}); });
    EXPECT_EQ(MetersOfScore(), "4/4! 3/4! 6/8! 6/8 4/4! 4/4 ");
    // The same meter as around it needs no sign, and the one behind says nothing any more.
    Step([&] { Do(kMeter, {{"num", "4"}, {"den", "4"}, {"from", "4"}, {"to", "2"}}); });
    EXPECT_EQ(MetersOfScore(), "4/4! 4/4 4/4 4/4 4/4 4/4 ");
    // Without an end up to the next sign.
    Do(kMeter, {{"num", "2"}, {"den", "2"}, {"from", "5"}});
    Step([&] { Do(kMeter, {{"num", "5"}, {"den", "8"}, {"from", "2"}}); });
    EXPECT_EQ(MetersOfScore(), "4/4! 5/8! 5/8 5/8 2/2! 2/2 ");
    ExpectSameAfterReload();
}

TEST_F(MeterTest, KindsAreWrittenAndSurviveACut) {
    const auto symbolAfter = [&](const CommandArguments& arguments) {
        Do(kMeter, arguments);
        return std::string(SymbolOf<TimeSignature>(1, 1));
    };
    EXPECT_EQ(symbolAfter({{"kind", "common"}, {"from", "1"}}), "tsC 5 su 189*");
    EXPECT_EQ(symbolAfter({{"kind", "cut"}, {"from", "1"}}), "tsCs 5 su 189*");
    EXPECT_EQ(MeasureNumber(6)->_num, 2);
    EXPECT_EQ(symbolAfter({{"num", "3+2"}, {"den", "8"}, {"from", "1"}}), "ts 9 su 3 su 8 su 189* + 2 su 8");
    EXPECT_EQ(MeasureNumber(1)->_num, 5);
    // Cut out of the middle, the sum goes on as it was written.
    Do(kMeter, {{"num", "2"}, {"den", "4"}, {"from", "3"}, {"to", "3"}});
    EXPECT_EQ(SymbolOf<TimeSignature>(4, 1), "ts 9 su 3 su 8 su 189* + 2 su 8");
    EXPECT_EQ(SignOf<TimeSignature>(Crossing(4, 1))->_kind, static_cast<uint8_t>(MeterKind::Sum));
    Do(kMeter, {{"num", "3+2"}, {"den", "8"}, {"kind", "fractions"}, {"from", "1"}, {"to", "2"}});
    EXPECT_EQ(SymbolOf<TimeSignature>(1, 1), "ts 5 su 3 su 8 su 189* + 2 su 8");
    EXPECT_EQ(symbolAfter({{"num", "3"}, {"den", "4"}, {"kind", "note"}, {"from", "1"}}),
              "ts 7 su 3 su 4 su 189*");
    EXPECT_EQ(symbolAfter({{"num", "3"}, {"den", "4"}, {"kind", "numerator"}, {"from", "1"}}),
              "ts 8 su 3 su 4 su 189*");
    EXPECT_EQ(symbolAfter({{"num", "3"}, {"den", "4"}, {"kind", "bracketed"}, {"from", "1"}}),
              "ts 6 su 3 su 4 su 189*");
    ExpectSound();

    EXPECT_EQ(Refusal(kMeter, {{"num", "3"}, {"den", "4"}, {"kind", "common"}, {"from", "1"}}),
              "The C stands for 4/4");
    EXPECT_EQ(Refusal(kMeter, {{"num", "3+x"}, {"den", "4"}, {"from", "1"}}),
              "num is a whole number from 1 to 99");
    EXPECT_EQ(Refusal(kMeter, {{"num", "60+60"}, {"den", "4"}, {"from", "1"}}), "A meter has 1 to 99 beats");
    EXPECT_EQ(Refusal(kMeter, {{"num", "3"}, {"den", "6"}, {"kind", "note"}, {"from", "1"}}),
              "No note has that value");
}

TEST_F(MeterTest, MusicIsSpacedBeamedAndTimedByTheNewMeter) {
    Fill(1, 1, kEighth, 6, 3);
    const auto xs = [&] {
        std::vector<int32_t> places;
        for (const VoiceSymbol* symbol : Events(1, 1)) places.push_back(XOf(symbol));
        return places;
    };
    const std::string sound = Notes();
    Step([&] { Do(kMeter, {{"num", "3"}, {"den", "4"}, {"from", "1"}, {"to", "1"}}); });
    EXPECT_EQ(xs(), (std::vector<int32_t>{0, 158, 316, 474, 632, 790}));
    EXPECT_EQ(Notes(), sound) << "quarters count as before";
    Step([&] { Do(kMeter, {{"num", "6"}, {"den", "8"}, {"from", "1"}, {"to", "1"}}); });
    EXPECT_EQ(Notes(),
              "1 1 0 1 2 0 1 1 67 64\n1 2 0 1 3 0 1 1 69 64\n1 3 0 1 4 0 1 1 71 64\n"
              "1 4 0 1 5 0 1 1 72 64\n1 5 0 1 6 0 1 1 74 64\n1 6 0 1 7 0 1 1 76 64\n");
    Step([&] { Do(kMeter, {{"num", "4"}, {"den", "4"}, {"from", "1"}, {"to", "1"}}); });
    EXPECT_EQ(Notes(), sound);
}

TEST_F(MeterTest, TempoMarksKeepTheirTime) {
    Do(32778, {{"measure", "2"}, {"beat", "3"}, {"bpm", "90"}});
    const auto beats = [&] {
        std::vector<int> found;
        for (const MeasureSymbol* symbol : measureSymbols.Of(MeasureNumber(2)))
            if (const auto* mark = As<Time>(symbol)) found.push_back(mark->_beat);
        for (const TimeElement* element : measureTimeElements.Of(MeasureNumber(2)))
            found.push_back(element->_beat);
        return found;
    };
    Step([&] { Do(kMeter, {{"num", "8"}, {"den", "8"}, {"from", "2"}, {"to", "2"}}); });
    EXPECT_EQ(beats(), (std::vector<int>{5, 5}));
    Step([&] { Do(kMeter, {{"num", "2"}, {"den", "8"}, {"from", "2"}, {"to", "2"}}); });
    EXPECT_EQ(beats(), (std::vector<int>{2, 2})) << "within the beats that there are";
}

}  // namespace
}  // namespace corvane
