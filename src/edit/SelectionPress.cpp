#include "edit/SelectionPress.h"

#include "edit/ControlPoints.h"
#include "edit/Drags.h"
#include "edit/Lasso.h"
#include "edit/PickPlaces.h"
#include "edit/TarnClick.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"
#include "model/Par.h"

namespace corvane {
namespace {

// What a press picks and drags, a row a class in the order in which they are asked for. A press on what
// `stays` changes nothing.
enum class Press { Picks, Stays };
constexpr struct {
    bool (*is)(int16_t number);
    DragMaker drag;  // null for none
    Press press = Press::Picks;
} kRows[] = {
    {IsClass<NoteAttribute>, DragSign},
    {IsClass<Pause>, DragSign},
    {IsClass<VoiceSymbolAttribute>, nullptr},
    {IsClass<Dinamiche>, DragSign},
    {IsClass<SimboliVari>, DragSign},
    {IsClass<Arpeggio>, DragArpeggio},
    {IsClass<Coda>, DragSign},
    {IsClass<MarkEndings>, DragSign},
    {IsClass<MarkHairpin>, DragLine},
    {IsClass<MarkOttava>, DragLine},
    {IsClass<MarkPedale>, DragLine},
    {IsClass<MarkTrillo>, DragLine},
    {IsClass<MeasureStaffText>, DragSign},
    {IsClass<PageText>, DragSign},
    {IsClass<ChordSymbol>, DragHead},
    {IsClass<MovingClaf>, DragSign},
    {IsClass<StaticClaf>, nullptr, Press::Stays},
    {IsClass<BeamMarker>, DragBeam},
    {IsClass<MarkSlur>, nullptr},
    {IsClass<Time>, DragSign},
};

// A beam that runs over the column of one of its notes, or a tremolo on its stem, is pressed all the same.
DrawPatch HitAt(const WindowTarn& window, Point p) {
    const DrawPatch patch = window.Sheet().HitSymbol(p);
    if (!patch.Record<ChordSymbol>() || RecordAt(patch, p)) return patch;
    const DrawPatch behind = window.Sheet().HitSymbol(p, patch);
    return behind.Record<BeamMarker>() || behind.Record<Tremolo>() ? behind : patch;
}

// True if it is selected now: with Shift a second press takes it out again.
bool PickOrUnpick(WindowTarn& window, void* record, bool adding) {
    Selection& selection = window.TheSelection();
    if (!adding) selection.Clear();
    const bool picks = !selection.ThePicks().Has(record);
    picks ? selection.Pick(record) : selection.Unpick(record);
    window.SelectionChanged();
    return picks;
}

}  // namespace

void PressWithArrow(WindowTarn& window, Point p, uint32_t modifiers) {
    if (PressHandle(window, p, modifiers)) return;
    const bool adding = modifiers & kShift;
    if (const DrawPatch patch = HitAt(window, p))
        for (const auto& row : kRows)
            if (row.is(patch.ClassNumber())) {
                if (row.press == Press::Stays) return;
                if (PickOrUnpick(window, RecordAt(patch, p), adding) && row.drag)
                    window.interaction = row.drag(window, patch, p);
                return;
            }
    window.interaction = std::make_unique<Lasso>(window, p, adding);
}

SelectionFollower::SelectionFollower(WindowTarn& window) : _window(window) {
    if (window.TheSelection().IsWholeScore()) return;
    SetSelectionAnchors(window);
    _notes = SelectedNotes(Tools().OneVoice());
    _rests = SelectedPauses(nullptr, Tools().OneVoice());
    ClearSelectionAnchors();
}

SelectionFollower::~SelectionFollower() {
    if (_notes.empty() && _rests.empty()) return;
    _window.TheSelection().Clear();
    for (Pause* rest : _rests) _window.TheSelection().Pick(rest);
    SelectHeads(_window, _notes);
}

void SelectHeads(WindowTarn& window, const std::vector<GenericNote*>& notes) {
    if (window.TheSelection().IsWholeScore()) return;
    for (GenericNote* note : notes)
        if (PagePar(MeasurePar(note)) == window.CurrentPage()) window.TheSelection().Pick(note);
    window.SelectionChanged();
}

}  // namespace corvane
