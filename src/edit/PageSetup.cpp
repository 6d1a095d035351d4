// Paper, margins, the first system's indent, and the sizes and distances of staves.
#include <algorithm>
#include <vector>

#include "edit/LayoutSteps.h"
#include "edit/StructureStep.h"
#include "layout/CrossBeams.h"
#include "layout/NoteAreas.h"
#include "layout/PageFit.h"
#include "layout/PageLayout.h"
#include "model/Par.h"
#include "model/Preferences.h"

namespace corvane {
namespace {

constexpr int kLeastSize = 10, kMostSize = 1000, kDistanceLimit = 10000;

Margins Filled(const Page* page, const Margins& margins) {
    return {margins.left.value_or(page->_leftMargin), margins.right.value_or(page->_rightMargin),
            margins.top.value_or(page->_topMargin), margins.bottom.value_or(page->_bottomMargin)};
}

Status CheckRoom(int height, int width, const Margins& margins) {
    const bool room = width - *margins.left - *margins.right >= kLeastRoom &&
                      height - *margins.top - *margins.bottom >= kLeastRoom;
    return room ? Status::Ok() : Status{Fault::Refused, "These margins leave no room on the page"};
}

// The staves of a system, one below the other with the distances between them.
class StaffStack {
public:
    explicit StaffStack(System* system) : _system(system), _areas(system), _staffs(StaffsFromTop(system)) {
        for (size_t i = 0; i + 1 < _staffs.size(); ++i)
            _gaps.push_back(_staffs[i + 1]->_top - _staffs[i]->_bottom);
    }
    void Form(const DocStaff* docStaff, const StaffForm& form) {
        for (size_t i = 0; i < _staffs.size(); ++i) {
            Staff* staff = _staffs[i];
            if (docStaffStaffs.ParentOf(staff) != docStaff) continue;
            if (form.size) staff->_lineDistance = static_cast<int16_t>(*form.size);
            if (form.lines) staff->_lineCount = static_cast<int16_t>(*form.lines);
            if (form.distance && i < _gaps.size()) _gaps[i] = *form.distance;
        }
    }
    void Settle() const {
        if (_staffs.empty()) return;
        int32_t top = _staffs.front()->_top;
        for (size_t i = 0; i < _staffs.size(); ++i) {
            _staffs[i]->_top = top;
            _staffs[i]->_bottom = top + std::max(_staffs[i]->LinesHeight(), 0);
            if (i < _gaps.size()) top = _staffs[i]->_bottom + _gaps[i];
        }
        _system->_bottom = _system->_top + _staffs.back()->_bottom;
        _areas.Apply();
        RefitCrossBeams(_system);
    }

private:
    System* _system;
    NoteAreas _areas;
    std::vector<Staff*> _staffs;
    std::vector<int32_t> _gaps;
};

}  // namespace

Status SetPageSize(WindowTarn& window, int height, int width) {
    if (height < kLeastPageHeight || width < kLeastPageWidth)
        return {Fault::Refused,
                "The minimum number of points per page in a custom pagesetting is: height 5950, width 4060"};
    Document* document = window.GetDocument();
    for (const Page* page : documentPages.Of(document))
        if (const Status status = CheckRoom(height, width, Filled(page, {})); !status) return status;
    const StructureStep step(window);
    auto* preferences = Preferences<PagePref>(document);
    preferences->_pageHeight = height;
    preferences->_pageWidth = width;
    TakePageSize(document);
    for (Page* page : documentPages.Of(document)) FitPage(document, page);
    return Status::Ok();
}

Status SetMargins(WindowTarn& window, Page* first, Page* last, const Margins& margins) {
    Page* end = documentPages.Next(last);
    for (const Page* page = first; page != end; page = documentPages.Next(page))
        if (const Status status = CheckRoom(Document::pageHeight, Document::pageWidth, Filled(page, margins));
            !status)
            return status;
    const StructureStep step(window);
    for (Page* page = first; page != end; page = documentPages.Next(page)) {
        const Margins filled = Filled(page, margins);
        page->_leftMargin = *filled.left;
        page->_rightMargin = *filled.right;
        page->_topMargin = *filled.top;
        page->_bottomMargin = *filled.bottom;
        FitPage(window.GetDocument(), page);
    }
    return Status::Ok();
}

Status SetFirstIndent(WindowTarn& window, int width) {
    const Page* page = documentPages.First(window.GetDocument());
    const int room = page ? Document::pageWidth - page->_leftMargin - page->_rightMargin : kLeastRoom;
    if (width < 0 || room - width < kLeastRoom)
        return {Fault::Refused, "The names leave no room for the first system"};
    const StructureStep step(window);
    Preferences<StaffPref>(window.GetDocument())->_nameWidth = static_cast<int16_t>(width);
    return Status::Ok();
}

Status SetStaffs(WindowTarn& window, DocStaff* first, DocStaff* last, const StaffForm& form) {
    const int size = form.size.value_or(kLeastSize), distance = form.distance.value_or(0);
    if (size < kLeastSize || size > kMostSize || distance < 0 || distance >= kDistanceLimit)
        return {Fault::Refused,
                "The size of the staff must be between 10 and 1,000, and the distance from the staff "
                "below must be lower than 10,000!"};
    const StructureStep step(window);
    for (const Page* page : documentPages.Of(window.GetDocument()))
        for (System* system : pageSystems.Of(page)) {
            StaffStack stack(system);
            for (DocStaff* staff = first; staff;
                 staff = staff == last ? nullptr : documentDocStaffs.Next(staff))
                stack.Form(staff, form);
            stack.Settle();
        }
    return Status::Ok();
}

}  // namespace corvane
