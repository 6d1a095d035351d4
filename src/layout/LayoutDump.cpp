#include "layout/LayoutDump.h"

#include <initializer_list>

#include "layout/Frames.h"
#include "layout/PageLayout.h"

namespace corvane {
namespace {

void AddLine(std::string& text, const char* what, std::initializer_list<int32_t> numbers) {
    text += what;
    for (const int32_t number : numbers) text += ' ' + std::to_string(number);
    text += '\n';
}

}  // namespace

std::string LayoutDump(const Page* page) {
    std::string text;
    const Rect paper = PageRect(page);
    AddLine(text, "page", {page->_pageNumber, paper.Width(), paper.Height()});
    int32_t s = 0;
    for (const System* system : pageSystems.Of(page)) {
        const Point origin = OriginOf(system);
        const int32_t width = system->_right - system->_left, height = system->_bottom - system->_top;
        AddLine(text, "system", {++s, origin.x, origin.y, origin.x + width, origin.y + height});
        int32_t m = 0, k = 0;
        for (const Measure* measure : systemMeasures.Of(system)) {
            const MeasureFrame frame = FrameOf(measure);
            AddLine(text, "measure",
                    {s, ++m, frame.left, frame.left + frame.header, frame.left + frame.width});
        }
        for (const Staff* staff : StaffsFromTop(system)) {
            const StaffFrame frame = FrameOf(staff);
            AddLine(text, "staff", {s, ++k, frame.top, frame.lineDistance, frame.lineCount});
        }
    }
    return text;
}

}  // namespace corvane
