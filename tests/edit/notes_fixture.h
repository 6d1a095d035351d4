// Commands on notes and rests, and what a score then holds of them.
#pragma once

#include "model/Spelling.h"
#include "play/MIDIUtility.h"
#include "sign_fixture.h"

namespace corvane {

class NotesTest : public SignTest {
protected:
    static constexpr int kUp = 32815, kDown = 32816, kTranspose = 32819, kDurations = 32817,
                         kEnharmonic = 33036, kVelocity = 32780, kKey = 32781, kAutoSpacing = 32809;

    static CommandArguments In(int measure, CommandArguments more = {}) {
        more["from"] = std::to_string(measure);
        return more;
    }
    Chords* ChordNumber(int measure, int staff, int number, int voice = 1) {
        return As<Chords>(Events(measure, staff, voice)[static_cast<size_t>(number - 1)]);
    }
    GenericNote* Head(int measure, int staff, int number) {
        return chordNotes.First(ChordNumber(measure, staff, number));
    }
    void Press(GenericNote* note, int item) {
        Item(item);
        EditTest::Press(MeasurePar(note)->_number, 1, StemPar(note)->_x + 10, note->_line);
    }
    // Joins two notes by a tie, as they sound.
    void Tie(GenericNote* first, GenericNote* second) {
        const EditStep step(*window);
        auto* tie = Make<TieValue>();
        for (GenericNote* note : {first, second}) {
            auto* mark = Make<MarkValue>();
            noteAttributes.Add(note, mark);
            tieMarks.Add(tie, mark);
        }
        TieNotes(first, second);
    }
    // "c d# eb3": each note's name, with the octave where it is not that of middle C.
    std::string Names(int measure, int staff) {
        std::string names;
        ForEachNote(measure, staff, [&](const GenericNote* note) {
            names += (names.empty() ? "" : " ") + NameOf(SpellingOf(note));
        });
        return names;
    }
    static std::string NameOf(const Spelling& spelling) {
        constexpr const char* kSigns[] = {"", "#", "b", "x", "bb", "+", "-", "#+", "b-", "^", "v"};
        const int octave = spelling.step >= 0 ? spelling.step / 7 : -((6 - spelling.step) / 7);
        std::string name(1, "cdefgab"[spelling.step - octave * 7]);
        name += kSigns[static_cast<int>(spelling.alteration)];
        return octave ? name + std::to_string(octave + 4) : name;
    }
    std::string NamesOfAll() {
        std::string names;
        for (int measure = 1; measure <= 6; ++measure)
            names += Names(measure, 1) + "|" + Names(measure, 2) + "|";
        return names;
    }
};

}  // namespace corvane
