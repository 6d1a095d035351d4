// Clear: what is selected is deleted, class by class. Each list is asked for anew, since what went before it
// may have taken some of it along.
#include <unordered_set>

#include "edit/Clipboard.h"
#include "edit/ClipboardState.h"
#include "edit/Deletion.h"
#include "edit/Signs.h"
#include "edit/TarnDestroy.h"
#include "edit/TarnSelect.h"
#include "edit/Texts.h"
#include "edit/ToolState.h"
#include "layout/Spacing.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

struct Clearing {
    WindowTarn& window;
    DeletionChoice choice;
    std::unordered_set<MeasureStaff*> crossings;  // to be respaced once at the end
};

// The rests that notes leave behind are not the selection's.
void ClearEvents(Clearing& clearing) {
    const std::vector<Pause*> pauses = SelectedPauses(nullptr, clearing.choice.voice);
    const std::vector<Chords*> chords = SelectedChords(clearing.choice.voice);
    const PageRedraw redraw(clearing.window);
    for (Chords* chord : chords) {
        clearing.crossings.insert(MeasureStaffPar(chord));
        while (!DeleteNote(clearing.window, chordNotes.First(chord), clearing.choice)) {
        }
    }
    for (Pause* pause : pauses) {
        clearing.crossings.insert(MeasureStaffPar(pause));
        DeletePause(clearing.window, pause, clearing.choice);
    }
}

template <auto Selected, auto Delete>
void ClearList(Clearing& clearing) {
    const auto list = Selected(nullptr);
    if (list.empty()) return;
    const PageRedraw redraw(clearing.window);
    for (auto* record : list) Delete(clearing.window, record);
}
void DeleteSign(WindowTarn&, StaffMeasureSymbol* sign) { DestroyStaffMeasureSymbol(sign); }
template <const auto& marks>
constexpr auto kDeleteSpanner =
    [](WindowTarn&, auto* spanner) { DestroyStaffMeasureSymbol(marks.First(spanner)); };
constexpr auto kPageTexts = [](const MeasureStaff*) { return SelectedPageText(); };

constexpr void (*kLists[])(Clearing&) = {
    ClearEvents,
    ClearList<SelectedMovingClaf, DeleteClaf>,
    ClearList<SelectedDinamiche, DeleteSign>,
    ClearList<SelectedMeasureStaffText, DeleteSign>,
    ClearList<SelectedSimboliVari, DeleteSign>,
    ClearList<SelectedHairpins, kDeleteSpanner<hairpinMarks>>,
    ClearList<SelectedSlurs, kDeleteSpanner<slurMarks>>,
    ClearList<SelectedOttave, kDeleteSpanner<ottavaMarks>>,
    ClearList<SelectedTrilli, kDeleteSpanner<trilloMarks>>,
    ClearList<SelectedPedali, kDeleteSpanner<pedaleMarks>>,
    ClearList<kPageTexts, DeletePageText>,
};

void Respace(const Clearing& clearing) {
    for (MeasureStaff* crossing : clearing.crossings) {
        for (Voice* voice : measureStaffVoices.Of(crossing))
            if (!voiceSymbols.IsEmpty(voice)) SpaceVoice(voice);
        RenewHeightsByClefs(crossing);
    }
}

}  // namespace

void ClearSelection(WindowTarn& window) {
    window.Activate();
    window.caret.visible = false;
    {
        const EditStep step(window);
        Clearing clearing{
            window, {Tools().OneVoice(), Tools().AllVoices(), Switches().deleteNotesToRests, false}, {}};
        for (const auto clear : kLists) {
            SetSelectionAnchors(window);
            clear(clearing);
        }
        ClearSelectionAnchors();
        if (Switches().autoSpace) Respace(clearing);
        window.TheSelection().Clear();
        window.RefilePage();
    }
    window.SelectionChanged();
}

}  // namespace corvane
