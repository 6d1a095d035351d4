#include <algorithm>
#include <vector>

#include "edit/StaffLayouts.h"
#include "edit/Structure.h"
#include "edit/StructureStep.h"
#include "edit/TarnDestroy.h"
#include "layout/SkeletonRemoval.h"
#include "model/Par.h"

namespace corvane {
namespace {

std::vector<DocStaff*> StaffsBetween(DocStaff* first, const DocStaff* last) {
    std::vector<DocStaff*> staffs;
    for (DocStaff* staff = first; staff; staff = documentDocStaffs.Next(staff)) {
        staffs.push_back(staff);
        if (staff == last) break;
    }
    return staffs;
}

void RecountSolo(Document* document) {
    bool soloed = false;
    for (const DocStaff* staff : documentDocStaffs.Of(document)) soloed = soloed || staff->_solo;
    if (document->_hasSolo != soloed) document->_hasSolo = soloed;
}

}  // namespace

Status RemoveStaffs(WindowTarn& window, DocStaff* first, DocStaff* last) {
    Document* document = window.GetDocument();
    if (first == documentDocStaffs.First(document) && last == documentDocStaffs.Last(document))
        return {Fault::Refused, "Can't remove all staves!"};
    const std::vector<DocStaff*> going = StaffsBetween(first, last);
    const auto goes = [&](const Staff* staff) {
        return std::find(going.begin(), going.end(), docStaffStaffs.ParentOf(staff)) != going.end();
    };
    const StructureStep step(window);
    const StaffLayouts layouts(document);
    for (const Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page)) NarrowConnections(system, goes);
    for (DocStaff* staff : going) DestroyDocStaff(window, staff);
    RecountSolo(document);
    layouts.Apply();
    return Status::Ok();
}

}  // namespace corvane
