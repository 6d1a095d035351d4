// Durations, stems and sides, clefs and pitches.
#include <gtest/gtest.h>

#include "model/ClassTable.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "store/MemoryManager.h"

namespace corvane {
namespace {

class Notes : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterClasses();
        pool = MemoryManager::Instance().NewPool();
        measure = Make<Measure>();
        docStaff = Make<DocStaff>();
        crossing = AddCrossing(measure);
        voice = measureStaffVoices.First(crossing);
    }
    void TearDown() override { MemoryManager::Instance().DeletePool(pool); }

    MeasureStaff* AddCrossing(Measure* in) {
        auto* made = Make<MeasureStaff>();
        measureStaffs.Add(in, made);
        docStaffMeasureStaffs.Add(docStaff, made);
        auto* first = Make<Voice>();
        first->_number = 1;
        measureStaffVoices.Add(made, first);
        return made;
    }
    Chords* AddChord(uint8_t value, std::initializer_list<int> lines = {5}) {
        auto* chordSymbol = Make<ChordSymbol>();
        chordSymbol->_value = value;
        auto* chord = Make<Chords>();
        auto* stem = Make<Stem>();
        measureSymbols.Add(measure, chordSymbol);
        voiceSymbols.Add(voice, chord);
        chordSymbolChords.Add(chordSymbol, chord);
        chordSymbolStems.Add(chordSymbol, stem);
        for (const int line : lines) {
            auto* note = Make<Note>();
            note->_line = static_cast<int16_t>(line);
            chordNotes.Add(chord, note);
            AddNoteToStem(stem, note);
        }
        return chord;
    }
    void AddTuplet(VoiceSymbol* symbol, int count, int inTimeOf) {
        auto* irregular = Make<Irregular>();
        irregular->_count = static_cast<int16_t>(count);
        irregular->_inTimeOf = static_cast<int16_t>(inTimeOf);
        auto* mark = Make<MarkIrreg>();
        irregularMarks.Add(irregular, mark);
        voiceSymbolAttributes.Add(symbol, mark);
    }
    template <class C>
    C* AddClef(MeasureStaff* in, int code, int place = 0) {
        auto* clef = Make<C>();
        clef->_code = static_cast<uint8_t>(code);
        if constexpr (std::is_same_v<C, MovingClaf>) clef->_place = place;
        staffSymbols.Add(in, clef);
        return clef;
    }
    static std::vector<int> Sides(Chords* chord, StemDirection direction) {
        Stem* stem = StemOf(chord);
        SetDirection(stem, direction);
        std::vector<int> sides;
        for (const GenericNote* note : stemNotes.Of(stem))
            sides.push_back(static_cast<int>(note->_side.Get()));
        return sides;
    }

    NewMemoryPool* pool = nullptr;
    Measure* measure = nullptr;
    DocStaff* docStaff = nullptr;
    MeasureStaff* crossing = nullptr;
    Voice* voice = nullptr;
};

TEST_F(Notes, DurationsCountValuesDotsAndTuplets) {
    EXPECT_DOUBLE_EQ(Duration(AddChord(4)), 250.0);
    EXPECT_DOUBLE_EQ(Duration(AddChord(kDoubleWhole)), 1000.0) << "a double whole lasts as long as a whole";
    EXPECT_DOUBLE_EQ(SpacingFraction(kDoubleWhole), 2.0) << "but takes twice its room";
    Chords* dotted = AddChord(2);
    auto* dot = Make<Dot>();
    dot->_count = 2;
    voiceSymbolAttributes.Add(dotted, dot);
    EXPECT_DOUBLE_EQ(Duration(dotted), 875.0);
    Chords* triplet = AddChord(4);
    AddTuplet(triplet, 3, 2);
    EXPECT_NEAR(Duration(triplet), 166.6667, 1e-4);
    AddTuplet(triplet, 5, 4);
    EXPECT_NEAR(Duration(triplet), 133.3333, 1e-4) << "nested tuplets multiply";
    AddTuplet(triplet, 0, 4);
    EXPECT_NEAR(Duration(triplet), 133.3333, 1e-4) << "a tuplet without a count is none";
}

TEST_F(Notes, DenominatorsOfNoPowerOfTwoCountAsTheOneBelow) {
    for (const auto& [denominator, effective] :
         {std::pair{4, 4}, {6, 4}, {5, 4}, {7, 4}, {12, 8}, {1, 1}, {128, 128}, {0, 1}})
        EXPECT_EQ(EffectiveDenominator(denominator), effective) << denominator;
}

