// Beams that a person makes, takes apart and turns.
#include "beams_fixture.h"

namespace corvane {
namespace {

class HandBeamsTest : public BeamsTest {
protected:
    void SetUp() override {
        BeamsTest::SetUp();
        Write(1, 1, "8:3 8:4 8:5 8:6 8:5 8:4");
    }
    std::string Sides(int measure) {
        std::string text;
        for (VoiceSymbol* event : Events(measure, 1))
            if (const BeamMarker* marker = MarkerOf(Carrier(event)))
                text += static_cast<char>(marker->_stubSide.Get());
        return text;
    }
};

TEST_F(HandBeamsTest, WhatIsBeamedByHandStaysWhileNotesAreEntered) {
    ASSERT_EQ(Picture(1, 1), "aabbcc");
    On(kTogether, 1, 1, 2, 5);
    EXPECT_EQ(Picture(1, 1), "faaaaf") << "one note left of a beam has a flag";
    Write(1, 1, "8:3");
    EXPECT_EQ(Picture(1, 1), "faaaaff") << "what is entered is grouped around it";
    ExpectSameAfterReload();
    On(kOnBeat, 1, 1, 3, 3);
    EXPECT_EQ(Picture(1, 1), "aabbccf") << "its whole beam goes back to the beats";

    On(kTogether, 1, 1, 3, 6);
    On(kTogether, 1, 1, 3, 4);
    EXPECT_EQ(Picture(1, 1), "aabbccf") << "what is left of a beam stays under one";
}

TEST_F(HandBeamsTest, WhatComesBetweenEndsABeam) {
    On(kTogether, 1, 1, 1, 4);
    Enter(kEighth, 1, 1, StemNumber(1, 1, 2)->_x + 90, 8);
    EXPECT_EQ(Picture(1, 1), "aabbccf") << "entered inside a beam made by hand";
    Write(2, 1, "16:3 16:4 16:5 16:4");
    Do(32808, {});
    Enter(kSixteenth, 2, 1, StemNumber(2, 1, 2)->_x + 40, 8);
    EXPECT_EQ(Picture(2, 1), "fffff") << "and without beams as notes are entered";
    Write(3, 1, "16:3 16:4 16:5 16:4");
    On(kTogether, 3, 1, 1, 4);
    Enter(12, 3, 1, StemNumber(3, 1, 2)->_x + 40, 8);
    EXPECT_EQ(Picture(3, 1), "ff.ff") << "a rest too";
    ExpectSound();
}

TEST_F(HandBeamsTest, ABeamEndsAtTheBarlineAndAPersonIsTold) {
    HearingShell shell;
    window = std::make_unique<WindowTarn>(shell);
    window->Activate();
    window->Bind(BuildNewScore({3, 2}, "D"));
    Write(1, 1, "2:3 4:3 8:4 8:5");
    Write(2, 1, "8:4 8:5 4:5");
    Choose(1, 1, 4, 4);
    ChooseMore(2, 1, 1, 1);
    EXPECT_EQ(Refusal(kTogether, {}), "A beam does not go over a barline");
    EXPECT_EQ(shell.told, "");
    ChooseMore(1, 1, 3, 3);
    Do(kTogether, {});
    EXPECT_EQ(shell.told, "A beam ends at the barline; each measure has its own.");
    EXPECT_EQ(Picture(1, 1) + "|" + Picture(2, 1), "..aa|aa.");
    shell.told.clear();
    On(kTogether, 1, 1, 3, 4);
    EXPECT_EQ(shell.told, "");
    window.reset();
}

TEST_F(HandBeamsTest, ARemovedBeamStaysAway) {
    On(kTogether, 1, 1, 1, 6);
    On(kRemove, 1, 1, 3, 3);
    EXPECT_EQ(Picture(1, 1), "aafbbb") << "the notes on both sides stay beamed";
    Do(kOnBeat, In(1));
    EXPECT_EQ(Picture(1, 1), "aabbcc");
    On(kRemove, 1, 1, 3, 4);
    Write(1, 1, "8:3");
    EXPECT_EQ(Picture(1, 1), "aaffbbf") << "also when the voice is beamed again";
    ExpectSameAfterReload();
    EXPECT_EQ(RefusalOn(kRemove, 1, 1, 3, 4), "Select notes under a beam first");
    Preferences<NotePref>(Score())->_singleNote = SingleNote::Beam;
    Write(1, 1, "8:2");
    EXPECT_EQ(Picture(1, 1), "aaffbbcc") << "and where single notes get beams";
}

TEST_F(HandBeamsTest, AddedNotesJoinTheBeamBesideThem) {
    On(kRemove, 1, 1, 1, 6);
    ASSERT_EQ(Picture(1, 1), "ffffff");
    On(kAdd, 1, 1, 2, 2);
    EXPECT_EQ(Picture(1, 1), "aaffff") << "to the note before";
    On(kAdd, 1, 1, 3, 3);
    EXPECT_EQ(Picture(1, 1), "aaafff") << "to the beam before";
    On(kAdd, 1, 1, 4, 5);
    EXPECT_EQ(Picture(1, 1), "aaabbf") << "several with each other";
    On(kAdd, 1, 1, 3, 4);
    EXPECT_EQ(Picture(1, 1), "aaaaaf") << "two beams become one";
    On(kAdd, 1, 1, 1, 5);
    EXPECT_EQ(Picture(1, 1), "aaaaaa") << "a whole beam takes what is behind";
    EXPECT_EQ(RefusalOn(kAdd, 1, 1, 1, 6), "There is nothing beside these notes to beam them with");

    Write(2, 1, "4:5 8:4 4:5 16:3 4:4");
    On(kAdd, 2, 1, 2, 2);
    EXPECT_EQ(Picture(2, 1), ".a.f.") << "alone it gets a beam for its flag";
    EXPECT_EQ(RefusalOn(kTogether, 2, 1, 1, 4),
              "Select at least two notes in a row that are eighths or shorter");
    EXPECT_EQ(RefusalOn(kOnBeat, 2, 1, 1, 1), "Select eighth notes or shorter ones first");
    window->TheSelection().Clear();
    EXPECT_EQ(Refusal(kAdd, {}), "Select some notes first");
}

TEST_F(HandBeamsTest, RestsBetweenNotesComeUnderTheBeam) {
    Write(2, 1, "8:3 r8 8:4 r8 8:5");
    On(kTogether, 2, 1, 1, 4);
    EXPECT_EQ(Picture(2, 1), "aaa.f") << "but not at its ends";
}

TEST_F(HandBeamsTest, FlagsAndPartialBeamsTurn) {
    Write(2, 1, "8:3 16:3 8:3 4:5 8:5");
    ASSERT_EQ(Sides(2), "RLL");
    On(kFlip, 2, 1, 1, 3);
    EXPECT_EQ(Sides(2), "RRL") << "the only partial beam";
    Write(2, 1, "8:3");
    EXPECT_EQ(Sides(2).substr(0, 3), "RRL") << "and it keeps that";
    ExpectSameAfterReload();
    On(kFlip, 2, 1, 1, 3);
    EXPECT_EQ(Sides(2).substr(0, 3), "RLL");

    Write(3, 1, "8:3 4:5 r8 8:4 8:5");
    On(kFlip, 3, 1, 1, 1);
    EXPECT_FALSE(IsUp(StemNumber(3, 1, 1)->_direction)) << "a flag turns with its stem";
    const bool up = BeamAt(3, 1, 4)->_direction == 'U';
    On(kTurn, 3, 1, 4, 4);
    EXPECT_NE(BeamAt(3, 1, 4)->_direction == 'U', up) << "one stem turns its beam";
    ExpectOnLine(BeamAt(3, 1, 4));
    EXPECT_EQ(RefusalOn(kFlip, 3, 1, 2, 2), "Select notes with flags or under a beam first");
}

TEST_F(HandBeamsTest, InnerBeamsAreParted) {
    Write(2, 1, "16:3 16:4 16:5 16:4");
    Choose(2, 1, 3, 4);
    const auto strokes = [&] { return StrokesOf(BeamAt(2, 1, 1)).size(); };
    ASSERT_EQ(strokes(), 2u);
    Step([&] { Do(kInner, {{"connect", "eighth"}}); });
    EXPECT_EQ(strokes(), 3u) << "the second level is in two pieces";
    Write(2, 1, "8:3");
    EXPECT_EQ(strokes(), 3u) << "and stays so";
    Choose(2, 1, 3, 3);
    Step([&] { Do(kInner, {{"connect", "all"}}); });
    EXPECT_EQ(strokes(), 2u);
    EXPECT_EQ(RefusalOn(kInner, 2, 1, 1, 1), "Select notes behind others under a beam first");
}

// ---- what the score chooses

TEST_F(HandBeamsTest, ChoicesHoldForTheScoreOrFromNowOn) {
    Step([&] { Do(kGrouping, {{"binary", "two"}}); });
    EXPECT_EQ(Picture(1, 1), "aabbcc");
    Write(2, 1, "8:3 8:4 8:5 8:6");
    EXPECT_EQ(Picture(2, 1), "aaaa");
    On(kRemove, 1, 1, 2, 2);
    Step([&] { Do(kGrouping, {{"apply", "score"}}); });
    EXPECT_EQ(Picture(1, 1), "ffaabb") << "but for what was done by hand";
    Do(kOnBeat, In(1));
    Step([&] { Do(kSubGroups, {{"connect", "eighth"}, {"apply", "score"}}); });
    EXPECT_EQ(Picture(1, 1), "aaaaaa");
    Write(3, 1, "8:3 r8 4:5");
    EXPECT_EQ(Picture(3, 1), "f..");
    Step([&] { Do(kSubGroups, {{"complete", "yes"}, {"by", "stems"}, {"apply", "score"}}); });
    EXPECT_EQ(Picture(3, 1), "aa.");
    EXPECT_EQ(Refusal(kGrouping, {{"five", "4+1"}}).substr(0, 4), "five");
    ExpectSameAfterReload();
}

TEST_F(HandBeamsTest, SizesAndAnglesFitTheBeamsAnew) {
    const auto length = [&] { return StemNumber(1, 1, 2)->_length.Get(); };
    ASSERT_EQ(length(), 400);
    Step([&] { Do(kDistances, {{"distance", "300"}, {"thickness", "50"}, {"stem", "350"}}); });
    EXPECT_EQ(length(), 300);
    EXPECT_EQ(StrokesOf(BeamAt(1, 1, 1)).front().thickness, 50);
    Write(2, 1, "4:3");
    EXPECT_EQ(StemNumber(2, 1, 1)->_length, 350);
    EXPECT_EQ(Refusal(kDistances, {{"stem", "19"}}),
              "The minimum value of reduction for a note head or a stem is 20");
    const auto rise = [&] {
        const BeamStroke line = StrokesOf(BeamAt(1, 1, 1)).front();
        return line.from.y - line.to.y;
    };
    EXPECT_GT(rise(), 0);
    Step([&] { Do(kAngled, {}); });
    EXPECT_EQ(rise(), 0);
    ExpectSameAfterReload();
}

TEST_F(HandBeamsTest, TupletsAndTiesStartAsTheyAreTold) {
    Step([&] { Do(32822, {{"count", "5"}, {"in", "4"}, {"bracket", "always"}, {"dy", "-50"}}); });
    Write(2, 1, "16:3 16:3 16:3 16:3 16:3");
    Choose(2, 1, 1, 5);
    Step([&] { Do(32805, {}); });
    const auto* mark = As<MarkIrreg>(voiceSymbolAttributes.First(Events(2, 1).front()));
    ASSERT_TRUE(mark);
    EXPECT_EQ(irregularMarks.ParentOf(mark)->_count, 5);
    EXPECT_EQ(irregularMarks.ParentOf(mark)->_bracket, TupletBracket::Always);
    Step([&] { Do(32821, {{"above", "500"}}); });
    EXPECT_EQ(Refusal(32821, {{"below", "99"}}), "The minimum value for the height of a tie is 100");
    ExpectSameAfterReload();
}

TEST_F(HandBeamsTest, VoicesPointAsTheyAreTold) {
    Write(2, 1, "4:3 4:9");
    Step([&] { Do(kVoices, {{"automatic", "0"}, {"voice1", "down"}}); });
    EXPECT_FALSE(IsUp(StemNumber(2, 1, 1)->_direction));
    EXPECT_EQ(BeamAt(1, 1, 1)->_direction, 'D');
    Step([&] { Do(kVoices, {{"voice1", "number"}}); });
    EXPECT_TRUE(IsUp(StemNumber(2, 1, 2)->_direction)) << "odd voices up";
    Step([&] { Do(kVoices, {{"automatic", "1"}}); });
    EXPECT_FALSE(IsUp(StemNumber(2, 1, 2)->_direction)) << "by its line";
    EXPECT_TRUE(IsUp(StemNumber(2, 1, 1)->_direction));
}

}  // namespace
}  // namespace corvane
