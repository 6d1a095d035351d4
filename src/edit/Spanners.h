// What makes and takes away ties, tuplets, slurs and the lines that span notes. Every Tie..., Make... and
// Insert... is one undoable step of its own, refused before it begins with a sentence that says why; every
// Set... and Delete... belongs to the caller's step.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "base/Status.h"
#include "edit/WindowTarn.h"

namespace corvane {

// ---- Ties

// The note that a tie from this one would lead to: of the same height, in the next event of its voice, over
// the barline too, where a voice beside it will do; null for none.
GenericNote* NoteToTie(const GenericNote* note);
// Ties each note to the next one where both are given; where no two follow each other, to what follows it.
// Where all of these are tied already they are parted again.
Status TieNotesOf(WindowTarn& window, const std::vector<GenericNote*>& notes);
// Two notes of the same height, the first before the second, sound as one. The second shows no accidental if
// it stands in a later measure.
void SetTie(WindowTarn& window, GenericNote* first, GenericNote* second);
// Takes the tie between two notes away, if there is one.
void DeleteTieBetween(WindowTarn& window, GenericNote* a, GenericNote* b);
// Parts what a new event has come between: the event before it from what that was tied to behind it.
void CutTiesOver(WindowTarn& window, const VoiceSymbol* symbol);
// Gives all notes that ties join to this one its alteration; belongs to a change of it.
void AlterTiedNotes(WindowTarn& window, GenericNote* note);

// ---- Tuplets

// So many in the time of so many.
struct TupletValue {
    int count = 3, inTimeOf = 2;
    TupletFigure figure = TupletFigure::AsUsual;
    TupletBracket bracket = TupletBracket::UnlessBeamed;
};
// What the score's preferences give a new one.
TupletValue UsualTuplet(const Document* document);
// Events of a voice that follow each other become tuplets of `count` equal parts each, as many as they make
// up. Groups that are such a tuplet stay; where all are, they are dissolved; a group that is another one
// changes.
Status MakeTuplets(WindowTarn& window, const std::vector<VoiceSymbol*>& symbols, const TupletValue& value);
// Its events count in full again.
void DeleteIrregular(WindowTarn& window, Irregular* irregular);

// ---- Slurs

// From an event to a later one of the same voice of the same staff; the same slur again takes it away.
Status InsertSlur(WindowTarn& window, VoiceSymbol* first, VoiceSymbol* last,
                  SlurSide side = SlurSide::ByStems);
// One over the given events of each voice, from the first to the last.
Status InsertSlurs(WindowTarn& window, const std::vector<VoiceSymbol*>& symbols, SlurSide side);
// Slurs that begin or end at an event go with it.
void DeleteSlursAt(WindowTarn& window, const VoiceSymbol* symbol);

// ---- Lines at a staff

struct LineRange {
    MeasureStaff *first = nullptr, *last = nullptr;  // of one staff, the first not behind the last
    int32_t from = 0, to = 0;                        // per mille of their measures
    std::optional<int32_t> y;  // thousandths below the top line; else clear of all that is there
};
// A line of a kind; the name is that of the symbol for octave lines ("_8vaSu_" and its like).
Status InsertHairpin(WindowTarn& window, const LineRange& range, HairpinKind kind);
Status InsertOttava(WindowTarn& window, const LineRange& range, std::string_view symbol);
Status InsertTrillo(WindowTarn& window, const LineRange& range);
Status InsertPedale(WindowTarn& window, const LineRange& range);
// Under the events of each staff, from the first one's left edge to the last one's right edge.
std::vector<LineRange> RangesOf(const std::vector<VoiceSymbol*>& symbols);

// A spanner with all its marks, from any one of them.
void DeleteSpanner(WindowTarn& window, StaffMeasureSymbol* mark);

}  // namespace corvane