TEST_F(Notes, SecondsAlternateAroundTheStem) {
    const struct {
        const char* why;
        std::initializer_list<int> lines;
        std::vector<int> up, down;  // from the highest head
    } cases[] = {
        {"one head", {5}, {1}, {0}},
        {"a third", {3, 5}, {1, 1}, {0, 0}},
        {"a second", {4, 5}, {0, 1}, {0, 1}},
        {"a cluster of three", {4, 5, 6}, {1, 0, 1}, {0, 1, 0}},
        {"a second above a third", {1, 3, 4}, {0, 1, 1}, {0, 1, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Chords* chord = AddChord(4, c.lines);
        EXPECT_EQ(Sides(chord, StemDirection::Up), c.up);
        EXPECT_EQ(Sides(chord, StemDirection::HiddenDown), c.down);
    }
}

TEST_F(Notes, TheOuterHeadIsTheOneAtTheFreeEnd) {
    Stem* stem = StemOf(AddChord(4, {2, 7, 4}));
    SetDirection(stem, StemDirection::Up);
    EXPECT_EQ(NoteOuter(stem)->_line, 7);
    EXPECT_EQ(NoteInner(stem)->_line, 2);
    SetDirection(stem, StemDirection::Down);
    EXPECT_EQ(NoteOuter(stem)->_line, 2);
    EXPECT_FALSE(IsMultiStaff(stem));
}

TEST_F(Notes, EachClefPutsItsOwnPitchOnItsOwnLine) {
    // C clefs hold middle C, G clefs G, F clefs the F below.
    const struct {
        int code, line, key;
    } cases[] = {{1, 3, 67}, {2, 7, 53}, {3, 3, 79},  {4, 3, 55},  {5, 7, 41},  {6, 9, 60}, {7, 7, 60},
                 {8, 5, 60}, {9, 3, 60}, {10, 1, 60}, {11, 1, 64}, {12, 1, 64}, {13, 1, 64}};
    for (const auto& c : cases)
        EXPECT_EQ(60 + SemitonesOfStep(DiatonicStep(c.code, c.line)), c.key) << "clef " << c.code;
    EXPECT_EQ(SemitonesOfStep(-1), -1);
    EXPECT_EQ(SemitonesOfStep(-7), -12);
    EXPECT_EQ(SemitonesOfStep(-8), -13);
}

TEST_F(Notes, TheClefInForceIsTheNearestToTheLeft) {
    Measure* next = Make<Measure>();
    MeasureStaff* later = AddCrossing(next);
    EXPECT_EQ(ClefInForce(later, 500), kTreble) << "none at all is treble";
    AddClef<StaticClaf>(crossing, kBass);
    EXPECT_EQ(ClefInForce(crossing, 0), kBass);
    AddClef<MovingClaf>(crossing, 8, 400);
    AddClef<MovingClaf>(crossing, 7, 700);
    EXPECT_EQ(ClefInForce(crossing, 400), kBass) << "a clef at the note's own place is not left of it";
    EXPECT_EQ(ClefInForce(crossing, 401), 8);
    EXPECT_EQ(ClefInForce(crossing, 1000), 7);
    EXPECT_EQ(ClefInForce(later, 0), 7) << "the last of the measure before holds on";
}

TEST_F(Notes, KeysAlterTheirSteps) {
    const int c = 0, f = 3, b = 6, lowF = -4;
    EXPECT_EQ(KeyAlteration(0, f), 0);
    EXPECT_EQ(KeyAlteration(1, f), 1);
    EXPECT_EQ(KeyAlteration(1, lowF), 1) << "in every octave";
    EXPECT_EQ(KeyAlteration(1, c), 0);
    EXPECT_EQ(KeyAlteration(-1, b), -1);
    EXPECT_EQ(KeyAlteration(-1, f), 0);
    for (int step = 0; step < 7; ++step) {
        EXPECT_EQ(KeyAlteration(7, step), 1);
        EXPECT_EQ(KeyAlteration(-7, step), -1);
    }
    auto* key = Make<ClafSignature>();
    key->_key = 7 + 2;
    staffSymbols.Add(crossing, key);
    EXPECT_EQ(KeyInForce(AddCrossing(Make<Measure>())), 2);
}

}  // namespace
}  // namespace corvane
