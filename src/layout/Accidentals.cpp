// Accidentals: their symbols, and which notes of a measure need one.
#include "layout/Engraving.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Preferences.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr char kLetters[] = {'A', 'd', 'b', 'D', 'B', 'm', 'M', 't', 'T', 's', 'S'};  // by alteration code
constexpr int16_t kScopeMeasure = 1;

int32_t XOfNote(const GenericNote* note) { return StemPar(note)->_x; }

Alteration KeyAlterationAt(const GenericNote* note) {
    const MeasureStaff* measureStaff = MeasureStaffPar(note);
    const int clef = ClefInForce(measureStaff, XOfNote(note));
    return AlterationOfKey(KeyInForce(measureStaff), DiatonicStep(clef, note->_line));
}

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

int16_t ScopeOf(const GenericNote* note) {
    const auto* preferences = Preferences<NotePref>(DocumentPar(note));
    return preferences ? preferences->_accidentalScope.Get() : kScopeMeasure;
}

// The earlier of two notes decides what the later one is compared with.
Alteration InForce(const GenericNote* before, const GenericNote* note) {
    return before && NoClafBetween(before, note) ? before->_alteration.Get() : KeyAlterationAt(note);
}

}  // namespace

std::string AccidentName(Alteration alteration, bool grace, bool bracketed) {
    std::string name = grace ? "#G" : "#";
    name += kLetters[static_cast<size_t>(alteration)];
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
        if (XOfNote(other) < XOfNote(note) && (!nearest || XOfNote(other) > XOfNote(nearest))) nearest = other;
    });
    return nearest;
}

GenericNote* NoteBehind(const GenericNote* note) {
    GenericNote* nearest = nullptr;
    ForEachOnLine(note, [&](GenericNote* other) {
        if (XOfNote(other) > XOfNote(note) && (!nearest || XOfNote(other) < XOfNote(nearest))) nearest = other;
    });
    return nearest;
}

void UpdateAccidentals(GenericNote* note, const std::function<void(GenericNote*)>& changed) {
    const bool wholeMeasure = ScopeOf(note) == kScopeMeasure;
    const GenericNote* before = wholeMeasure ? NoteBefore(note) : nullptr;
    RemoveAccidents(note);
    if (note->_alteration != InForce(before, note)) AttachAccident(note, note->_alteration);
    GenericNote* behind = wholeMeasure ? NoteBehind(note) : nullptr;
    if (!behind) return;
    RemoveAccidents(behind);
    if (behind->_alteration != InForce(note, behind)) AttachAccident(behind, behind->_alteration);
    changed(behind);
}

}  // namespace corvane
