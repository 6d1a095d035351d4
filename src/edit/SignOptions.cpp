// Which accidentals selected notes show beyond those that they need, and articulations for many notes at
// once.
#include <set>

#include "edit/CommandTable.h"
#include "edit/Deletion.h"
#include "edit/Insertion.h"
#include "edit/MeasureRange.h"
#include "edit/NoteChoice.h"
#include "edit/PaletteTable.h"
#include "edit/SystemRedraw.h"
#include "layout/Engraving.h"
#include "layout/NotePitches.h"
#include "model/NoteOperations.h"
#include "model/Spelling.h"
#include "model/SymbolTable.h"
#include "model/Ties.h"

namespace corvane {
namespace {

constexpr uint8_t kArticulationGroup = 4;

// ---- Accidentals

enum class Shown { Needed, Reminders, Always };

int LetterOf(const GenericNote* note) { return ((SpellingOf(note).step % 7) + 7) % 7; }

// The last note of a letter in a crossing, in any octave, before a place; null for none.
const GenericNote* LastOfLetter(const MeasureStaff* crossing, int letter, int32_t before) {
    const GenericNote* last = nullptr;
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
            if (const auto* chord = As<Chords>(symbol); chord && XOf(chord) < before)
                for (const GenericNote* note : chordNotes.Of(chord))
                    if (LetterOf(note) == letter && (!last || XOf(ChordPar(last)) <= XOf(chord))) last = note;
    return last;
}

// Whether a player still has another alteration of the letter in mind: from before in the measure, else from
// the measure before.
bool IsSurprising(const GenericNote* note) {
    const MeasureStaff* crossing = MeasureStaffPar(note);
    const int letter = LetterOf(note);
    const GenericNote* before = LastOfLetter(crossing, letter, XOf(ChordPar(note)));
    const Measure* measure = PrevMeasure(MeasurePar(crossing));
    const MeasureStaff* old = measure ? MeasureStaffAt(measure, DocStaffPar(crossing)) : nullptr;
    if (!before && old) before = LastOfLetter(old, letter, INT32_MAX);
    return before && before->_alteration != note->_alteration;
}

bool IsBracketed(const Accident* accident) { return SymbolName(accident->_symbol).ends_with('('); }

// Signs in brackets beside those that the notes need; with Needed those in brackets go.
Status ShowAccidentals(WindowTarn& window, const std::vector<GenericNote*>& notes, Shown shown) {
    const EditStep step(window);
    const MeasureRange range = SpanOf(notes);
    const SystemRedraw redraw(window, range.first, range.last);
    std::set<MeasureStaff*> crossings;
    for (GenericNote* note : notes) {
        crossings.insert(MeasureStaffPar(note));
        if (const Accident* sign = AccidentOf(note); sign && IsBracketed(sign)) RemoveAccidents(note);
    }
    for (MeasureStaff* crossing : crossings) RedoAccidentals(crossing);
    if (shown == Shown::Needed) return Status::Ok();
    for (GenericNote* note : notes)
        if (!AccidentOf(note) && !IsHeldOver(note) && (shown == Shown::Always || IsSurprising(note)))
            AttachAccident(note, note->_alteration, true);
    return Status::Ok();
}

Status AccidentalsOptionsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<GenericNote*> notes = ReadNotes(reader, window);
    const int shown = reader.Choice("show", {"needed", "reminders", "always"}, 0);
    if (const Status status = reader.Result(); !status) return status;
    return ShowAccidentals(window, notes, static_cast<Shown>(shown));
}

// ---- Articulations

const PaletteItem* ArticulationNamed(const std::string& name) {
    for (uint16_t item = 1; const PaletteItem* each = FindPaletteItem(kArticulationGroup, item); ++item)
        if (name == each->name) return each;
    return nullptr;
}

// Takes what the chord has; null for none in its place. What a tie holds is not struck again.
void Articulate(WindowTarn& window, Chords* chord, const PaletteItem* sign) {
    for (GenericNote* note : chordNotes.Of(chord)) ClearNoteSign(window, note, Articolazione::kClass);
    GenericNote* note = chordNotes.First(chord);
    if (sign && note && !IsHeldOver(note)) AddNoteSign(note, Articolazione::kClass, sign->descriptor);
}

Status ApplyArticulationsCommand(WindowTarn& window, const CommandArguments& arguments) {
    ArgumentReader reader(arguments);
    const std::vector<Chords*> chords = ReadChords(reader, window);
    const std::string name = reader.Text("sign", "None");
    const PaletteItem* sign = ArticulationNamed(name);
    if (!sign && name != "None") reader.Refuse("There is no articulation \"" + name + "\"");
    if (const Status status = reader.Result(); !status) return status;
    const EditStep step(window);
    const MeasureRange range = SpanOf(chords);
    const SystemRedraw redraw(window, range.first, range.last);
    for (Chords* chord : chords) Articulate(window, chord, sign);
    return Status::Ok();
}

constexpr Command kSigns[] = {
    {32814, "Accidentals Options", AccidentalsOptionsCommand, NotPlaying, Needs::Notes},
    {32818, "Apply Articulations", ApplyArticulationsCommand, NotPlaying, Needs::Notes},
};

}  // namespace

CommandFamily SignOptionCommands() { return kSigns; }

}  // namespace corvane
