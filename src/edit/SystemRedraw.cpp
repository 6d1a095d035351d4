#include "edit/SystemRedraw.h"

#include <optional>

#include "layout/PageFiling.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

System* NextSystem(const System* system) {
    Measure* last = systemMeasures.Last(system);
    Measure* next = last ? NextMeasure(last) : nullptr;
    return next ? SystemPar(next) : nullptr;
}

}  // namespace

SystemRedraw::SystemRedraw(WindowTarn& window, const Measure* first, const Measure* last) : _window(window) {
    const System* end = SystemPar(last);
    const Measure* before = systemMeasures.Prev(first) ? nullptr : PrevMeasure(first);
    for (System* system = SystemPar(before ? before : first); system; system = NextSystem(system)) {
        _systems.push_back(system);
        _areas.emplace_back(system);
        if (IsShown(system))
            ForEachPatch(system, [&](const DrawPatch& patch, int) { _window.Sheet().RemoveObject(patch); });
        if (system == end) break;
    }
}

SystemRedraw::~SystemRedraw() {
    for (const NoteAreas& areas : _areas) areas.Apply();
    for (const System* system : _systems)
        for (const Measure* measure : systemMeasures.Of(system)) RenewHeightsByClefs(measure);
    for (const System* system : _systems)
        if (IsShown(system))
            ForEachPatch(system,
                         [&](const DrawPatch& patch, int voice) { _window.Sheet().AddObject(patch, voice); });
}

void ChangeScore(WindowTarn& window, const std::function<void()>& change) {
    Measure *first = FirstMeasure(window.GetDocument()), *last = LastMeasure(window.GetDocument());
    const EditStep step(window);
    std::optional<SystemRedraw> redraw;
    if (first) redraw.emplace(window, first, last);
    change();
}

bool SystemRedraw::IsShown(const System* system) const { return PagePar(system) == _window.CurrentPage(); }

}  // namespace corvane
