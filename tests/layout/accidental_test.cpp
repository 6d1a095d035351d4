// Which notes of a measure show an accidental.
#include "engraving_score.h"

namespace corvane::draw {
namespace {

using enum Alteration;

// A note as it is entered: where, on which line, and what it sounds.
struct Entered {
    int32_t x;
    int16_t line;
    Alteration alteration;
    int voice = 1;
};

class AccidentalTest : public EngravingTest {
protected:
    void Key(int sharps) {
        for (StaffMeasureSymbol* symbol : staffSymbols.Of(MeasureStaffPar(voice)))
            if (auto* key = As<ClafSignature>(symbol)) key->_key = static_cast<uint8_t>(sharps + 7);
    }
    void ClefAt(int32_t x, uint8_t code) {
        auto* clef = Make<MovingClaf>();
        clef->_code = code;
        clef->_place = static_cast<int16_t>(x);
        clef->_symbol = LookupSymbol(document, "ChiaveFa");
        staffSymbols.Add(MeasureStaffPar(voice), clef);
    }
    Voice* VoiceNumber(int number) {
        Voice* found = FindVoice(MeasureStaffPar(voice), number);
        return found ? found : MakeVoice(MeasureStaffPar(voice), number);
    }
    GenericNote* Enter(const Entered& entered) {
        const std::string word = "4:" + std::to_string(entered.line) + "@" + std::to_string(entered.x);
        GenericNote* note = NoteAt(AddTo(VoiceNumber(entered.voice), word)[0]);
        note->_alteration = entered.alteration;
        UpdateAccidentals(note, [&](GenericNote* other) { changed.push_back(XOf(ChordPar(other))); });
        return note;
    }
    // What the notes show from left to right, "." for nothing.
    static std::string Shown(std::vector<GenericNote*> notes) {
        std::sort(notes.begin(), notes.end(),
                  [](const GenericNote* a, const GenericNote* b) { return StemPar(a)->_x < StemPar(b)->_x; });
        std::string text;
        for (const GenericNote* note : notes) {
            const Accident* accident = AccidentOf(note);
            text += accident ? SymbolName(accident->_symbol).substr(1) : ".";
        }
        return text;
    }
    std::vector<int32_t> changed;
};

// Line 2 is the F of the treble clef.
TEST_F(AccidentalTest, AnAccidentalStaysInForceOnItsLineToTheEndOfTheMeasure) {
    const struct {
        const char* why;
        int key;
        std::vector<Entered> notes;  // in the order of entry
        const char* shown;           // in the order of places
    } cases[] = {
        {"nothing to say", 0, {{0, 2, None}}, "."},
        {"not in the key", 0, {{0, 2, Sharp}}, "d"},
        {"in the key", 1, {{0, 2, Sharp}, {100, 9, Sharp}}, ".."},
        {"a natural against the key", 1, {{0, 2, None}}, "A"},
        {"the same line again", 0, {{0, 2, Sharp}, {100, 2, Sharp}}, "d."},
        {"an octave higher is another line", 0, {{0, 2, Sharp}, {100, 9, Sharp}}, "dd"},
        {"a natural after a sharp", 0, {{0, 2, Sharp}, {100, 2, None}}, "dA"},
        {"back to the key after a natural", 1, {{0, 2, None}, {100, 2, Sharp}}, "Ad"},
        {"the nearest before counts", 0, {{0, 2, Sharp}, {100, 2, None}, {200, 2, Sharp}}, "dAd"},
        {"a note put in between", 0, {{0, 2, Sharp}, {200, 2, Sharp}, {100, 2, None}}, "dAd"},
        {"one put before spares the next its sign", 0, {{200, 2, Flat}, {0, 2, Flat}}, "b."},
        {"one put before makes the next say its natural", 0, {{200, 2, None}, {0, 2, Sharp}}, "dA"},
        {"only the next is concerned", 0, {{100, 2, None}, {200, 2, Flat}, {0, 2, Sharp}}, "dAb"},
        {"across voices", 0, {{0, 2, Sharp, 1}, {100, 2, Sharp, 2}, {200, 2, None, 1}}, "d.A"},
        {"together in two voices", 0, {{0, 2, Sharp, 1}, {0, 2, Sharp, 2}}, "dd"},
        {"double", 0, {{0, 2, DoubleSharp}, {100, 2, Sharp}}, "Dd"},
        {"quarter tones", 0, {{0, 2, HalfSharp}, {100, 2, ThreeQuarterFlat}}, "mT"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Clear();
        Key(c.key);
        std::vector<GenericNote*> notes;
        for (const Entered& entered : c.notes) notes.push_back(Enter(entered));
        EXPECT_EQ(Shown(notes), c.shown);
        std::vector<GenericNote*> others = notes;
        for (GenericNote* note : others) UpdateAccidentals(note, [](GenericNote*) {});
        EXPECT_EQ(Shown(notes), c.shown) << "and the rule agrees with itself";
        EXPECT_EQ(Faults(), "");
    }
}

TEST_F(AccidentalTest, AClefEndsTheScope) {
    ClefAt(100, 2);
    // In the bass clef line 2 is an A.
    const std::vector<GenericNote*> notes = {Enter({0, 2, Sharp}), Enter({200, 2, Sharp}),
                                             Enter({300, 2, None})};
    EXPECT_EQ(Shown(notes), "ddA");
    notes[2]->_line = 7;
    Key(1);
    UpdateAccidentals(notes[1], [](GenericNote*) {});
    EXPECT_EQ(KeyAlterationAt(notes[2]), Sharp) << "line 7 is the F of the bass clef";
    EXPECT_EQ(KeyAlterationAt(notes[0]), Sharp);
    EXPECT_EQ(KeyAlterationAt(notes[1]), None);
}

TEST_F(AccidentalTest, WithoutAScopeOnlyTheKeyCounts) {
    Notes()._accidentalScope = 2;
    EXPECT_EQ(Shown({Enter({0, 2, Sharp}), Enter({200, 2, Sharp}), Enter({100, 2, None})}), "d.d");
    EXPECT_TRUE(changed.empty());
}

TEST_F(AccidentalTest, TheNextNoteIsHandedOverAndSignsGoWithTheirSymbols) {
    GenericNote* next = Enter({200, 2, None});
    Enter({300, 2, None});
    Enter({200, 5, None});
    changed.clear();
    GenericNote* first = Enter({0, 2, Flat});
    EXPECT_EQ(changed, std::vector<int32_t>{200});
    EXPECT_EQ(UsesOf("#A"), 1);
    first->_alteration = None;
    UpdateAccidentals(first, [](GenericNote*) {});
    EXPECT_EQ(UsesOf("#A"), 0);
    EXPECT_EQ(UsesOf("#b"), 0);
    EXPECT_EQ(Faults(), "");
    EXPECT_EQ(NoteBehind(first), next);
    EXPECT_EQ(NoteBefore(first), nullptr);
}

TEST_F(AccidentalTest, SignsInBracketsAndThoseThatAHandHasMovedStay) {
    GenericNote *first = Enter({0, 2, Sharp}), *second = Enter({100, 2, None}), *third = Enter({200, 2, None});
    AttachAccident(third, None, true);
    AccidentOf(second)->_dx = 300;
    const auto alter = [&](GenericNote* note, Alteration alteration) {
        note->_alteration = alteration;
        UpdateAccidentals(note, [](GenericNote*) {});
        return Shown({first, second, third});
    };
    EXPECT_EQ(alter(first, Flat), "bAA(");
    EXPECT_EQ(AccidentOf(second)->_dx, 300) << "it said so before";
    EXPECT_EQ(alter(second, Flat), "b.A(");
    EXPECT_EQ(alter(second, None), "bAA(");
    EXPECT_EQ(alter(third, Sharp), "bAd(") << "it tells what the note is now";
    EXPECT_EQ(UsesOf("#A("), 0);
    EXPECT_EQ(Faults(), "");
}

TEST_F(AccidentalTest, NamesTellGraceNotesAndBrackets) {
    EXPECT_EQ(AccidentName(DoubleFlat, false, false), "#B");
    EXPECT_EQ(AccidentName(NaturalDown, true, false), "#GS");
    EXPECT_EQ(AccidentName(Flat, true, true), "#Gb(");
    GenericNote* note = NoteAt(Add("g8:2")[0]);
    note->_alteration = Sharp;
    UpdateAccidentals(note, [](GenericNote*) {});
    EXPECT_EQ(SymbolName(AccidentOf(note)->_symbol), "#Gd");
    AttachAccident(note, Flat, true);
    RemoveAccidents(note);
    EXPECT_EQ(AccidentOf(note), nullptr) << "all of them";
    EXPECT_EQ(Faults(), "");
}

}  // namespace
}  // namespace corvane::draw
