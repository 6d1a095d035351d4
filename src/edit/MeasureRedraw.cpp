#include "edit/MeasureRedraw.h"

#include "layout/PageFiling.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {

MeasureRedraw::MeasureRedraw(WindowTarn& window, const MeasureStaff* measureStaff)
    : _window(window), _measureStaff(measureStaff) {
    const auto remove = [&](const DrawPatch& patch, int) { _window.Sheet().RemoveObject(patch); };
    ForEachPatch(measureStaff, remove);
    ForEachSpannerOver(measureStaff, remove);
}

MeasureRedraw::~MeasureRedraw() {
    RenewHeightsByClefs(_measureStaff);
    if (PagePar(MeasurePar(_measureStaff)) != _window.Sheet().CurrentPage()) return;
    const auto add = [&](const DrawPatch& patch, int voice) { _window.Sheet().AddObject(patch, voice); };
    ForEachPatch(_measureStaff, add);
    ForEachSpannerOver(_measureStaff, add);
}

}  // namespace corvane
