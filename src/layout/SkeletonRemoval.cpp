#include "layout/SkeletonRemoval.h"

#include <algorithm>
#include <vector>

#include "layout/PageLayout.h"
#include "model/Par.h"
#include "model/RecordRelease.h"

namespace corvane {
namespace {

void ReleaseConnection(System* system, Connection* connection) {
    Document* document = DocumentPar(system);
    while (ConnStaff* end = connectionStaffs.First(connection)) {
        connectionStaffs.Remove(connection, end);
        staffConnections.Remove(end);
        Release(end);
    }
    systemConnections.Remove(system, connection);
    DropRecord(document, connection);
}

void ReleaseAllStaff(AllStaff* allStaff) {
    while (MarkText* mark = allStaffTextMarks.First(allStaff)) {
        allStaffTextMarks.Remove(mark);
        textMarks.Remove(mark);
        Release(mark);
    }
    ReleaseText(allStaff->_name);
    Release(allStaff);
}

void Unlink(MultiStaff* multi) {
    AllStaff* allStaff = allStaffStaffs.ParentOf(multi);
    systemStaffs.Remove(multi);
    if (!allStaff) return;
    allStaffStaffs.Remove(multi);
    if (allStaffStaffs.IsEmpty(allStaff)) ReleaseAllStaff(allStaff);
}

// Puts one end of a connection to another staff.
void PutEnd(ConnStaff* end, Staff* staff) {
    if (staffConnections.ParentOf(end) == staff) return;
    staffConnections.Remove(end);
    staffConnections.Add(staff, end);
}

// A staff that is left of a pair is an ordinary one.
void LeavePair(Staff* staff) {
    if (staff->_kind == StaffKind::Pair) staff->_kind = StaffKind::Simple;
}

}  // namespace

void ReleaseSystem(System* system) {
    CORVANE_ASSERT_AS(system && systemMeasures.IsEmpty(system), "_sys");
    while (Connection* connection = systemConnections.First(system)) ReleaseConnection(system, connection);
    for (Staff* staff : StaffsFromTop(system)) ReleaseStaff(staff);
    PagePar(system)->_systemCount -= 1;
    pageSystems.Remove(system);
    Release(system);
}

void ReleasePage(Page* page) {
    CORVANE_ASSERT_AS(page && pageSystems.IsEmpty(page), "_p");
    Document* document = DocumentPar(page);
    while (PageText* text = pageTexts.First(page)) {
        pageTexts.Remove(text);
        DropRecord(document, text);
    }
    documentPages.Remove(page);
    document->_pageCount -= 1;
    Release(page);
}

void NarrowConnections(System* system, const std::function<bool(const Staff*)>& goes) {
    const std::vector<Staff*> staffs = StaffsFromTop(system);
    const auto placeOf = [&](const ConnStaff* end) {
        return std::find(staffs.begin(), staffs.end(), staffConnections.ParentOf(end));
    };
    std::vector<Connection*> gone;
    for (Connection* connection : systemConnections.Of(system)) {
        ConnStaff *top = connectionStaffs.First(connection), *bottom = connectionStaffs.Last(connection);
        auto first = placeOf(top), last = placeOf(bottom);
        const bool joinedSeveral = first < last;
        while (first < last && goes(*first)) ++first;
        while (last > first && goes(*last)) --last;
        if (goes(*first) || (joinedSeveral && first == last)) {
            LeavePair(*first);
            gone.push_back(connection);
            continue;
        }
        PutEnd(top, *first);
        PutEnd(bottom, *last);
    }
    for (Connection* connection : gone) ReleaseConnection(system, connection);
}

void ReleaseStaff(Staff* staff) {
    docStaffStaffs.Remove(staff);
    if (auto* simple = As<SimpleStaff>(staff)) {
        Unlink(simple);
        return Release(simple);
    }
    auto* bot = As<StaffBot>(staff);
    StaffCustom* custom = customStaffs.ParentOf(bot);
    customStaffs.Remove(bot);
    Release(bot);
    if (!customStaffs.IsEmpty(custom)) return;
    Unlink(custom);
    Release(custom);
}

}  // namespace corvane
