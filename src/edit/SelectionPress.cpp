#include "edit/SelectionPress.h"

#include "edit/ControlPoints.h"
#include "edit/Lasso.h"
#include "edit/ObjectDrag.h"
#include "edit/TarnClick.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"
#include "layout/NoteGeometry.h"
#include "model/Par.h"

namespace corvane {
namespace {

// What a press on a hit object selects, a row a class; null for one with which it does nothing.
Rect RectOfHead(const DrawPatch& patch, Point p) {
    const GenericNote* note = HeadAt(patch.Record<ChordSymbol>(), p);
    return note ? RectOf(note) : Rect{};
}
Rect RectOfPatch(const DrawPatch& patch, Point) { return patch.Bounds(); }

constexpr struct {
    bool (*is)(int16_t number);
    Rect (*rect)(const DrawPatch& patch, Point p);
} kRows[] = {
    {IsClass<Pause>, RectOfPatch},       {IsClass<Dinamiche>, RectOfPatch},
    {IsClass<SimboliVari>, RectOfPatch}, {IsClass<MeasureStaffText>, RectOfPatch},
    {IsClass<PageText>, RectOfPatch},    {IsClass<MovingClaf>, RectOfPatch},
    {IsClass<ChordSymbol>, RectOfHead},  {IsClass<StaticClaf>, nullptr},
    {IsClass<Accident>, RectOfPatch},    {IsClass<SymbolAttribute>, RectOfPatch},
    {IsClass<Time>, RectOfPatch},        {IsClass<Coda>, RectOfPatch},
};

void SelectOnly(WindowTarn& window, const Rect& rect, bool adding) {
    if (!adding) window.TheSelection().Clear();
    window.TheSelection().Add(rect);
    window.SelectionChanged();
}

}  // namespace

void PressWithArrow(WindowTarn& window, Point p, uint32_t modifiers) {
    if (PressHandle(window, p, modifiers)) return;
    const bool adding = modifiers & kShift;
    if (const DrawPatch patch = window.Sheet().HitSymbol(p))
        for (const auto& row : kRows)
            if (row.is(patch.ClassNumber())) {
                if (!row.rect) return;
                SelectOnly(window, row.rect(patch, p), adding);
                window.interaction = MakeDrag(window, patch, p);
                return;
            }
    window.interaction = std::make_unique<Lasso>(window, p, adding);
}

SelectionFollower::SelectionFollower(WindowTarn& window)
    : _window(window), _follows(!window.TheSelection().IsEmpty() && !window.TheSelection().IsWholeScore()) {
    if (!_follows) return;
    SetSelectionAnchors(window);
    _notes = SelectedNotes(Tools().OneVoice());
    for (Pause* pause : SelectedPauses(nullptr, Tools().OneVoice())) _rests.push_back(pause);
    ClearSelectionAnchors();
}

SelectionFollower::~SelectionFollower() {
    if (!_follows) return;
    _window.TheSelection().Clear();
    for (const VoiceSymbol* rest : _rests) _window.TheSelection().Add(RectOf(As<Pause>(rest)));
    SelectHeads(_window, _notes);
}

void SelectHeads(WindowTarn& window, const std::vector<GenericNote*>& notes) {
    if (window.TheSelection().IsWholeScore()) return;
    for (const GenericNote* note : notes)
        if (PagePar(MeasurePar(note)) == window.CurrentPage()) window.TheSelection().Add(RectOf(note));
    window.SelectionChanged();
}

}  // namespace corvane
