// Accidentals: their symbols, and which notes of a measure need one.
#include <string_view>

#include "layout/Engraving.h"
#include "layout/NotePitches.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolTable.h"
#include "model/Ties.h"

namespace corvane {
namespace {

constexpr std::string_view kLetters = "AdbDBmMtTsS";  // by alteration code
constexpr int16_t kScopeMeasure = 1;                  // of the preference

int32_t XOfNote(const GenericNote* note) { return StemPar(note)->_x; }

// No clef changes what the line means between two notes, the first on the left.
bool NoClafBetween(const GenericNote* a, const GenericNote* b) {
    for (StaffMeasureSymbol* symbol : staffSymbols.Of(MeasureStaffPar(a)))
        if (const auto* clef = As<MovingClaf>(symbol))
            if (XOfNote(a) < clef->_place && clef->_place < XOfNote(b)) return false;
    return true;
}

// Calls visit for every other head on the note's line in its crossing.
template <class Visit>
void ForEachOnLine(const GenericNote* note, Visit visit) {
    for (Voice* voice : measureStaffVoices.Of(MeasureStaffPar(note)))
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice))
            if (const auto* chord = As<Chords>(symbol))
                for (GenericNote* other : chordNotes.Of(chord))
                    if (other != note && other->_line == note->_line) visit(other);
}

Alteration InForce(const GenericNote* note, const GenericNote* before) {
    while (before && IsHeldOver(before)) before = NoteBefore(before);
    return before && NoClafBetween(before, note) ? before->_alteration.Get() : KeyAlterationAt(note);
}

// A note shows its accidental where it differs from the one before on its line, or else from the key.
void RenewAccident(GenericNote* note, const GenericNote* before) {
    ShowAccidental(note, !IsHeldOver(note) && note->_alteration != InForce(note, before));
}

}  // namespace

bool AccidentalsLast(const Document* document) {
    const auto* preferences = Preferences<NotePref>(document);
    return !preferences || preferences->_accidentalScope == kScopeMeasure;
}

Alteration KeyAlterationAt(const GenericNote* note) {
    const MeasureStaff* measureStaff = MeasureStaffPar(note);
    const int clef = ClefInForce(measureStaff, XOfNote(note));
    return AlterationOfKey(KeyInForce(measureStaff), DiatonicStep(clef, note->_line));
}

Alteration AlterationInForce(const GenericNote* note) {
    return InForce(note, AccidentalsLast(DocumentPar(note)) ? NoteBefore(note) : nullptr);
}

std::string AccidentName(Alteration alteration, bool grace, bool bracketed) {
    std::string name = grace ? "#G" : "#";
    const auto code = static_cast<size_t>(alteration);
    name += kLetters[code < kLetters.size() ? code : 0];  // a file may hold any code
    return bracketed ? name + "(" : name;
}

Accident* AttachAccident(GenericNote* note, Alteration alteration, bool bracketed) {
    auto* accident = Make<Accident>();
    noteAttributes.Add(note, accident);
    accident->_symbol = LookupSymbol(DocumentPar(note), AccidentName(alteration, As<Grace>(note), bracketed));
    return accident;
}

void RemoveAccidents(GenericNote* note) {
    Document* document = DocumentPar(note);
    for (NoteAttribute* attribute : noteAttributes.Of(note))
        if (auto* accident = As<Accident>(attribute)) {
            DropSymbol(document, accident->_symbol);
            noteAttributes.Remove(accident);
            Release(accident);
        }
}

GenericNote* NoteBefore(const GenericNote* note) {
    GenericNote* nearest = nullptr;
    ForEachOnLine(note, [&](GenericNote* other) {
        if (XOfNote(other) < XOfNote(note) && (!nearest || XOfNote(other) > XOfNote(nearest)))
            nearest = other;
    });
    return nearest;
}

GenericNote* NoteBehind(const GenericNote* note) {
    GenericNote* nearest = nullptr;
    ForEachOnLine(note, [&](GenericNote* other) {
        if (XOfNote(other) > XOfNote(note) && (!nearest || XOfNote(other) < XOfNote(nearest)))
            nearest = other;
    });
    return nearest;
}

void UpdateAccidentals(GenericNote* note, const std::function<void(GenericNote*)>& changed) {
    if (!AccidentalsLast(DocumentPar(note))) return RenewAccident(note, nullptr);
    RenewAccident(note, NoteBefore(note));
    // One that a tie holds says nothing, so what is in force goes past it.
    for (GenericNote* behind = NoteBehind(note); behind; behind = NoteBehind(behind)) {
        RenewAccident(behind, note);
        changed(behind);
        if (!IsHeldOver(behind)) return;
    }
}

}  // namespace corvane
