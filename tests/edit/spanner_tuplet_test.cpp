// Tuplets by command: which events make one up, their time, their end.
#include "edit/Deletion.h"
#include "play/MIDIUtility.h"
#include "spanner_fixture.h"

namespace corvane {
namespace {

constexpr int kTuplets = 32805;

class TupletTest : public SpannerTest {
protected:
    // "3:2(eighth eighth)" in short: how many events each tuplet of a measure has.
    std::string TupletsOf(int measure) {
        std::string told;
        const Irregular* last = nullptr;
        for (const VoiceSymbol* symbol : Events(measure, 1))
            for (const VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
                if (const auto* mark = As<MarkIrreg>(attribute)) {
                    const Irregular* irregular = irregularMarks.ParentOf(mark);
                    if (irregular != last)
                        told += std::to_string(irregularMarks.Count(irregular)) + "as" +
                                std::to_string(irregular->_count) + ":" +
                                std::to_string(irregular->_inTimeOf) + " ";
                    last = irregular;
                }
        return told;
    }
    void SelectMeasure(int measure) { Lasso(measure, -20, measure, 1000); }
};

TEST_F(TupletTest, EventsAreCutIntoGroupsOfEqualParts) {
    const struct {
        const char* why;
        const char* events;
        CommandArguments arguments;
        const char* told;  // empty where it is refused
    } cases[] = {
        {"three of a kind", "8:5 8:5 8:5", {}, "3as3:2 "},
        {"two groups", "8:5 8:5 8:5 8:5 8:5 8:5", {}, "3as3:2 3as3:2 "},
        {"values that make up three eighths", "4:5 8:5 8:5 4:5", {}, "2as3:2 2as3:2 "},
        {"no part on its own where a longer one does", "16:5 16:5 8:5 8:5", {}, "4as3:2 "},
        {"a rest counts", "8:5 r8 8:5", {}, "3as3:2 "},
        {"five", "16:5 16:5 16:5 16:5 16:5", {{"count", "5"}, {"in", "4"}}, "5as5:4 "},
        {"four are not three", "4:5 4:5 4:5 4:5", {}, ""},
        {"one is none", "4:5", {}, ""},
        {"count beyond all sense", "8:5 8:5 8:5", {{"count", "1"}}, ""},
    };
    int measure = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        if (++measure > 6) {
            window = Open("S", 3, 2);
            measure = 1;
        }
        Fill(measure, 1, c.events);
        SelectMeasure(measure);
        const bool refused = !RunCommand(*window, kTuplets, c.arguments);
        EXPECT_EQ(refused, std::string(c.told).empty());
        EXPECT_EQ(TupletsOf(measure), c.told);
        ExpectSound();
    }
}

TEST_F(TupletTest, ThreeSoundInTheTimeOfTwoAndTheSameCommandPutsThemBack) {
    Fill(1, 1, "8:5 8:6 8:7 4:5");
    const std::string plain = Notes();
    Lasso(1, -20, 1, 350);
    Step([&] { Do(kTuplets, {}); });
    EXPECT_EQ(Notes(),
              "1 1 0 1 1 10666 1 1 71 64\n1 1 10666 1 1 21332 1 1 72 64\n"
              "1 1 21333 1 1 31999 1 1 74 64\n1 2 0 1 3 0 1 1 71 64\n");
    EXPECT_NEAR(Duration(Event(1, 1, 0)), 250.0 / 3, 1e-9);
    EXPECT_TRUE(BeamOf(StemOf(Event(1, 1, 0))));
    ExpectSameAfterReload();
    Lasso(1, -20, 1, 200);
    Step([&] { Do(kTuplets, {{"count", "3"}, {"in", "2"}}); });
    EXPECT_EQ(Notes(), plain);
    EXPECT_EQ(Count(Irregular::kClass) + Count(MarkIrreg::kClass), 0);
}

TEST_F(TupletTest, TupletsNestButDoNotOverlap) {
    Fill(1, 1, "8:5 8:5 8:5 8:5 8:5");
    std::vector<VoiceSymbol*> all = Events(1, 1);
    const auto make = [&](size_t from, size_t to, int count, int in) {
        return MakeTuplets(*window,
                           {all.begin() + static_cast<long>(from), all.begin() + static_cast<long>(to)},
                           {count, in});
    };
    ASSERT_TRUE(make(0, 3, 3, 2));
    EXPECT_FALSE(make(1, 4, 3, 2)) << "two of its three are in another";
    // Three in the time of two, and these with two more: five quarters' worth of thirds is no group of five.
    EXPECT_EQ(Count(Irregular::kClass), 1);
    ASSERT_TRUE(make(0, 2, 2, 3)) << "within another";
    EXPECT_NEAR(Duration(all[0]), 125.0 * 2 / 3 * 3 / 2, 1e-9);
    ExpectSound();
}

TEST_F(TupletTest, ANoteThatBecomesARestStaysInItsTuplet) {
    Fill(1, 1, "8:5 8:6 8:7 4:5");
    ASSERT_TRUE(MakeTuplets(*window, {Event(1, 1, 0), Event(1, 1, 1), Event(1, 1, 2)}, {}));
    GenericNote* middle = Head(1, 1, 1);
    Step([&] {
        const EditStep step(*window);
        DeleteNote(*window, middle, {1, true, true, true});
    });
    EXPECT_EQ(TupletsOf(1), "3as3:2 ");
    EXPECT_TRUE(Event<Pause>(1, 1, 1));
    Step([&] {
        const EditStep step(*window);
        DeletePause(*window, Event<Pause>(1, 1, 1), {});
    });
    EXPECT_EQ(TupletsOf(1), "2as3:2 ");
}

TEST_F(TupletTest, TheEraserTakesTheWholeTuplet) {
    Fill(1, 1, "4:5 4:6 4:7");
    const std::string plain = Notes();
    ASSERT_TRUE(MakeTuplets(*window, Events(1, 1), {}));
    MarkIrreg* mark = As<MarkIrreg>(voiceSymbolAttributes.First(Event(1, 1, 0)));
    const Rect ink = PatchOf(mark).Bounds();
    Step([&] { EraseAt({ink.left + 10, (ink.top + ink.bottom) / 2}); });
    EXPECT_EQ(Count(Irregular::kClass) + Count(MarkIrreg::kClass), 0);
    EXPECT_EQ(Notes(), plain);
}

}  // namespace
}  // namespace corvane
