// Which events share a beam, for each kind of meter and choice.
#include "engraving_score.h"

namespace corvane::draw {
namespace {

class BeamGroupsTest : public EngravingTest {
protected:
    // "8=8 16-16": groups, and in them full connections (=), those by the eighth-note level (-) and by the
    // larger value (~); rests as r8.
    std::string Groups() const {
        constexpr char kSigns[] = {'?', '-', '~', '='};
        std::string text;
        for (const BeamGroup& group : BeamGroupsOf(voice)) {
            text += text.empty() ? "" : " ";
            for (size_t i = 0; i < group.size(); ++i) {
                text += (As<Pause>(group[i].symbol) ? "r" : "") + std::to_string(group[i].value);
                if (i + 1 < group.size()) text += kSigns[group[i].connection];
            }
        }
        return text;
    }
    std::string GroupsOf(const std::string& events) {
        while (VoiceSymbol* symbol = voiceSymbols.First(voice)) voiceSymbols.Remove(symbol);
        Add(events);
        return Groups();
    }
    static std::string Times(int count, const std::string& event) {
        std::string text;
        while (count-- > 0) text += event + " ";
        return text;
    }
};

TEST_F(BeamGroupsTest, EachMeterGroupsByItsChoice) {
    NotePref& notes = Notes();
    const auto with = [](auto& field, auto choice) { return [&field, choice] { field = choice; }; };
    const struct {
        const char* why;
        int numerator, denominator;
        std::function<void()> choose;
        std::string events, groups;
    } cases[] = {
        {"4/4 by beats", 4, 4, with(notes._binary, BinaryGroups::EachBeat), Times(8, "8"), "8=8 8=8 8=8 8=8"},
        {"4/4 by two", 4, 4, with(notes._binary, BinaryGroups::TwoBeats), Times(8, "8"), "8=8=8=8 8=8=8=8"},
        {"4/4 in one", 4, 4, with(notes._binary, BinaryGroups::All), Times(8, "8"), "8=8=8=8=8=8=8=8"},
        {"10 is even and no multiple of 3", 10, 8, with(notes._binary, BinaryGroups::TwoBeats),
         Times(10, "8"), "8=8 8=8 8=8 8=8 8=8"},
        {"2/2: a beat is a half", 2, 2, with(notes._binary, BinaryGroups::EachBeat), Times(8, "8"),
         "8=8=8=8 8=8=8=8"},
        {"3/4 by beats", 3, 4, with(notes._ternary, TernaryGroups::EachBeat), Times(6, "8"), "8=8 8=8 8=8"},
        {"3/4 in one", 3, 4, with(notes._ternary, TernaryGroups::All), Times(6, "8"), "8=8=8=8=8=8"},
        {"3/8 by beats", 3, 8, with(notes._ternary, TernaryGroups::EachBeat), "8 16 16 8", "8 16=16 8"},
        {"9/8 is ternary", 9, 8, with(notes._ternary, TernaryGroups::All), Times(9, "8"),
         "8=8=8=8=8=8=8=8=8"},
        {"6/8 by two", 6, 8, with(notes._composite, CompositeGroups::TwoBeats), Times(6, "8"), "8=8 8=8 8=8"},
        {"6/8 by three", 6, 8, with(notes._composite, CompositeGroups::ThreeBeats), Times(6, "8"),
         "8=8=8 8=8=8"},
        {"6/8 in one", 6, 8, with(notes._composite, CompositeGroups::All), Times(6, "8"), "8=8=8=8=8=8"},
        {"12/8 by three", 12, 8, with(notes._composite, CompositeGroups::ThreeBeats), Times(12, "8"),
         "8=8=8 8=8=8 8=8=8 8=8=8"},
        {"5/8 as 2+3", 5, 8, with(notes._five, FiveGroups::TwoThree), Times(5, "8"), "8=8 8=8=8"},
        {"5/8 as 3+2", 5, 8, with(notes._five, FiveGroups::ThreeTwo), Times(5, "8"), "8=8=8 8=8"},
        {"5/8 in one", 5, 8, with(notes._five, FiveGroups::All), Times(5, "8"), "8=8=8=8=8"},
        {"7/8 as 4+3", 7, 8, with(notes._seven, SevenGroups::FourThree), Times(7, "8"), "8=8=8=8 8=8=8"},
        {"7/8 as 3+4", 7, 8, with(notes._seven, SevenGroups::ThreeFour), Times(7, "8"), "8=8=8 8=8=8=8"},
        {"7/8 in one", 7, 8, with(notes._seven, SevenGroups::All), Times(7, "8"), "8=8=8=8=8=8=8"},
        {"11/8 never connects beats", 11, 8, with(notes._seven, SevenGroups::All), "8 16 16 8", "8 16=16 8"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Meter(c.numerator, c.denominator);
        c.choose();
        EXPECT_EQ(GroupsOf(c.events), c.groups);
    }
}

TEST_F(BeamGroupsTest, SubGroupsConnectAsTheyAreAskedTo) {
    const struct {
        const char* why;
        int numerator, denominator;
        SubGroups choice;
        const char *events, *groups;
    } cases[] = {
        {"not", 4, 4, SubGroups::NotConnected, "16 16 16 16 8 8", "16=16=16=16 8=8"},
        {"by the eighth level", 4, 4, SubGroups::ByEighthBeam, "16 16 16 16 8 8", "16=16=16=16-8=8"},
        {"at the larger value", 4, 4, SubGroups::ByLargerValue, "16 16 16 16 8 8", "16=16=16=16~8=8"},
        {"2+3: beats 2 and 3", 5, 8, SubGroups::ByEighthBeam, "8 8 8 8 8", "8=8-8=8=8"},
        {"3/4 by beats", 3, 4, SubGroups::ByLargerValue, "8 8 8 8 8 8", "8=8~8=8~8=8"},
        {"7/8", 7, 8, SubGroups::ByEighthBeam, "8 8 8 8 8 8 8", "8=8=8=8-8=8=8"},
        {"6/8 by two beats", 6, 8, SubGroups::ByEighthBeam, "16 16 8 8 8 8 8", "16=16=8-8=8-8=8"},
        {"9/8: each beat is an eighth", 9, 8, SubGroups::ByEighthBeam, "8 8 16 16 8", "8-8-16=16-8"},
        {"10/8", 10, 8, SubGroups::ByLargerValue, "8 8 16 16", "8~8~16=16"},
        {"7/8 as 4+3, at the larger value", 7, 8, SubGroups::ByLargerValue, "8 8 8 16 16 16 16 8 8",
         "8=8=8=16=16~16=16=8=8"},
        {"5/8 as 2+3, not", 5, 8, SubGroups::NotConnected, "8 16 16 8 8 16 16", "8=16=16 8=8=16=16"},
        {"within a beat it does not matter", 2, 2, SubGroups::ByEighthBeam, "16 16 8 4", "16=16=8"},
        {"other primes never connect", 13, 8, SubGroups::ByEighthBeam, "8 8 8", "8 8 8"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Meter(c.numerator, c.denominator);
        Notes()._subGroups = c.choice;
        EXPECT_EQ(GroupsOf(c.events), c.groups);
    }
}

TEST_F(BeamGroupsTest, ValuesDotsAndTupletsTellTheBeat) {
    EXPECT_EQ(GroupsOf("8. 16 16 8. 16 8 16 4"), "8=16 16=8 16=8=16");
    EXPECT_EQ(GroupsOf("8 4 8 4 8 8"), "8 8 8=8") << "a quarter parts its neighbours";
    EXPECT_EQ(GroupsOf("8.. 32 2 16"), "8=32 16");
    EXPECT_EQ(GroupsOf("8 8. 16 8"), "8=8 16=8") << "the second eighth reaches into the next beat";
    EXPECT_EQ(GroupsOf("11 1"), "");
    EXPECT_EQ(GroupsOf("2 4 8 64 64 64 64 32 32"), "8=64=64=64=64=32=32");

    // Three sixteenths in the time of two, four times an eighth: sums of thirds reach the beats.
    while (VoiceSymbol* symbol = voiceSymbols.First(voice)) voiceSymbols.Remove(symbol);
    for (int i = 0; i < 4; ++i) {
        auto* tuplet = Make<Irregular>();
        tuplet->_count = 3;
        tuplet->_inTimeOf = 2;
        for (VoiceSymbol* symbol : Add("8 8 8")) {
            auto* mark = Make<MarkIrreg>();
            voiceSymbolAttributes.Add(symbol, mark);
            irregularMarks.Add(tuplet, mark);
        }
    }
    EXPECT_EQ(Groups(), "8=8=8 8=8=8 8=8=8 8=8=8");
}

TEST_F(BeamGroupsTest, RestsCompleteTheGroupsInWhichNotesStand) {
    const struct {
        const char *why, *events, *left, *completed;
    } cases[] = {
        {"between notes", "16 r16 16 16", "16 16=16", "16=r16=16=16"},
        {"at the ends of a beat", "r16 16 16 r16 8 8", "16=16 8=8", "r16=16=16=r16-8=8"},
        {"a note and a rest", "8 r8 4", "8", "8=r8"},
        {"beats of rests alone fall off at the ends", "r8 r8 8 8 r8 r8", "8=8", "8=8"},
        {"but not between notes", "8 8 r8 r8 8 8", "8=8 8=8", "8=8-r8=r8-8=8"},
        {"no note", "r8 r8 r16 r16 r8", "", ""},
        {"longer rests part", "8 8 r4 8 8", "8=8 8=8", "8=8 8=8"},
    };
    Notes()._subGroups = SubGroups::ByEighthBeam;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Notes()._completion = Completion::Leave;
        EXPECT_EQ(GroupsOf(c.events), c.left);
        Notes()._completion = Completion::Complete;
        EXPECT_EQ(GroupsOf(c.events), c.completed);
    }
}

TEST_F(BeamGroupsTest, GraceChordsGroupAmongThemselves) {
    EXPECT_EQ(GroupsOf("8 g16 g16 g16 8 g8 8 8"), "16=16=16 8 8=8 8=8")
        << "those of grace chords first; the notes around them stay together";
    EXPECT_EQ(GroupsOf("g16 g4 g16 g16 4"), "16 16=16");
    EXPECT_EQ(GroupsOf("4 g8 g8"), "8=8") << "at the end of the voice";
}

}  // namespace
}  // namespace corvane::draw
