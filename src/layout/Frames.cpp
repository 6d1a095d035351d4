#include "layout/Frames.h"

#include "base/Rounding.h"
#include "layout/Spacing.h"
#include "model/Par.h"

namespace corvane {

int32_t MeasureFrame::XOf(int32_t perMille) const {
    const int32_t area = NoteArea();
    const int32_t inArea = area > 0 ? Round(perMille * static_cast<double>(area) * 0.001) : perMille;
    return inArea + left + header;
}

int32_t MeasureFrame::PerMille(int32_t units) const {
    const int32_t area = NoteArea();
    return area > 0 ? Round(units * 1000.0 / area) : units;
}

Point OriginOf(const System* system) {
    const Page* page = PagePar(system);
    return {(page ? page->_leftMargin.Get() : 0) + system->_left, system->_top};
}

MeasureFrame FrameOf(const Measure* measure) {
    const System* system = SystemPar(measure);
    return {(system ? OriginOf(system).x : 0) + measure->_left, measure->Width(), NoteAreaLeft(measure)};
}

StaffFrame FrameOf(const Staff* staff) {
    const System* system = SystemPar(staff);
    const Point origin = system ? OriginOf(system) : Point{};
    return {origin.x + staff->_left, origin.x + staff->_right, origin.y + staff->_top, staff->_lineDistance,
            staff->_lineCount};
}

Rect PageRect(const Page*) { return {0, 0, Document::pageWidth, Document::pageHeight}; }

int StaffPosition(const StaffFrame& staff, int32_t y) {
    const int32_t distance = staff.lineDistance;
    if (distance == 0) return 0;
    const int32_t above = staff.Bottom() - (y - distance / 4);
    return above * 2 / distance + (above > 0 ? 1 : 0);
}

}  // namespace corvane
