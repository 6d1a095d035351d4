// Where events stand in their measures, and how edits move them.
#include <algorithm>

#include "events_SmallScore.h"
#include "play/MeasureTimeElements.h"
#include "play/NoteDump.h"

namespace corvane {
namespace {

class Events : public SmallScore {};
using EventsDeath = Events;

TEST_F(Events, OfPlainQuartersReleaseBeforeTheNextStarts) {
    Measure* measure = AddMeasure();
    EnterQuarters(measure, {kC4, kD4, kE4});
    PutRest(VoiceOf(measure), 8);
    Enter(VoiceOf(measure), 8, {kF4, kA4});
    EXPECT_EQ(Elements(measure), "+1:0 -2:0 +2:0 -3:0 +3:0 -4:0 +4:16000*2 -5:0*2");
    EXPECT_EQ(DumpNotes(document),
              "1 1 0 1 2 0 1 1 60 64\n"
              "1 2 0 1 3 0 1 1 62 64\n"
              "1 3 0 1 4 0 1 1 64 64\n"
              "1 4 16000 1 5 0 1 1 65 64\n"
              "1 4 16000 1 5 0 1 1 69 64\n");
    EXPECT_EQ(NoteOnOf(NoteOf(As<Chords>(voiceSymbols.First(VoiceOf(measure)))))->_voiceRecord.Get(),
              &documentDocStaffs.First(document)->_voices[0]);
}

TEST_F(Events, StandOffOnTempoAtOnePlaceInWhateverOrderTheyCome) {
    using Make = void (*)(Measure*);
    const Make makes[] = {[](Measure* m) { GetOrMakeTimeOff(m, 2, 0); },
                          [](Measure* m) { GetOrMakeTimeOn(m, 2, 0); },
                          [](Measure* m) { GetOrMakeTempo(m, 2, 0); }};
    int order[] = {0, 1, 2};
    do {
        Measure* measure = AddMeasure();
        GetOrMakeTimeOn(measure, 3, 1);
        GetOrMakeTimeOff(measure, 1, 31999);
        for (const int i : order) makes[i](measure);
        makes[order[0]](measure);
        std::string expected = "-1:31999 -2:0 +2:0 T2:0 +3:1";
        expected.insert(expected.find(order[0] == 0 ? "-2:0" : order[0] == 1 ? "+2:0" : "T2:0") + 4, "*2");
        EXPECT_EQ(Elements(measure), expected);
    } while (std::next_permutation(order, order + 3));
}

TEST_F(Events, OfTwoVoicesShareTheirPlaceUntilTheLastLeaves) {
    Measure* measure = AddMeasure();
    Voice* second = AddVoice(Crossing(measure), 2);
    Chords* low = Enter(VoiceOf(measure), 2, {kC4});
    Chords* high = Enter(second, 4, {kC5});
    EXPECT_EQ(Elements(measure), "+1:0*2 -2:0 -3:0");
    EXPECT_EQ(NoteOnOf(NoteOf(high))->_voiceRecord.Get(), &documentDocStaffs.First(document)->_voices[1]);
    RemoveChordEvents(low);
    EXPECT_EQ(Elements(measure), "+1:0 -2:0");
    RemoveChordEvents(high);
    EXPECT_EQ(Elements(measure), "");
    EXPECT_TRUE(noteEvents.IsEmpty(NoteOf(high)));
}

TEST_F(Events, MoveWithWhatIsInsertedAndTakenAwayBeforeThem) {
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    EnterQuarters(measure, {kC4, kD4});
    const std::string before = DumpNotes(document);
    Chords* dotted = PutChord(voice, 8, {kE4, kG4}, voiceSymbols.First(voice));
    Dot* dot = Make<Dot>();
    dot->_count = 1;
    voiceSymbolAttributes.Add(dotted, dot);
    InsertVoiceSymbolEvents(dotted);
    // Three sixteenths: 0.75 of a beat.
    EXPECT_EQ(Elements(measure), "+1:0 -2:0 +2:0*2 -2:24000*2 +2:24000 -3:24000");
    RemoveVoiceSymbolEvents(dotted);
    EXPECT_EQ(DumpNotes(document), before);

    Pause* rest = Make<Pause>();
    rest->_value = 4;
    voiceSymbols.Insert(voice, rest, nullptr);
    InsertVoiceSymbolEvents(rest);
    EXPECT_EQ(Elements(measure), "+2:0 -3:0 +3:0 -4:0");
    RemoveVoiceSymbolEvents(rest);
    EXPECT_EQ(DumpNotes(document), before);
}

TEST_F(Events, ThatFallBelowTheFirstBeatStayThereOrGo) {
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    Chords* first = Enter(voice, 2, {kC4});
    Chords* moved = Enter(voice, 4, {kD4});
    GraceChord* grace = PutGrace(voice, 16, kE4);
    MakeNoteOn(NoteOf(grace), {2, 8000});
    MakeNoteOff(NoteOf(grace), {3, 8000});
    MoveEvent(NoteOnOf(NoteOf(moved)), {2, 16000});
    RemoveChordEvents(first);
    EXPECT_EQ(TimePlaceOf(NoteOnOf(NoteOf(moved))), (TimePlace{1, 0})) << "was to be at 0:16000";
    EXPECT_EQ(NoteOnOf(NoteOf(grace)), nullptr);
    EXPECT_EQ(TimePlaceOf(NoteOffOf(NoteOf(grace))), (TimePlace{1, 8000}));
    EXPECT_EQ(Elements(measure), "+1:0 -1:8000 -2:0");
}

TEST_F(Events, OfAnOddDenominatorEndByTwoRules) {
    Measure* measure = AddMeasure(6, 6);
    Chords* chord = Enter(VoiceOf(measure), 4, {kC4, kE4});
    Chords* next = Enter(VoiceOf(measure), 4, {kD4});
    EXPECT_EQ(TimePlaceOf(NoteOffOf(chordNotes.First(chord))), (TimePlace{2, 0})) << "counted in fourths";
    EXPECT_EQ(TimePlaceOf(NoteOffOf(chordNotes.Last(chord))), (TimePlace{2, 16000})) << "counted in sixths";
    EXPECT_EQ(NotePosition(next), (TimePlace{2, 0}));
}

TEST_F(Events, OfTripletsAreCutOffToClocks) {
    Measure* measure = AddMeasure();
    Voice* voice = VoiceOf(measure);
    std::vector<VoiceSymbol*> triplet;
    for (const int line : {kC4, kD4, kE4}) triplet.push_back(PutChord(voice, 8, {line}));
    MakeTuplet(triplet, 3, 2);
    RebuildVoiceEvents(voice);
    // Thirds of 32000: 10666.67 and 21333.33; the third's end is 21333 + 10666.
    EXPECT_EQ(Elements(measure), "+1:0 -1:10666 +1:10666 -1:21332 +1:21333 -1:31999");
}

TEST_F(Events, KeepSoundingThroughATieAndComeBackOnACoarserGrid) {
    Measure *one = AddMeasure(), *two = AddMeasure();
    Voice* voice = VoiceOf(one);
    std::vector<VoiceSymbol*> triplet;
    for (const int line : {kC4, kD4, kE4}) triplet.push_back(Enter(voice, 8, {line}));
    MakeTuplet(triplet, 3, 2);
    RebuildVoiceEvents(voice);
    GenericNote* first = NoteOf(As<Chords>(triplet[1]));
    GenericNote* second = NoteOf(Enter(VoiceOf(two), 2, {kD4}));
    const int velocity = 90;
    NoteOnOf(first)->_velocity = velocity;
    TieValue* tie = Tie(first, second);
    TieNotes(first, second);
    EXPECT_EQ(TiedToAfter(first), second);
    EXPECT_EQ(TiedFromBefore(second), first);
    EXPECT_EQ(TiedFromBefore(first), nullptr);
    EXPECT_EQ(Elements(two), "-3:0");
    EXPECT_NE(DumpNotes(document).find("1 1 10666 2 3 0 1 1 62 90\n"), std::string::npos);

    RebuildVoiceEvents(voice);
    RebuildVoiceEvents(VoiceOf(two));
    EXPECT_EQ(Elements(two), "-3:0") << "a rebuilt voice heeds its ties";
    EXPECT_EQ(NoteOnOf(first)->_velocity, velocity) << "and keeps velocities";

    UntieNotes(first, first);
    EXPECT_NE(NoteOnOf(first), nullptr) << "a note that has its start is left alone";
    for (MarkValue* mark : tieMarks.Of(tie)) {
        noteAttributes.Remove(mark);
        tieMarks.Remove(mark);
    }
    UntieNotes(second, first);
    // A third of a beat counts 333 thousandths of 32 clocks here.
    EXPECT_EQ(TimePlaceOf(NoteOffOf(first)), (TimePlace{1, 10666 + 333 * 32}));
    EXPECT_EQ(Elements(two), "+1:0 -3:0");
    EXPECT_EQ(NoteOnOf(second)->_velocity, kEnteredVelocity);
}

TEST_F(Events, TakeTheirHeightFromLineClefAndAlteration) {
    Measure* measure = AddMeasure();
    GenericNote* note = NoteOf(Enter(VoiceOf(measure), 4, {kC4}));
    note->_alteration = Alteration::DoubleSharp;
    UpdateNoteHeight(note);
    EXPECT_EQ(NoteOnOf(note)->_height, 62);
    EXPECT_EQ(NoteOffOf(note)->_height, 62);
    StaticClaf* bass = Make<StaticClaf>();
    bass->_code = 2;
    staffSymbols.Add(Crossing(measure), bass);
    note->_alteration = Alteration::Flat;
    UpdateNoteHeight(note);
    EXPECT_EQ(NoteOnOf(note)->_height, 39) << "E flat, a line below the bass staff";
}

TEST_F(Events, OfTempoMarksOfOnePlaceAreShared) {
    Measure* measure = AddMeasure();
    Time *a = AddTempo(measure, 3, 90), *b = AddTempo(measure, 3, 100);
    EXPECT_EQ(Elements(measure), "T3:0*2");
    RemoveTempo(b);
    EXPECT_EQ(Elements(measure), "T3:0");
    EXPECT_EQ(TempoOf(a)->_mark.Get(), a) << "the mark that is left speaks";
    EXPECT_EQ(TempoOf(b), nullptr);
    RemoveTempo(a);
    EXPECT_EQ(Elements(measure), "");
}

TEST_F(Events, GetVelocitiesThatRiseEvenlyInTime) {
    Measure *one = AddMeasure(), *two = AddMeasure();
    EnterQuarters(one, {kC4, kD4, kE4, kF4});
    EnterQuarters(two, {kC4, kD4, kE4, kF4});
    std::vector<GenericNote*> notes;
    for (const Measure* measure : {one, two})
        for (VoiceSymbol* symbol : voiceSymbols.Of(VoiceOf(measure)))
            notes.push_back(NoteOf(As<Chords>(symbol)));
    const auto velocities = [&] {
        std::vector<int> all;
        for (const GenericNote* note : notes) all.push_back(NoteOnOf(note)->_velocity);
        return all;
    };
    // Both measures last 240 units of weight: 480 units for 96 steps.
    SetVelocities(notes, 0, 96);
    EXPECT_EQ(velocities(), (std::vector<int>{0, 12, 24, 36, 48, 60, 72, 84}));
    // The second measure at 120: a quarter lasts 0.125 and the measure 0.5, the first 0.25 each, 1.0.
    AddTempo(one, 1, 60);
    AddTempo(two, 1, 120);
    SetVelocities(notes, 120, 0);
    EXPECT_EQ(velocities(), (std::vector<int>{120, 100, 80, 60, 40, 30, 20, 10}));
}

TEST_F(Events, ComeBackWithUndo) {
    Measure* measure = AddMeasure();
    EnterQuarters(measure, {kC4, kD4});
    const std::string before = DumpNotes(document);
    MemoryManager::Instance().EnableUndo();
    {
        CommandScope command;
        RemoveChordEvents(As<Chords>(voiceSymbols.First(VoiceOf(measure))));
    }
    EXPECT_NE(DumpNotes(document), before);
    MemoryManager::Instance().Undo();
    EXPECT_EQ(DumpNotes(document), before);
}

TEST_F(EventsDeath, MisusedPlacesAreAssertions) {
    Measure* measure = AddMeasure();
    EXPECT_DEATH(GetOrMakeTimeOn(nullptr, 1, 0), "\\(measure\\)");
    EXPECT_DEATH(GetOrMakeTimeOn(measure, 0, 0), "\\(beat\\)");
    EXPECT_DEATH(GetOrMakeTimeOff(measure, 1, -1), "\\(clock >= 0\\)");
    Chords* chord = Enter(VoiceOf(measure), 4, {kC4});
    Chords* other = Enter(VoiceOf(measure), 4, {kD4});
    EXPECT_DEATH(TieNotes(NoteOf(chord), NoteOf(other)), "height1 == height2");
    EXPECT_DEATH(AddNoteEvents(NoteOf(PutGrace(VoiceOf(measure), 8, kC4))), "Note");
}

}  // namespace
}  // namespace corvane
