#include "layout/TextInk.h"

#include "base/Rounding.h"
#include "graphics/MemoryPort.h"
#include "model/FontTable.h"

namespace corvane {
namespace {

constexpr double kLineStep = 1.2;  // ems

void UseLook(GraphicPort& port, const TextLook& look) {
    port.SetFont(DrawnFont(look.font));
    port.SetFontSize(look.size);
    port.SetFontStyle(look.style);
}

// Calls `visit` with each line and the place of its left end.
template <class Visit>
void ForEachLine(const GraphicPort& measuring, std::string_view text, const TextLook& look,
                 const TextPlace& place, const Visit& visit) {
    int32_t y = place.at.y;
    for (size_t from = 0; from <= text.size(); y += LineStep(look)) {
        const size_t to = std::min(text.find('\n', from), text.size());
        const std::string_view line = text.substr(from, to - from);
        const int32_t width = measuring.StringWidth(line);
        const int32_t back = place.align == TextAlign::Left    ? 0
                             : place.align == TextAlign::Right ? width
                                                               : width / 2;
        visit(line, Point{place.at.x - back, y});
        from = to + 1;
    }
}

}  // namespace

int32_t LineStep(const TextLook& look) { return Round(look.size * kLineStep); }

int32_t WidthOfText(std::string_view text, const TextLook& look) { return InkOfText(text, look, {}).Width(); }

Rect InkOfText(std::string_view text, const TextLook& look, const TextPlace& place) {
    MemoryPort port;
    UseLook(port, look);
    Rect ink;
    ForEachLine(port, text, look, place, [&](std::string_view line, Point at) {
        ink = Union(ink, port.StringRect(line).MovedBy(at.x, at.y));
    });
    return ink;
}

void PaintText(GraphicPort& port, std::string_view text, const TextLook& look, const TextPlace& place) {
    UseLook(port, look);
    ForEachLine(port, text, look, place, [&](std::string_view line, Point at) {
        if (!line.empty()) port.DrawString(line, at.x, at.y);
    });
}

}  // namespace corvane
