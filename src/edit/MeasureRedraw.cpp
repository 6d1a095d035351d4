#include "edit/MeasureRedraw.h"

#include "layout/PageFiling.h"
#include "model/Par.h"

namespace corvane {

MeasureRedraw::MeasureRedraw(WindowTarn& window, const MeasureStaff* measureStaff)
    : _window(window), _measureStaff(measureStaff) {
    ForEachPatch(measureStaff, [&](const DrawPatch& patch, int) { _window.Sheet().RemoveObject(patch); });
}

MeasureRedraw::~MeasureRedraw() {
    if (PagePar(MeasurePar(_measureStaff)) != _window.CurrentPage()) return;
    ForEachPatch(_measureStaff, [&](const DrawPatch& patch, int voice) { _window.Sheet().AddObject(patch, voice); });
}

}  // namespace corvane
