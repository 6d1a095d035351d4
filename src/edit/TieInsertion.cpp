// Ties between notes of the same height that follow each other.
#include <algorithm>
#include <utility>

#include "edit/Deletion.h"
#include "edit/Insertion.h"
#include "edit/MeasureRedraw.h"
#include "edit/Spanners.h"
#include "layout/NotePitches.h"
#include "model/Clefs.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/Ties.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

const VoiceSymbol* FirstEvent(const Voice* voice) {
    const VoiceSymbol* symbol = voiceSymbols.First(voice);
    while (symbol && IsGrace(symbol)) symbol = voiceSymbols.Next(symbol);
    return symbol;
}

// In the voice, over the barline too; grace chords do not count.
const VoiceSymbol* EventBefore(const VoiceSymbol* symbol) {
    const Voice* voice = VoicePar(symbol);
    const VoiceSymbol* before = voiceSymbols.Prev(symbol);
    while (before && IsGrace(before)) before = voiceSymbols.Prev(before);
    if (before) return before;
    const MeasureStaff* crossing = PrevOnStaff(MeasureStaffPar(voice));
    const Voice* same = crossing ? FindVoice(crossing, voice->_number) : nullptr;
    before = same ? voiceSymbols.Last(same) : nullptr;
    while (before && IsGrace(before)) before = voiceSymbols.Prev(before);
    return before;
}

GenericNote* NoteOfHeight(const VoiceSymbol* symbol, int height) {
    const auto* chord = As<Chords>(symbol);
    if (!chord) return nullptr;
    for (GenericNote* note : chordNotes.Of(chord))
        if (SoundingHeight(note) == height) return note;
    return nullptr;
}

// In the next measure: the same voice's first event comes first.
GenericNote* NoteOverBarline(const GenericNote* note, int height) {
    const MeasureStaff* crossing = NextOnStaff(MeasureStaffPar(note));
    if (!crossing) return nullptr;
    if (const Voice* same = FindVoice(crossing, VoicePar(note)->_number))
        if (GenericNote* found = NoteOfHeight(FirstEvent(same), height)) return found;
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        if (GenericNote* found = NoteOfHeight(FirstEvent(voice), height)) return found;
    return nullptr;
}

using Pair = std::pair<GenericNote*, GenericNote*>;

std::vector<Pair> PairsOf(const std::vector<GenericNote*>& notes, bool bothGiven) {
    std::vector<Pair> pairs;
    for (GenericNote* note : notes) {
        GenericNote* next = NoteToTie(note);
        if (next && (!bothGiven || std::find(notes.begin(), notes.end(), next) != notes.end()))
            pairs.emplace_back(note, next);
    }
    return pairs;
}

}  // namespace

GenericNote* NoteToTie(const GenericNote* note) {
    if (!As<Note>(note)) return nullptr;
    const int height = SoundingHeight(note);
    const VoiceSymbol* next = voiceSymbols.Next(ChordPar(note));
    while (next && IsGrace(next)) next = voiceSymbols.Next(next);
    return next ? NoteOfHeight(next, height) : NoteOverBarline(note, height);
}

void SetTie(WindowTarn& window, GenericNote* first, GenericNote* second) {
    const MeasureRedraw redrawFirst(window, MeasureStaffPar(first)),
        redrawSecond(window, MeasureStaffPar(second));
    auto* tie = Make<TieValue>();
    for (GenericNote* note : {first, second}) {
        auto* mark = Make<MarkValue>();
        noteAttributes.Add(note, mark);
        tieMarks.Add(tie, mark);
    }
    TieNotes(first, second);
    RedoAccidentals(MeasureStaffPar(second));
}

void DeleteTieBetween(WindowTarn& window, GenericNote* a, GenericNote* b) {
    for (NoteAttribute* attribute : noteAttributes.Of(a))
        if (const auto* mark = As<MarkValue>(attribute); mark && TiePartnerOf(mark) == b)
            return DeleteNoteAttribute(window, attribute);
}

void CutTiesOver(WindowTarn& window, const VoiceSymbol* symbol) {
    const VoiceSymbol* before = IsGrace(symbol) ? nullptr : EventBefore(symbol);
    if (!As<Chords>(before)) return;
    for (GenericNote* note : chordNotes.Of(As<Chords>(before)))
        for (bool found = true; found;) {
            found = false;
            for (NoteAttribute* attribute : noteAttributes.Of(note)) {
                const auto* mark = As<MarkValue>(attribute);
                const GenericNote* partner = mark ? TiePartnerOf(mark) : nullptr;
                if (!partner || ChordPar(partner) == symbol || !StandsBefore(note, partner)) continue;
                DeleteNoteAttribute(window, attribute);
                found = true;
                break;
            }
        }
}

void AlterTiedNotes(WindowTarn& window, GenericNote* note) {
    std::vector<GenericNote*> joined{note};
    for (size_t i = 0; i < joined.size(); ++i)
        for (const NoteAttribute* attribute : noteAttributes.Of(joined[i])) {
            const auto* mark = As<MarkValue>(attribute);
            GenericNote* partner = mark ? TiePartnerOf(mark) : nullptr;
            if (partner && std::find(joined.begin(), joined.end(), partner) == joined.end())
                joined.push_back(partner);
        }
    if (joined.size() == 1) return;
    for (GenericNote* each : joined) {
        if (each->_alteration != note->_alteration) each->_alteration = note->_alteration;
        UpdateNoteHeight(each);
    }
    // Which of them shows the accidental is told by all.
    for (const GenericNote* each : joined) {
        const MeasureRedraw redraw(window, MeasureStaffPar(each));
        RedoAccidentals(MeasureStaffPar(each));
    }
}

Status TieNotesOf(WindowTarn& window, const std::vector<GenericNote*>& notes) {
    std::vector<Pair> pairs = PairsOf(notes, true);
    if (pairs.empty()) pairs = PairsOf(notes, false);
    if (pairs.empty()) return {Fault::Refused, "Select notes that are followed by a note of the same pitch"};
    const bool allTied = std::all_of(pairs.begin(), pairs.end(),
                                     [](const Pair& pair) { return AreTied(pair.first, pair.second); });
    const EditStep step(window);
    for (const auto& [first, second] : pairs)
        if (allTied)
            DeleteTieBetween(window, first, second);
        else if (!AreTied(first, second))
            SetTie(window, first, second);
    return Status::Ok();
}

void TieInsertion(const InsertionPlace& place) {
    GenericNote* note = NoteFor(place);
    if (!note) return;
    GenericNote* next = NoteToTie(note);
    if (!next) return place.window.Shell().Tell("No note of the same pitch follows.");
    if (AreTied(note, next))
        DeleteTieBetween(place.window, note, next);
    else
        SetTie(place.window, note, next);
}

}  // namespace corvane
