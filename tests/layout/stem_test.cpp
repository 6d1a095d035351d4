// Directions, lengths and flags of single stems.
#include "engraving_score.h"

namespace corvane::draw {
namespace {

using enum StemDirection;

class StemTest : public EngravingTest {};

TEST_F(StemTest, TheLineDecidesWhileAVoiceIsAlone) {
    const struct {
        uint8_t value;
        int line;
        StemDirection direction;
    } cases[] = {{4, 5, Up},
                 {4, 6, Down},
                 {8, -3, Up},
                 {128, 12, Down},
                 {1, 5, HiddenUp},
                 {1, 6, HiddenDown},
                 {kDoubleWhole, 2, HiddenUp},
                 {kDoubleWhole, 9, HiddenDown}};
    for (const auto& c : cases)
        EXPECT_EQ(DefaultStemDirection(voice, c.value, c.line), c.direction)
            << int{c.value} << " on " << c.line;
}

TEST_F(StemTest, AVoicesNumberOrItsPreferenceDecidesBesideOthers) {
    Voice* second = MakeVoice(MeasureStaffPar(voice), 2);
    EXPECT_FALSE(StemsAreForced(voice)) << "a voice without events does not count";
    AddTo(second, "4");
    EXPECT_TRUE(StemsAreForced(voice));
    EXPECT_EQ(DefaultStemDirection(voice, 4, 9), Up);
    EXPECT_EQ(DefaultStemDirection(voice, 1, 9), HiddenUp);
    EXPECT_FALSE(StemsAreForced(second)) << "the first is empty";
    Add("4");
    EXPECT_EQ(DefaultStemDirection(second, 4, 1), Down);
    Voices()._forced[1] = ForcedStems::Up;
    EXPECT_EQ(DefaultStemDirection(second, 4, 9), Up);

    Clear();
    Voices()._automaticStems = 0;
    Voices()._forced[0] = ForcedStems::Down;
    EXPECT_EQ(DefaultStemDirection(voice, 2, 1), Down) << "alone, but not automatic";
}

TEST_F(StemTest, StemsReachTheMiddleLineAndMakeRoomForTheirTails) {
    const struct {
        const char* why;
        const char* event;
        int32_t length;
    } cases[] = {
        {"the score's own length", "4:5", 300},
        {"three spaces below the middle, up", "4:-1", 300},
        {"line -4 is nine half spaces below the middle line", "4:-4", 450},
        {"line 14 is nine above", "8:14", 450},
        {"a chord counts from its upper head", "4:-3,-5", 400},
        {"and downward from its lower", "4:17,15", 500},
        {"a 16th has room for two tails", "16:5", 300},
        {"a 32nd needs more", "32:5", 370},
        {"a 128th more still", "128:5", 510},
        {"unless it is longer anyway", "32:-4", 450},
        {"a grace note is smaller and need not reach", "g8:-6", 222},
        {"also with tails: three quarters of 370", "g32:5", 273},
    };
    for (const auto& c : cases) EXPECT_EQ(StemAt(Add(c.event)[0])->_length, c.length) << c.why;
    Preferences<StangPref>(document)->_stemLength = 350;
    EXPECT_EQ(StemAt(Add("4:5")[0])->_length, 350);
    StaffsFromTop(SystemAt(0))[0]->_lineCount = 1;
    EXPECT_EQ(StemAt(Add("4:-6")[0])->_length, 350)
        << "the only line of its staff is the middle: 7 half spaces";
    EXPECT_EQ(StemAt(Add("4:-8")[0])->_length, 450);
}

TEST_F(StemTest, ChordsTurnByTheMiddleBetweenTheirOuterHeads) {
    EXPECT_TRUE(IsUp(StemAt(Add("4:8,3")[0])->_direction)) << "5.5 is below 6";
    EXPECT_FALSE(IsUp(StemAt(Add("4:9,3")[0])->_direction));
    VoiceSymbol* chord = Add("4:9,8,2")[0];
    EXPECT_TRUE(IsUp(StemAt(chord)->_direction)) << "heads between have no say";
    EXPECT_EQ(NoteAt(chord)->_side, Side::Right) << "of the second the upper head stands across";
}

TEST_F(StemTest, GraceChordsPointUpUnlessTheirVoiceIsForced) {
    VoiceSymbol* grace = Add("g8:11")[0];
    EXPECT_EQ(StemAt(grace)->_direction, Up);
    EXPECT_EQ(FlagNameOf(StemAt(grace)), "Grace8\xA1up");
    Voices()._automaticStems = 0;
    Voices()._forced[0] = ForcedStems::Down;
    RestemVoice(voice);
    EXPECT_EQ(StemAt(grace)->_direction, Down);
    EXPECT_EQ(FlagNameOf(StemAt(grace)),
              "Grace8\xA1"
              "down");
}

TEST_F(StemTest, AVoiceTurnsAwayFromAnother) {
    const auto events = Add("4:9 8:9@100 8:8@200 r8 1:9");
    BeamVoice(voice);
    ASSERT_EQ(StemAt(events[1])->_direction, Down);
    AddTo(MakeVoice(MeasureStaffPar(voice), 2), "1:1");
    RestemVoice(voice);
    for (const int i : {0, 1, 2}) EXPECT_EQ(StemAt(events[i])->_direction, Up) << i;
    EXPECT_EQ(BeamOf(StemAt(events[1]))->_direction, 'U');
    EXPECT_EQ(EndOf(events[1]), 800) << "four spaces above the higher head";
    EXPECT_EQ(StemAt(events[4])->_direction, HiddenUp) << "a whole note's stem stays unseen";
    EXPECT_EQ(Faults(), "");
}

TEST_F(StemTest, AFlagFollowsItsStemAndGivesItsSymbolBack) {
    Stem* stem = StemAt(Add("16:5")[0]);
    EXPECT_EQ(FlagNameOf(stem), "16\xA1up");
    EXPECT_EQ(UsesOf("16\xA1up"), 1);
    ChangeStemDirection(stem, Down);
    EXPECT_EQ(FlagNameOf(stem),
              "16\xA1"
              "down");
    EXPECT_EQ(UsesOf("16\xA1up"), 0);
    EXPECT_EQ(stemNotes.First(stem)->_side, Side::Right);
    EXPECT_EQ(Faults(), "");
    RemoveFlag(stem);
    RemoveFlag(stem);
    EXPECT_EQ(UsesOf("16\xA1"
                     "down"),
              0);
    EXPECT_EQ(AttachFlag(stem, 4), nullptr);
    EXPECT_EQ(AttachFlag(stem, kDoubleWhole), nullptr);
    EXPECT_EQ(Faults(), "");
}

TEST_F(StemTest, AHiddenStemStaysHidden) {
    VoiceSymbol* chord = Add("8:9")[0];
    ChangeStemDirection(StemAt(chord), HiddenDown);
    NoteAt(chord)->_line = 2;
    RestemVoice(voice);
    EXPECT_EQ(StemAt(chord)->_direction, HiddenUp);
    EXPECT_EQ(FlagNameOf(StemAt(chord)), "8\xA1up");
}

TEST_F(StemTest, OverTwoStavesALengthCountsFromTheBottomLine) {
    Clear("D");
    VoiceSymbol* chord = Add("4:7")[0];
    auto* lower = Make<Chords>();
    voiceSymbols.Add(VoiceOfStaff(0, 1), lower);
    chordSymbolChords.Add(ChordSymbolPar(StemAt(chord)), lower);
    AddHead(lower, StemAt(chord), 3, "Quarto");
    ChangeStemDirection(StemAt(chord), Up);
    SetDefaultStemLength(StemAt(chord));
    EXPECT_EQ(EndOf(chord), 600) << "three spaces above line 7";
    ChangeStemDirection(StemAt(chord), Down);
    SetDefaultStemLength(StemAt(chord));
    EXPECT_EQ(LineOf(StemAt(chord)).end, FrameOf(StaffsFromTop(SystemAt(0))[1]).Bottom() + 200);
}

}  // namespace
}  // namespace corvane::draw
