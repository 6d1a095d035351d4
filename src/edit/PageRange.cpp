#include "edit/PageRange.h"

#include <utility>

#include "edit/TarnSelect.h"
#include "model/Par.h"

namespace corvane {
namespace {

// `from` and `to`, in either order, `to` being `from` where it is missing.
std::pair<int, int> ReadNumbers(ArgumentReader& reader, int most) {
    int from = reader.Number("from", 1, most), to = reader.Number("to", 1, most, from);
    if (from > to) std::swap(from, to);
    return {from, to};
}

int NumberOf(const Document* document, const DocStaff* staff) {
    int number = 1;
    for (const DocStaff* each : documentDocStaffs.Of(document)) {
        if (each == staff) return number;
        ++number;
    }
    return 0;
}

StaffRange SelectedStaffs(WindowTarn& window) {
    const Document* document = window.GetDocument();
    StaffRange range;
    SetSelectionAnchors(window);
    for (const MeasureStaff* crossing : SelectedMeasureStaffs()) {
        DocStaff* staff = DocStaffPar(crossing);
        if (!range.first || NumberOf(document, staff) < NumberOf(document, range.first)) range.first = staff;
        if (!range.last || NumberOf(document, staff) > NumberOf(document, range.last)) range.last = staff;
    }
    ClearSelectionAnchors();
    return range;
}

}  // namespace

Page* PageOfNumber(const Document* document, int number) {
    for (Page* page : documentPages.Of(document))
        if (page->_pageNumber == number) return page;
    return nullptr;
}

DocStaff* StaffOfNumber(const Document* document, int number) {
    for (DocStaff* staff : documentDocStaffs.Of(document))
        if (--number == 0) return staff;
    return nullptr;
}

PageRange ReadPages(ArgumentReader& reader, const WindowTarn& window) {
    const Document* document = window.GetDocument();
    if (!reader.Has("from") && !reader.Has("to")) return {window.CurrentPage(), window.CurrentPage()};
    const auto [from, to] = ReadNumbers(reader, document->_pageCount);
    return {PageOfNumber(document, from), PageOfNumber(document, to)};
}

StaffRange ReadStaffs(ArgumentReader& reader, WindowTarn& window) {
    if (!reader.Has("from") && !reader.Has("to"))
        if (const StaffRange selected = SelectedStaffs(window); selected.first) return selected;
    const Document* document = window.GetDocument();
    const auto [from, to] = ReadNumbers(reader, documentDocStaffs.Count(document));
    return {StaffOfNumber(document, from), StaffOfNumber(document, to)};
}

}  // namespace corvane
