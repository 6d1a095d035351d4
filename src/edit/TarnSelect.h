// What of a score is selected, asked for by class at the moment a command runs. The anchors are process-wide
// and hold for one command: SetSelectionAnchors first, then collectors, in any number. The patches that lie
// in the selection are found once for them, on first need, at the cost of what is selected. Collectors give
// copies, so that what they name may be deleted while the list is walked.
#pragma once

#include <functional>
#include <vector>

#include "edit/WindowTarn.h"

namespace corvane {

struct SelectionAnchors {
    System *SelFirstSystem = nullptr, *SelLastSystem = nullptr;
    WindowTarn* SelWindow = nullptr;
    const GraphicPort* SelPort = nullptr;
    WRegion SelRegion{100};
    Picks SelPicks;
    bool SelWholeScore = false;
    bool SelAllVoices = false;
    bool SelFlag = false;
    bool SelPatchesReady = false;
    std::vector<DrawPatch> SelPatches;
};
const SelectionAnchors& TheSelectionAnchors();

// For the systems from first to last, both included, that are on the window's current page, or anywhere where
// the whole score is selected.
void SetSelectionAnchors(System* first, System* last, WindowTarn& window, bool flag = false);
// For the window's current page, or its whole score.
void SetSelectionAnchors(WindowTarn& window);
void ClearSelectionAnchors();

// Selected patches in no order but for the whole score, each once; not the columns of picked heads, which may
// hold other chords.
const std::vector<DrawPatch>& SelectedPatches();
// Its staff is shown, and its voice is not filtered out in the window.
bool VoiceVisibleForSelection(const VoiceSymbol* symbol);

// What presses have picked by itself, of one class; nothing of the region.
template <class R>
std::vector<R*> PickedOf() {
    std::vector<R*> picked;
    for (const Pick& pick : TheSelectionAnchors().SelPicks.List())
        if (R* record = pick.As<R>()) picked.push_back(record);
    return picked;
}

// ---- Events in score order: by measures, staves, voices, time.

// Where anything of any voice is selected.
std::vector<MeasureStaff*> SelectedMeasureStaffs();
// Those of `voice`, or of all voices where all are edited.
std::vector<VoiceSymbol*> SelectedVoiceSymbols(int voice);
std::vector<VoiceSymbol*> SelectedVoiceSymbols(const MeasureStaff* msc, int voice);
std::vector<Chords*> SelectedChords(int voice);
std::vector<Chords*> SelectedChords(const MeasureStaff* msc, int voice);
std::vector<Pause*> SelectedPauses(const MeasureStaff* msc, int voice);
// Heads of the selected chords that are selected themselves; all heads of a chord of which none is.
std::vector<GenericNote*> SelectedNotes(int voice);
// Picked heads of chords that have others, where nothing else selects the chord: they stand for themselves.
std::vector<GenericNote*> HeadsPickedAlone(int voice);
void ForEachSelectedChord(int voice, const std::function<void(Chords*)>& action);
std::vector<Irregular*> SelectedIrregulars(int voice);
// Beams of which each symbol is selected, or that are picked; the others go to `partial`.
std::vector<Beam*> SelectedBeams(int voice, std::vector<Beam*>* partial = nullptr);

// ---- Other objects, of one crossing or, for null, of all.
std::vector<Dinamiche*> SelectedDinamiche(const MeasureStaff* msc = nullptr);
std::vector<MeasureStaffText*> SelectedMeasureStaffText(const MeasureStaff* msc = nullptr);
std::vector<MovingClaf*> SelectedMovingClaf(const MeasureStaff* msc = nullptr);
// A spanner is selected by any of its marks.
std::vector<Hairpin*> SelectedHairpins(const MeasureStaff* msc = nullptr);
std::vector<Slur*> SelectedSlurs(const MeasureStaff* msc = nullptr);
std::vector<Ottava*> SelectedOttave(const MeasureStaff* msc = nullptr);
std::vector<Trillo*> SelectedTrilli(const MeasureStaff* msc = nullptr);
std::vector<Pedale*> SelectedPedali(const MeasureStaff* msc = nullptr);
std::vector<SimboliVari*> SelectedSimboliVari(const MeasureStaff* msc = nullptr);
std::vector<Arpeggio*> SelectedArpeggi(const MeasureStaff* msc = nullptr);
// Of no staff.
std::vector<PageText*> SelectedPageText();
std::vector<GraphicObj*> SelectedGraphicObjs();

}  // namespace corvane
