#include "edit/SelectionKinds.h"

#include "edit/ToolState.h"
#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

bool IsOfVoiceAtHand(WindowTarn& window, const VoiceSymbol* symbol) {
    const Voice* voice = VoicePar(symbol);
    if (!voice || !MeasureStaffPar(voice)->_staff.Get()) return false;
    const int shown = window.Sheet().EditVoice();
    return (shown == 0 || shown == voice->_number) &&
           (Tools().AllVoices() || Tools().OneVoice() == voice->_number);
}

bool HasChordOfVoiceAtHand(WindowTarn& window, const ChordSymbol* column) {
    for (const Chords* chord : chordSymbolChords.Of(column))
        if (IsOfVoiceAtHand(window, chord)) return true;
    return false;
}

}  // namespace

SelectedKinds KindsSelected(WindowTarn& window) {
    const Selection& selection = window.TheSelection();
    if (selection.IsWholeScore()) return {true, true};
    SelectedKinds kinds;
    for (const Pick& pick : selection.ThePicks().List()) {
        if (const auto* note = pick.As<GenericNote>())
            kinds.notes = kinds.notes || IsOfVoiceAtHand(window, ChordPar(note));
        if (const auto* pause = pick.As<Pause>()) kinds.rests |= IsOfVoiceAtHand(window, pause);
    }
    for (const DrawPatch& patch : window.Sheet().PatchesIn(window.Port(), selection.GetSelectionRegion())) {
        if (const auto* pause = patch.Record<Pause>()) kinds.rests |= IsOfVoiceAtHand(window, pause);
        if (const auto* column = patch.Record<ChordSymbol>())
            kinds.notes = kinds.notes || HasChordOfVoiceAtHand(window, column);
        if (kinds.notes && kinds.rests) break;
    }
    return kinds;
}

}  // namespace corvane
