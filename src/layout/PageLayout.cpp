#include "layout/PageLayout.h"

#include <algorithm>

#include "base/Rounding.h"
#include "layout/CourtesySigns.h"
#include "layout/CrossBeams.h"
#include "layout/ScoreBuilder.h"
#include "layout/Spacing.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

int32_t HeightOf(const Staff* staff) { return std::max(staff->LinesHeight(), 0); }

void PutStaff(Staff* staff, int32_t top) {
    staff->_top = top;
    staff->_bottom = top + HeightOf(staff);
}

int32_t FreeHeight(const Page* page) { return Document::pageHeight - page->_topMargin - page->_bottomMargin; }

void MoveSystem(System* system, int32_t top, int32_t height) {
    system->_top = top;
    system->_bottom = top + height;
}

}  // namespace

std::vector<Staff*> StaffsFromTop(const System* system) {
    std::vector<Staff*> staffs;
    for (MultiStaff* multi : systemStaffs.Of(system)) {
        if (auto* simple = As<SimpleStaff>(multi)) staffs.push_back(simple);
        if (auto* custom = As<StaffCustom>(multi))
            for (StaffBot* bot : customStaffs.Of(custom)) staffs.push_back(bot);
    }
    return staffs;
}

BracedPair PairOf(const System* system, const Connection* connection) {
    if (!NameHolds(connection->_symbol, "Brace")) return {};
    const ConnStaff *top = connectionStaffs.First(connection), *bottom = connectionStaffs.Last(connection);
    CORVANE_ASSERT_AS(top && bottom, "first && second");
    const BracedPair pair{staffConnections.ParentOf(top), staffConnections.ParentOf(bottom)};
    const std::vector<Staff*> staffs = StaffsFromTop(system);
    const auto first = std::find(staffs.begin(), staffs.end(), pair.first);
    const bool neighbours = first != staffs.end() && first + 1 != staffs.end() && first[1] == pair.second;
    return neighbours ? pair : BracedPair{};
}

void CenterSystems(Document* document, Page* page) {
    CORVANE_ASSERT_AS(document && page, "d && p");
    const double free = FreeHeight(page);
    const int n = pageSystems.Count(page);
    int32_t y = page->_topMargin;
    for (System* system : pageSystems.Of(page)) {
        MoveSystem(system, y, Round(free / n - static_cast<double>(kSystemReserve) / n));
        CenterStaves(system);
        y += Round(free / n);
    }
}

void DistributeSystems(Document* document, Page* page) {
    CORVANE_ASSERT_AS(document && page, "d && p");
    const int n = pageSystems.Count(page);
    int32_t y = page->_topMargin;
    for (System* system : pageSystems.Of(page)) {
        MoveSystem(system, y, system->_bottom - system->_top);
        y += Round(static_cast<double>(FreeHeight(page)) / n);
    }
}

void CenterStaves(System* system) {
    const std::vector<Staff*> staffs = StaffsFromTop(system);
    const int32_t total = kStaffSlot * static_cast<int32_t>(staffs.size());
    const int32_t height = system->_bottom - system->_top;
    int32_t pos = 0, last = height;
    for (Staff* staff : staffs) {
        const bool isShort = staff->_lineCount < 5;
        PutStaff(staff, isShort ? (kStaffSlot - HeightOf(staff)) / 2 + pos : pos);
        last = staff->_bottom;
        pos = std::max(pos + static_cast<int32_t>(int64_t{height} * kStaffSlot / total), last);
    }
    system->_bottom = system->_top + last;
    AdjustPianoStaves(system);
    RefitCrossBeams(system);
}

void AdjustPianoStaves(System* system) {
    for (Connection* connection : systemConnections.Of(system)) {
        const auto [first, second] = PairOf(system, connection);
        if (!first) continue;
        const int32_t shift = preferredPairDistance - (second->_top - first->_bottom);
        if (shift == 0) continue;
        bool below = false;
        for (Staff* staff : StaffsFromTop(system)) {
            below = below || staff == second;
            if (below) PutStaff(staff, staff->_top + shift);
        }
        system->_bottom += shift;
    }
}

void FitMeasures(System* system) {
    std::vector<int32_t> headers;
    int32_t allHeaders = 0;
    for (Measure* measure : systemMeasures.Of(system)) {
        headers.push_back(NoteAreaLeft(measure));
        allHeaders += headers.back();
    }
    const auto n = static_cast<int32_t>(headers.size());
    const int32_t width = system->_right - system->_left - CourtesyWidth(system);
    // Too narrow for its headers, a system gives each measure the same width.
    const bool roomy = allHeaders < width;
    const int64_t shared = roomy ? width - allHeaders : width;
    int32_t place = 0, left = 0, headersSoFar = 0;
    for (Measure* measure : systemMeasures.Of(system)) {
        if (roomy) headersSoFar += headers[static_cast<size_t>(place)];
        measure->_left = left;
        left = headersSoFar + static_cast<int32_t>(shared * ++place / n);
        measure->_right = left;
    }
}

void NumberMeasures(Document* document) {
    int32_t number = 0;
    for (Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page))
            for (Measure* measure : systemMeasures.Of(system))
                if (measure->_number != ++number) measure->_number = number;
}

void LayOutPages(Document* document) {
    for (Page* page : documentPages.Of(document)) {
        CenterSystems(document, page);
        for (System* system : pageSystems.Of(page)) FitMeasures(system);
    }
}

}  // namespace corvane
