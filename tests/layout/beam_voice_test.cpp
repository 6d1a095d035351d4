// Making, keeping and dissolving the beams of a voice.
#include "engraving_score.h"

namespace corvane::draw {
namespace {

class BeamVoiceTest : public EngravingTest {
protected:
    // For each event its beam (a letter each), its flag (f) or neither (.).
    static std::string Picture(const std::vector<VoiceSymbol*>& symbols) {
        std::vector<const Beam*> beams;
        std::string text;
        for (VoiceSymbol* symbol : symbols) {
            const BeamSymbol* carrier = BeamSymbolOf(symbol);
            const Beam* beam = BeamOf(carrier);
            if (beam && FlagOf(carrier)) return "both";
            if (beam && std::find(beams.begin(), beams.end(), beam) == beams.end()) beams.push_back(beam);
            const auto place = std::find(beams.begin(), beams.end(), beam) - beams.begin();
            text += beam ? static_cast<char>('a' + place) : FlagOf(carrier) ? 'f' : '.';
        }
        return text;
    }
};

TEST_F(BeamVoiceTest, NeighboursGetBeamsAndSinglesFlags) {
    const auto events = Add("8 8 4 8 16 16 g8 g8 4");
    EXPECT_EQ(Picture(events), "ff.fffff.");
    BeamVoice(voice);
    EXPECT_EQ(Picture(events), "aa.bbbcc.");
    EXPECT_EQ(UsesOf("8\xA1up") + UsesOf("16\xA1up"), 0) << "flags give their symbols back";
    EXPECT_EQ(Faults(), "");
}

TEST_F(BeamVoiceTest, ABeamStaysWhileItsGroupDoes) {
    const auto events = Add("8:2 8:3 8:4 8:2");
    BeamVoice(voice);
    const Beam *first = BeamOf(StemAt(events[0])), *second = BeamOf(StemAt(events[2]));
    NoteAt(events[1])->_line = 6;
    BeamVoice(voice);
    EXPECT_EQ(BeamOf(StemAt(events[0])), first);
    EXPECT_EQ(EndOf(events[1]), 650) << "and follows its heads";

    SetDots(events[1], 1);
    BeamVoice(voice);
    EXPECT_EQ(Picture(events), "aabb") << "those behind still lie in the second beat";
    EXPECT_EQ(BeamOf(StemAt(events[0])), first);
    EXPECT_EQ(BeamOf(StemAt(events[2])), second);
    SetDots(events[0], 1);
    BeamVoice(voice);
    EXPECT_EQ(Picture(events), "aaff") << "now on two sides of the third";
    Notes()._binary = BinaryGroups::All;
    BeamVoice(voice);
    EXPECT_EQ(Picture(events), "aaaa");
    Notes()._binary = BinaryGroups::EachBeat;
    ChordSymbolPar(StemAt(events[0]))->_value = 4;
    ChordSymbolPar(StemAt(events[1]))->_value = 4;
    BeamVoice(voice);
    EXPECT_EQ(BeamOf(StemAt(events[0])), nullptr) << "a quarter keeps neither beam nor marker";
    EXPECT_EQ(Faults(), "");
}

TEST_F(BeamVoiceTest, ConnectionsAndStemsOnRestsAreKeptInTheMarkers) {
    const auto events = Add("16 16 16 r16 16 8.");
    Notes()._subGroups = SubGroups::ByEighthBeam;
    Notes()._completion = Completion::Complete;
    BeamVoice(voice);
    const auto row = [&](auto field) {
        std::string text;
        for (VoiceSymbol* symbol : events) {
            const BeamMarker* marker = MarkerOf(BeamSymbolOf(symbol));
            text += (text.empty() ? "" : " ") + std::to_string((marker->*field).Get());
        }
        return text;
    };
    EXPECT_EQ(row(&BeamMarker::_leftValue), "16 16 16 16 16 8");
    EXPECT_EQ(row(&BeamMarker::_rightValue), "255 255 255 8 255 255") << "cut between the beats";
    EXPECT_EQ(row(&BeamMarker::_level), "3 3 3 1 3 0");
    EXPECT_EQ(row(&BeamMarker::_drawToRest), "0 0 0 0 0 0");
    Notes()._completedBy = CompletedBy::StemsOnRests;
    Notes()._subGroups = SubGroups::ByLargerValue;
    BeamVoice(voice);
    EXPECT_EQ(row(&BeamMarker::_drawToRest), "0 0 0 1 0 0") << "a changed choice is taken at once";
    EXPECT_EQ(row(&BeamMarker::_rightValue), "255 255 255 16 255 255");
    EXPECT_EQ(Faults(), "");
}

TEST_F(BeamVoiceTest, DissolvingLeavesEachStemOnItsOwn) {
    const auto events = Add("8:8 16:9 16:2");
    BeamVoice(voice);
    ASSERT_EQ(Picture(events), "aaa");
    ASSERT_FALSE(IsUp(StemAt(events[2])->_direction));
    DissolveBeam(BeamOf(StemAt(events[0])), nullptr);
    EXPECT_EQ(Picture(events), "fff");
    EXPECT_EQ(FlagNameOf(StemAt(events[0])),
              "8\xA1"
              "down");
    EXPECT_EQ(FlagNameOf(StemAt(events[1])),
              "16\xA1"
              "down");
    EXPECT_EQ(FlagNameOf(StemAt(events[2])), "16\xA1up") << "by its own line";
    EXPECT_EQ(LengthsOf(events), "300 300 300");
    EXPECT_EQ(Faults(), "");

    BeamVoice(voice);
    DissolveBeam(BeamOf(StemAt(events[0])), StemAt(events[1]));
    EXPECT_EQ(Picture(events), "f.f") << "what is about to go gets nothing";
    EXPECT_EQ(Faults(), "");
}

TEST_F(BeamVoiceTest, ARestLosesOnlyItsMarker) {
    Notes()._completion = Completion::Complete;
    const auto events = Add("16 r16 8");
    BeamVoice(voice);
    ASSERT_EQ(Picture(events), "aaa");
    DissolveBeam(BeamOf(StemAt(events[0])), BeamSymbolOf(events[1]));
    EXPECT_EQ(Picture(events), "f.f");
    EXPECT_EQ(Faults(), "");
}

TEST_F(BeamVoiceTest, ASingleNoteMayHaveABeamForItsFlag) {
    Notes()._singleNote = SingleNote::Beam;
    const auto events = Add("16 4 8");
    BeamVoice(voice);
    EXPECT_EQ(Picture(events), "a.b");
    EXPECT_EQ(StrokesOf(BeamOf(StemAt(events[0]))).size(), 2u) << "one short stroke a level";
    Notes()._singleNote = SingleNote::Flag;
    BeamVoice(voice);
    EXPECT_EQ(Picture(events), "f.f");
    EXPECT_EQ(LengthsOf(events), "300 300 300");
    EXPECT_EQ(Faults(), "");
}

TEST_F(BeamVoiceTest, ABeamOverSeveralStavesIsLeftAlone) {
    const auto events = Add("8 8 8 8");
    auto* cross = Make<CrossBeam>();
    cross->_direction = 'U';
    measureSymbols.Add(measure, cross);
    for (const int i : {1, 2}) {
        RemoveFlag(StemAt(events[i]));
        auto* marker = Make<BeamMarker>();
        marker->_leftValue = 8;
        beamSymbolAttributes.Add(StemAt(events[i]), marker);
        beamMarkers.Add(cross, marker);
    }
    BeamVoice(voice);
    EXPECT_EQ(Picture(events), "faaf");
    EXPECT_EQ(BeamOf(StemAt(events[1])), cross);
    DissolveBeam(cross, nullptr);
    EXPECT_EQ(Picture(events), "ffff");
    EXPECT_EQ(Faults(), "");
}

}  // namespace
}  // namespace corvane::draw
