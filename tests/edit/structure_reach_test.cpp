// What reaches over measures and staves that come or go: ties, tuplets, beams, spanners, endings, tempo
// marks.
#include <algorithm>

#include "edit/Signs.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "play/MeasureTimeElements.h"
#include "structure_fixture.h"

namespace corvane {
namespace {

constexpr int kAddMeasures = 32791, kRemovePages = 32793, kRemoveMeasures = 32794, kRemoveStaffs = 32795;

class StructureReach : public StructureTest {
protected:
    // Objects of a class in the score.
    int Count(int16_t classNumber) {
        int count = 0;
        for (void* object = window->Pool()->FirstObject(); object;
             object = window->Pool()->NextObject(object))
            count += ClassNumberOf(object) == classNumber;
        return count;
    }
    static void Tie(Chords* first, Chords* second) {
        auto* tie = Make<TieValue>();
        for (Chords* chord : {first, second}) {
            auto* mark = Make<MarkValue>();
            noteAttributes.Add(chordNotes.First(chord), mark);
            tieMarks.Add(tie, mark);
        }
        TieNotes(chordNotes.First(first), chordNotes.First(second));
    }
    static void Tuplet(const std::vector<Chords*>& chords) {
        auto* tuplet = Make<Irregular>();
        tuplet->_count = int16_t{3};
        tuplet->_inTimeOf = int16_t{2};
        for (Chords* chord : chords) {
            auto* mark = Make<MarkIrreg>();
            voiceSymbolAttributes.Add(chord, mark);
            irregularMarks.Add(tuplet, mark);
        }
        for (Chords* chord : chords) RebuildVoiceEvents(VoicePar(chord));
        for (Chords* chord : chords) SpaceVoice(VoicePar(chord));
    }
    template <class Spanner, class Mark, class Relation>
    void Span(const Relation& marks, std::initializer_list<MeasureStaff*> over) {
        auto* spanner = Make<Spanner>();
        for (MeasureStaff* crossing : over) {
            auto* mark = Make<Mark>();
            staffSymbols.Add(crossing, mark);
            marks.Add(spanner, mark);
        }
    }
    // Under a beam of its own.
    static void BeamOver(const std::vector<Chords*>& chords) {
        auto* beam = Make<Beam>();
        beam->_direction = 'U';
        for (const Chords* chord : chords) {
            auto* marker = Make<BeamMarker>();
            marker->_leftValue = marker->_groupValue = 8;
            marker->_rightValue = 255;
            RemoveFlag(StemOf(chord));
            beamSymbolAttributes.Add(StemOf(chord), marker);
            beamMarkers.Add(beam, marker);
        }
    }
    static int EventsOf(const Chords* chord) { return noteEvents.Count(chordNotes.First(chord)); }
};

TEST_F(StructureReach, NotesTiedIntoARemovedMeasureSoundOnTheirOwn) {
    OpenPages(1);
    const auto left = Fill(1, 1, 4, 4), middle = Fill(2, 1, 1, 1, 6), right = Fill(3, 1, 1, 1, 6);
    Tie(left[3], middle[0]);
    Tie(middle[0], right[0]);
    ASSERT_EQ(EventsOf(left[3]), 1);
    ASSERT_EQ(EventsOf(middle[0]), 0);
    RunAndBack(kRemoveMeasures, {{"from", "2"}});
    EXPECT_EQ(Count(TieValue::kClass), 0);
    EXPECT_EQ(EventsOf(left[3]), 2);
    EXPECT_EQ(EventsOf(right[0]), 2);
    EXPECT_EQ(TimePlaceOf(NoteOffOf(chordNotes.First(left[3]))), (TimePlace{5, 0}));

    Tie(left[3], right[0]);
    RunAndBack(kAddMeasures, {{"after", "1"}});
    EXPECT_EQ(Count(TieValue::kClass), 0) << "no tie over a measure between";
    EXPECT_EQ(EventsOf(right[0]), 2);
}

TEST_F(StructureReach, BeamsAndTupletsOverTheBarlineAreTakenApart) {
    OpenPages(1);
    const auto left = Fill(1, 1, 8, 8), right = Fill(2, 1, 8, 8);
    BeamOver({left[6], left[7], right[0], right[1]});
    Tuplet({left[7], right[0], right[1]});
    ASSERT_EQ(Duration(left[7]), 125.0 * 2 / 3);
    RunAndBack(kAddMeasures, {{"after", "1"}});
    EXPECT_EQ(Count(Beam::kClass), 0) << "a beam ends at a new measure";
    EXPECT_NE(FlagOf(StemOf(left[7])), nullptr);
    window->Undo();
    RunAndBack(kRemoveMeasures, {{"from", "1"}});
    EXPECT_EQ(Count(Beam::kClass), 0);
    EXPECT_EQ(Count(Irregular::kClass), 0);
    EXPECT_NE(FlagOf(StemOf(right[0])), nullptr);
    EXPECT_EQ(Duration(right[0]), 125.0);
    EXPECT_EQ(TimePlaceOf(NoteOnOf(chordNotes.First(right[2]))), (TimePlace{2, 0})) << "eighths again";
}

TEST_F(StructureReach, BeamsTupletsAndSignsInsideGoWithTheirMeasure) {
    OpenPages(1);
    const int symbols = documentFontSymbols.Count(Score());
    const auto notes = Fill(3, 2, 8, 8);
    BeamVoice(VoicePar(notes[0]));
    Tuplet({notes[0], notes[1], notes[2]});
    Tie(notes[3], Fill(4, 2, 1, 1, 6)[0]);
    {
        const EditStep step(*window);
        UpdateNoteHeight(chordNotes.First(notes[0]));
        InsertNewPause(VoicePar(notes[0]), 990, RestKindOf(uint8_t{16}));
    }
    RunAndBack(kRemoveMeasures, {{"from", "3"}, {"to", "4"}});
    for (const int16_t gone :
         {Beam::kClass, Irregular::kClass, TieValue::kClass, Note::kClass, Chords::kClass,
          ChordSymbol::kClass, Pause::kClass, TimeOn::kClass, NoteOn::kClass})
        EXPECT_EQ(Count(gone), 0) << gone;
    EXPECT_LE(documentFontSymbols.Count(Score()), symbols) << "heads and flags give their symbols back";
}

TEST_F(StructureReach, SpannersGoWithAnyOfTheirMarks) {
    OpenPages(2);
    MeasureStaff *first = Crossing(2, 1), *second = Crossing(3, 1), *far = Crossing(20, 2);
    Span<Hairpin, MarkHairpin>(hairpinMarks, {first, second});
    Span<Ottava, MarkOttava>(ottavaMarks, {second, first});
    Span<Trillo, MarkTrillo>(trilloMarks, {first, far});
    Span<Pedale, MarkPedale>(pedaleMarks, {far, far});
    Span<Slur, MarkSlur>(slurMarks, {first, second});
    RunAndBack(kRemoveMeasures, {{"from", "3"}});
    EXPECT_EQ(Count(Hairpin::kClass) + Count(Ottava::kClass) + Count(Slur::kClass), 0);
    EXPECT_EQ(Count(MarkHairpin::kClass) + Count(MarkOttava::kClass) + Count(MarkSlur::kClass), 0);
    EXPECT_EQ(Count(Trillo::kClass), 1) << "it begins before and ends behind";
    RunAndBack(kRemovePages, {{"from", "2"}});
    EXPECT_EQ(Count(Trillo::kClass) + Count(Pedale::kClass) + Count(MarkTrillo::kClass), 0);
}

TEST_F(StructureReach, AnEndingShrinksAndGrowsWithItsMeasures) {
    OpenPages(1);
    ASSERT_TRUE(InsertEndings(*window, {MeasureNumber(2), MeasureNumber(4)}, "1."));
    RunAndBack(kAddMeasures, {{"after", "3"}});
    EXPECT_EQ(Count(MarkEndings::kClass), 4);
    RunAndBack(kAddMeasures, {{"after", "5"}});
    EXPECT_EQ(Count(MarkEndings::kClass), 4) << "not behind its end";
    RunAndBack(kRemoveMeasures, {{"from", "2"}, {"to", "4"}});
    EXPECT_EQ(Count(MarkEndings::kClass), 1);
    RunAndBack(kRemoveMeasures, {{"from", "2"}});
    EXPECT_EQ(Count(Endings::kClass), 0);
}

TEST_F(StructureReach, TempoMarksGoWithTheirTempo) {
    OpenPages(1);
    ASSERT_TRUE(InsertTempo(*window, MeasureNumber(3), {2, 4, 1, 90}));
    {
        const EditStep step(*window);
        GetOrMakeTempo(MeasureNumber(3), 3, 0)->_metronome = 60;
    }
    ASSERT_EQ(Count(Tempo::kClass), 2);
    RunAndBack(kRemoveMeasures, {{"from", "3"}});
    EXPECT_EQ(Count(Tempo::kClass) + Count(Time::kClass), 0);
}

TEST_F(StructureReach, TheFinalBarlineStaysAtTheEnd) {
    OpenPages(1, "S", 2, 1);
    ASSERT_TRUE(ChangeBarline(*window, MeasureNumber(2), BarlineChange::Final));
    RunAndBack(kAddMeasures, {{"count", "2"}});
    EXPECT_EQ(MeasureNumber(2)->_barline, BarlineKind::Single);
    EXPECT_EQ(MeasureNumber(4)->_barline, BarlineKind::Final);
    RunAndBack(kRemoveMeasures, {{"from", "3"}, {"to", "4"}});
    EXPECT_EQ(MeasureNumber(2)->_barline, BarlineKind::Final);
}

TEST_F(StructureReach, AChordOnTwoStavesKeepsTheHeadsOfTheStaffThatStays) {
    OpenPages(1);
    const auto upper = Fill(2, 1, 2, 4), lower = Fill(2, 2, 1, 4);
    // The lower staff's chord joins the first column of the upper staff: one stem for both.
    ChordSymbol *column = ChordSymbolPar(upper[0]), *own = ChordSymbolPar(lower[0]);
    Stem *stem = StemOf(upper[0]), *ownStem = StemOf(lower[0]);
    GenericNote* note = chordNotes.First(lower[0]);
    stemNotes.Remove(note);
    stemNotes.Add(stem, note);
    chordSymbolStems.Remove(ownStem);
    Release(ownStem);
    chordSymbolChords.Remove(lower[0]);
    measureSymbols.Remove(own);
    Release(own);
    chordSymbolChords.Add(column, lower[0]);
    ExpectSound();
    RunAndBack(kRemoveStaffs, {{"from", "2"}});
    EXPECT_EQ(Count(Note::kClass), 2);
    EXPECT_EQ(stemNotes.Count(stem), 1);
    window->Undo();
    RunAndBack(kRemoveStaffs, {{"from", "1"}});
    EXPECT_EQ(Count(Note::kClass), 1);
    EXPECT_EQ(stemNotes.First(stem), note);
}

}  // namespace
}  // namespace corvane
