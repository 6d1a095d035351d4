#include <vector>

#include "edit/StaffLayouts.h"
#include "edit/Structure.h"
#include "edit/StructureStep.h"
#include "layout/ScoreBuilder.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr struct {
    char letter;
    StaffKind kind;
    int staves;
} kTypes[] = {
    {'S', StaffKind::Simple, 1},
    {'D', StaffKind::Pair, 2},
    {'B', StaffKind::Bass, 1},
    {'E', StaffKind::Percussion, 1},
};

}  // namespace

Status AddStaffs(WindowTarn& window, char type, int count, DocStaff* behind) {
    Document* document = window.GetDocument();
    for (const auto& [letter, kind, staves] : kTypes) {
        if (letter != type) continue;
        if (count < 1) return {Fault::Refused, "Insert at least one staff before clicking OK"};
        if (count > kMostNewStaves / staves)
            return {Fault::Refused, "It is impossible to insert more than 16 staves!"};
        const StructureStep step(window);
        const StaffLayouts layouts(document);
        const StaffRequest request{kind, 5, static_cast<int16_t>(staves), 1};
        for (int i = 0; i < count; ++i) behind = AddStaffs(document, request, behind);
        layouts.Apply();
        return Status::Ok();
    }
    return {Fault::Refused, "A staff is of type S, D, B or E"};
}

}  // namespace corvane
