// From a point on the page to system, staff and measure.
#include "edit/TarnClick.h"
#include "layout/Frames.h"
#include "layout/PageLayout.h"
#include "model/Par.h"

namespace corvane {
namespace {

struct Band {
    int32_t top, bottom, height;
};

// Where one band ends for clicks: the gap behind it is shared in proportion to the two heights.
double Boundary(const Band& upper, const Band& lower) {
    const int32_t gap = lower.top - upper.bottom, sum = upper.height + lower.height;
    if (sum == 0) return upper.bottom + gap * 0.5;
    return upper.bottom + static_cast<int64_t>(gap) * upper.height / sum;
}

Band BandOf(const System* system) {
    return {system->_top, system->_bottom, system->_bottom - system->_top};
}

// A staff of no height, such as one of a single line, counts as four line distances high.
Band BandOf(const Staff* staff) {
    const int32_t height = staff->LinesHeight();
    return {staff->_top, staff->_top + height, height ? height : 4 * staff->_lineDistance};
}

// The element whose band takes y, of a walk from top to bottom.
template <class Element>
Element* Under(const std::vector<Element*>& elements, int32_t y) {
    for (size_t i = 0; i + 1 < elements.size(); ++i)
        if (y < Boundary(BandOf(elements[i]), BandOf(elements[i + 1]))) return elements[i];
    return elements.empty() ? nullptr : elements.back();
}

}  // namespace

System* FindSystem(const Page* page, int32_t y) {
    std::vector<System*> systems;
    for (System* system : pageSystems.Of(page)) systems.push_back(system);
    return Under(systems, y);
}

Staff* FindStaff(const System* system, int32_t y) {
    return Under(StaffsFromTop(system), y - OriginOf(system).y);
}

Measure* FindMeasure(const System* system, int32_t x) {
    const int32_t inSystem = x - OriginOf(system).x;
    Measure* last = nullptr;
    for (Measure* measure : systemMeasures.Of(system)) {
        if (!last && inSystem < measure->_left) return measure;
        if (measure->_left <= inSystem && inSystem <= measure->_right) return measure;
        last = measure;
    }
    return last;
}

MeasureStaff* FindMeasureStaff(const System* system, Point p) {
    const Staff* staff = FindStaff(system, p.y);
    const Measure* measure = FindMeasure(system, p.x);
    const DocStaff* docStaff = staff ? docStaffStaffs.ParentOf(staff) : nullptr;
    if (!docStaff || !measure) return nullptr;
    MeasureStaff* crossing = MeasureStaffAt(measure, docStaff);
    CORVANE_ASSERT_AS(crossing, "doc_staff != NULL && (Measure*)MeasurePar(msc) != NULL");
    return crossing;
}

}  // namespace corvane
