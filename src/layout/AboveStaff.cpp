#include "layout/AboveStaff.h"

#include <algorithm>

#include "layout/Frames.h"
#include "layout/PageFiling.h"
#include "layout/PageLayout.h"
#include "model/Par.h"

namespace corvane {

Staff* TopStaffOf(const Measure* measure) {
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        if (Staff* staff = crossing->_staff) return staff;
    return nullptr;
}

int32_t LiftOver(const Measure* measure, const Rect& ink, const void* own) {
    const Staff* staff = TopStaffOf(measure);
    if (!staff || staff->_lineDistance <= 0) return 0;
    const int32_t half = staff->_lineDistance / 2;
    int32_t top = ink.bottom + half;
    const auto look = [&](const DrawPatch& patch) {
        if (!patch || patch.Object() == own) return;
        const Rect other = patch.Bounds();
        if (other.left < ink.right && ink.left < other.right && other.top < ink.bottom + half)
            top = std::min(top, other.top);
    };
    for (const MeasureStaff* crossing : measureStaffs.Of(measure))
        if (crossing->_staff == staff)
            ForEachPatch(crossing, [&](const DrawPatch& patch, int) { look(patch); });
    for (MeasureSymbol* symbol : measureSymbols.Of(measure))
        if (!As<ChordSymbol>(symbol) && !As<CrossBeam>(symbol)) look(PatchOf(symbol));
    const int32_t lift = ink.bottom + half - top;
    return (lift * 100 + staff->_lineDistance - 1) / staff->_lineDistance;
}

int32_t BeatX(const Measure* measure, int beat) {
    const int num = std::max<int>(1, measure->_num);
    return OriginOf(SystemPar(measure)).x + measure->_left + (beat - 1) * (measure->Width() / num);
}

}  // namespace corvane
