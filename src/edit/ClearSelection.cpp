// Clear: what is selected is deleted, class by class. Each list is asked for anew, since what went before it
// may have taken some of it along.
#include <algorithm>
#include <unordered_set>

#include "edit/BeamChanges.h"
#include "edit/Clipboard.h"
#include "edit/ClipboardState.h"
#include "edit/Deletion.h"
#include "edit/HandleFamily.h"
#include "edit/Insertion.h"
#include "edit/Lyrics.h"
#include "edit/Signs.h"
#include "edit/Spanners.h"
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
    const std::vector<GenericNote*> heads = HeadsPickedAlone(clearing.choice.voice);
    const PageRedraw redraw(clearing.window);
    std::unordered_set<const Chords*> parted;
    for (GenericNote* head : heads) {
        Chords* chord = ChordPar(head);
        parted.insert(chord);
        clearing.crossings.insert(MeasureStaffPar(chord));
        DeleteNote(clearing.window, head, clearing.choice);
    }
    for (Chords* chord : chords) {
        if (parted.count(chord)) continue;
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
// What only a press selects; a rubber band around it is about the events under it.
template <class R>
constexpr auto kPicked = [](const MeasureStaff*) { return PickedOf<R>(); };
// Of what the picked signs of a class hang on, each once: where one goes others are made anew.
template <class Sign, const auto& relation>
constexpr auto kOwners = [](const MeasureStaff*) {
    std::vector<decltype(relation.ParentOf(static_cast<Sign*>(nullptr)))> owners;
    std::unordered_set<const void*> seen;
    for (Sign* sign : PickedOf<Sign>())
        if (auto* owner = relation.ParentOf(sign); seen.insert(owner).second) owners.push_back(owner);
    return owners;
};
constexpr auto kPageTexts = [](const MeasureStaff*) { return SelectedPageText(); };

bool HasEvents(int voice) { return !SelectedVoiceSymbols(voice).empty(); }
template <auto Selected>
bool Has(int) {
    return !Selected(nullptr).empty();
}

struct ClearRow {
    bool (*has)(int voice);  // something of it is selected
    void (*clear)(Clearing&);
};
template <auto Selected, auto Delete>
constexpr ClearRow kRow{Has<Selected>, ClearList<Selected, Delete>};

// What hangs on events before them: their places may be used anew.
constexpr ClearRow kLists[] = {
    kRow<kOwners<Accident, noteAttributes>, DropAccidental>,
    kRow<kOwners<Dot, voiceSymbolAttributes>, DropDots>,
    kRow<kPicked<SymbolAttribute>, DeleteNoteAttribute>,
    kRow<kPicked<Liriche>, EraseSyllable>,
    kRow<kPicked<Tremolo>, DeleteTremolo>,
    kRow<kPicked<TieValue>, DeleteTie>,
    kRow<kPicked<Irregular>, DeleteIrregular>,
    kRow<kPicked<Beam>, DeleteBeam>,
    {HasEvents, ClearEvents},
    kRow<SelectedMovingClaf, DeleteClaf>,
    kRow<SelectedDinamiche, DeleteSign>,
    kRow<SelectedMeasureStaffText, DeleteSign>,
    kRow<SelectedSimboliVari, DeleteSign>,
    kRow<SelectedArpeggi, DeleteSign>,
    kRow<SelectedHairpins, kDeleteSpanner<hairpinMarks>>,
    kRow<SelectedSlurs, kDeleteSpanner<slurMarks>>,
    kRow<SelectedOttave, kDeleteSpanner<ottavaMarks>>,
    kRow<SelectedTrilli, kDeleteSpanner<trilloMarks>>,
    kRow<SelectedPedali, kDeleteSpanner<pedaleMarks>>,
    kRow<kPageTexts, DeletePageText>,
    kRow<kPicked<Endings>, DeleteEndings>,
    kRow<kPicked<Coda>, DeleteCoda>,
    kRow<kPicked<Time>, DeleteTempo>,
};

// What the selected handles steer and can go by itself, each once.
std::vector<Handle> HandlesToClear(WindowTarn& window) {
    std::vector<Handle> handles = window.Handles().Selected();
    std::erase_if(handles, [](const Handle& each) { return !FamilyOf(each.kind).CanDelete(); });
    const auto sameTarget = [](const Handle& a, const Handle& b) { return a.target == b.target; };
    handles.erase(std::unique(handles.begin(), handles.end(), sameTarget), handles.end());
    return handles;
}

bool IsAnythingToClear(WindowTarn& window) {
    SetSelectionAnchors(window);
    const bool any = std::any_of(std::begin(kLists), std::end(kLists),
                                 [](const ClearRow& row) { return row.has(Tools().OneVoice()); });
    ClearSelectionAnchors();
    return any;
}

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
    const std::vector<Handle> handles = HandlesToClear(window);
    window.Handles().End();
    if (handles.empty() && !IsAnythingToClear(window))
        return window.Shell().Tell("Nothing that can be deleted is selected.");
    {
        const EditStep step(window);
        for (const Handle& handle : handles) FamilyOf(handle.kind).Delete(window, handle);
        Clearing clearing{
            window, {Tools().OneVoice(), Tools().AllVoices(), Switches().deleteNotesToRests, false}, {}};
        for (const ClearRow& row : kLists) {
            SetSelectionAnchors(window);
            row.clear(clearing);
        }
        ClearSelectionAnchors();
        if (Switches().autoSpace) Respace(clearing);
        window.TheSelection().Clear();
        window.RefilePage();
    }
    window.SelectionChanged();
}

}  // namespace corvane
