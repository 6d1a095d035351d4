// Grace notes sound in time taken from a neighbour.
#include "events_SmallScore.h"
#include "model/PreferenceRecords.h"
#include "play/MIDIGrace.h"
#include "play/NoteDump.h"

namespace corvane {
namespace {

class GraceNotes : public SmallScore {
protected:
    // Half of what the neighbour lasts, at most all that the group lasts, unless told otherwise.
    void Want(int mode, int percentAssigned = 100, int percentCut = 50) {
        if (!_preferences) {
            _preferences = Make<GracePref>();
            SetText(_preferences->_className, "GracePref");
            documentPreferences.Add(document, _preferences);
        }
        _preferences->_mode = static_cast<int16_t>(mode);
        _preferences->_percentAssigned = percentAssigned;
        _preferences->_percentCut = percentCut;
    }
    static constexpr int kPreceding = 18, kFollowing = 17;

private:
    GracePref* _preferences = nullptr;
};

TEST_F(GraceNotes, OnTheBeatDelayTheNextChord) {
    Want(kFollowing);
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    Enter(voice, 4, {kC4});
    GraceChord *a = PutGrace(voice, 16, kD4), *b = PutGrace(voice, 16, kE4);
    Enter(voice, 4, {kF4, kA4});
    const std::string without = Elements(measure);
    MakeGraceEvents(b);
    // Two sixteenths are half a quarter: both limits say an eighth, a sixteenth for each.
    EXPECT_EQ(DumpNotes(document),
              "1 1 0 1 2 0 1 1 60 64\n"
              "1 2 0 1 2 8000 1 1 62 64\n"
              "1 2 8000 1 2 16000 1 1 64 64\n"
              "1 2 16000 1 3 0 1 1 65 64\n"
              "1 2 16000 1 3 0 1 1 69 64\n");
    EXPECT_FALSE(a->_beforeBeat);
    EXPECT_EQ(a->_percentCut, 50);
    RemoveGraceEvents(a);
    EXPECT_EQ(Elements(measure), without);
}

TEST_F(GraceNotes, BeforeTheBeatShortenTheChordBefore) {
    Want(kPreceding, 100, 25);
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    Enter(voice, 4, {kC4});
    GraceChord* grace = PutGrace(voice, 8, kD4);
    Enter(voice, 4, {kE4});
    MakeGraceEvents(grace);
    // A quarter of the quarter before: 8000 clocks.
    EXPECT_EQ(DumpNotes(document),
              "1 1 0 1 1 24000 1 1 60 64\n"
              "1 1 24000 1 2 0 1 1 62 64\n"
              "1 2 0 1 3 0 1 1 64 64\n");
    Want(kPreceding, 75, 100);
    MakeGraceEvents(grace);
    EXPECT_EQ(TimePlaceOf(NoteOnOf(NoteOf(grace))), (TimePlace{1, 20000}))
        << "three quarters of its own eighth";
}

TEST_F(GraceNotes, WithoutTheirNeighbourAreSilent) {
    Want(kPreceding);
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    GraceChord* leading = PutGrace(voice, 8, kD4);
    Enter(voice, 4, {kE4});
    MakeGraceEvents(leading);
    EXPECT_EQ(Elements(measure), "+1:0 -2:0");
    Want(kFollowing);
    GraceChord* trailing = PutGrace(voice, 8, kD4);
    MakeGraceEvents(trailing);
    EXPECT_EQ(Elements(measure), "+1:0 -2:0");
    MakeGraceEvents(leading);
    EXPECT_EQ(Elements(measure), "+1:0 -1:16000 +1:16000 -2:0") << "the mode is read anew";
}

TEST_F(GraceNotes, OfOneGroupLeaveTheCutsOfTheNextGroupAlone) {
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    Enter(voice, 4, {kC4});
    GraceChord* onBeat = PutGrace(voice, 8, kD4);
    Enter(voice, 2, {kE4});
    GraceChord* beforeBeat = PutGrace(voice, 8, kF4);
    Enter(voice, 4, {kG4});
    Want(kPreceding, 100, 25);
    MakeGraceEvents(beforeBeat);
    Want(kFollowing, 100, 25);
    MakeGraceEvents(onBeat);
    const std::string both =
        "1 1 0 1 2 0 1 1 60 64\n"
        "1 2 0 1 2 16000 1 1 62 64\n"
        "1 2 16000 1 3 16000 1 1 64 64\n"
        "1 3 16000 1 4 0 1 1 65 64\n"
        "1 4 0 1 5 0 1 1 67 64\n";
    EXPECT_EQ(DumpNotes(document), both) << "the half note gives at both ends";
    MakeGraceEvents(onBeat);
    EXPECT_EQ(DumpNotes(document), both);
    RebuildVoiceEvents(voice);
    EXPECT_EQ(DumpNotes(document), both) << "each with the settings that it was made with";
    RemoveGraceEvents(beforeBeat);
    EXPECT_EQ(DumpNotes(document),
              "1 1 0 1 2 0 1 1 60 64\n"
              "1 2 0 1 2 16000 1 1 62 64\n"
              "1 2 16000 1 4 0 1 1 64 64\n"
              "1 4 0 1 5 0 1 1 67 64\n");
}

TEST_F(GraceNotes, FollowWhatHappensToTheChordBesideThem) {
    Want(kFollowing);
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    GraceChord* grace = PutGrace(voice, 8, kD4);
    MakeGraceEvents(grace);
    EXPECT_EQ(Elements(measure), "") << "nothing to take from yet";
    Chords* chord = Enter(voice, 4, {kE4});
    const std::string cut = "+1:0 -1:16000 +1:16000 -2:0";
    EXPECT_EQ(Elements(measure), cut);
    RemoveVoiceSymbolEvents(chord);
    InsertVoiceSymbolEvents(chord);
    EXPECT_EQ(Elements(measure), cut);
}

}  // namespace
}  // namespace corvane
