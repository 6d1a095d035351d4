#include "layout/GeometryDump.h"

#include <unordered_set>

#include "layout/PageFiling.h"
#include "layout/PageLayout.h"
#include "layout/SpacingHeader.h"
#include "model/Par.h"

namespace corvane {
namespace {

using Seen = std::unordered_set<const void*>;

void AddLine(std::string& text, const DrawPatch& patch, int staff, int voice) {
    const Rect r = patch.Bounds();
    if (r.IsEmpty()) return;
    text += InfoOf(patch.ClassNumber())->name;
    for (const int32_t number : {staff, voice, r.left, r.top, r.right, r.bottom})
        text += ' ' + std::to_string(number);
    text += '\n';
}

void AddNew(std::string& text, Seen& seen, const DrawPatch& patch, int staff, int voice) {
    if (seen.insert(patch.Object()).second) AddLine(text, patch, staff, voice);
}

// Staff by staff what stands in a measure, so that each object is found with its staff.
void AddMeasure(std::string& text, Seen& seen, const Measure* measure) {
    int staff = 0;
    for (const MeasureStaff* crossing : measureStaffs.Of(measure)) {
        ++staff;
        if (!crossing->_staff) continue;
        ForEachPatch(crossing,
                     [&](const DrawPatch& patch, int voice) { AddNew(text, seen, patch, staff, voice); });
    }
}

}  // namespace

std::string GeometryDump(const Page* page) {
    const HeadersAtRest headers;
    std::string text;
    Seen seen;
    for (const System* system : pageSystems.Of(page)) {
        int staff = 0;
        for (Staff* each : StaffsFromTop(system)) {
            ++staff;
            void* record =
                As<SimpleStaff>(each) ? static_cast<void*>(As<SimpleStaff>(each)) : As<StaffBot>(each);
            AddNew(text, seen, PatchOf(record), staff, 0);
        }
        for (const Measure* measure : systemMeasures.Of(system)) AddMeasure(text, seen, measure);
        ForEachPatch(system, [&](const DrawPatch& patch, int voice) { AddNew(text, seen, patch, 0, voice); });
    }
    ForEachPatch(page, [&](const DrawPatch& patch, int voice) { AddNew(text, seen, patch, 0, voice); });
    return text;
}

}  // namespace corvane
