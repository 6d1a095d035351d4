#include "edit/MeasureRedraw.h"

#include <algorithm>

#include "layout/PageFiling.h"
#include "layout/Spacing.h"
#include "layout/SpacingHeader.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// Crossings of those that live. An inner one leaves them to the outer one: what it would file may be released
// before the outer one ends.
std::vector<const MeasureStaff*> taken;

bool ReachesOverStaves(const MeasureSymbol* symbol) {
    if (As<CrossBeam>(symbol)) return true;
    const auto* column = As<ChordSymbol>(symbol);
    const Chords* first = column ? chordSymbolChords.First(column) : nullptr;
    return first && first != chordSymbolChords.Last(column) &&
           MeasureStaffPar(first) != MeasureStaffPar(chordSymbolChords.Last(column));
}

std::vector<const MeasureStaff*> CrossingsWith(const MeasureStaff* crossing) {
    const Measure* measure = MeasurePar(crossing);
    bool all = false;
    for (const MeasureSymbol* symbol : measureSymbols.Of(measure)) all = all || ReachesOverStaves(symbol);
    if (!all) return {crossing};
    std::vector<const MeasureStaff*> crossings;
    for (const MeasureStaff* each : measureStaffs.Of(measure))
        if (each->_staff) crossings.push_back(each);
    return crossings;
}

// A sign on a note that an outer one will file.
bool IsTaken(const DrawPatch& patch) {
    const auto* fermata = patch.Record<Corona>();
    const MeasureStaff* crossing = fermata ? MeasureStaffPar(noteAttributes.ParentOf(fermata)) : nullptr;
    return crossing && std::find(taken.begin(), taken.end(), crossing) != taken.end();
}

}  // namespace

MeasureRedraw::MeasureRedraw(WindowTarn& window, const MeasureStaff* measureStaff)
    : _window(window),
      _measure(MeasurePar(measureStaff)),
      _header(NoteAreaLeft(_measure)),
      _crossings(CrossingsWith(measureStaff)) {
    std::erase_if(_crossings, [](const MeasureStaff* crossing) {
        return std::find(taken.begin(), taken.end(), crossing) != taken.end();
    });
    taken.insert(taken.end(), _crossings.begin(), _crossings.end());
    const auto remove = [&](const DrawPatch& patch, int) { _window.Sheet().RemoveObject(patch); };
    for (const MeasureStaff* crossing : _crossings) {
        ForEachPatch(crossing, remove);
        ForEachSpannerOver(crossing, remove);
    }
}

MeasureRedraw::~MeasureRedraw() {
    taken.resize(taken.size() - _crossings.size());
    const auto add = [&](const DrawPatch& patch, int voice) { _window.Sheet().AddObject(patch, voice); };
    for (const MeasureStaff* crossing : _crossings) RenewHeightsByClefs(crossing);
    const HeadersAtRest headers;
    for (const MeasureStaff* crossing : _crossings) {
        if (PagePar(MeasurePar(crossing)) != _window.Sheet().CurrentPage()) continue;
        ForEachPatch(crossing, add);
        ForEachSpannerOver(crossing, [&](const DrawPatch& patch, int voice) {
            if (!IsTaken(patch)) add(patch, voice);
        });
    }
    if (!_crossings.empty() && NoteAreaLeft(_measure) != _header) RedrawMoved();
}

// What else stands in the measure, and spanners that end there. What an outer one has taken is not filed.
void MeasureRedraw::RedrawMoved() const {
    if (PagePar(_measure) != _window.Sheet().CurrentPage()) return;
    ForEachPatch(SystemPar(_measure), [&](const DrawPatch& patch, int voice) {
        if (_window.Sheet().IsFiled(patch)) _window.Sheet().RedrawObject(patch, voice);
    });
}

}  // namespace corvane
