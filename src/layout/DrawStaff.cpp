#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/LineWeights.h"
#include "layout/StaffNames.h"

namespace corvane {

Rect InkOf(const Staff& staff) {
    const StaffFrame frame = FrameOf(&staff);
    const int32_t half = (StaffLineWeight(frame.lineDistance) + 1) / 2;
    const Rect lines{frame.left, frame.top - half, frame.right, frame.Bottom() + half};
    const StaffNamePicture name = NamePictureOf(&staff);
    return name.text.empty() ? lines : Union(lines, InkOfText(name.text, name.look, name.place));
}

void Paint(GraphicPort& port, const Staff& staff, const DrawContext&) {
    const PenKept kept(port);
    const StaffFrame frame = FrameOf(&staff);
    // The barlines at both ends cover the rest, so no end shows beyond them where pixels are coarse.
    const int32_t inset = BarlineWeight(frame.lineDistance) / 3;
    for (int32_t i = 0; i < frame.lineCount; ++i)
        PaintLevel(port, frame.left + inset, frame.right - inset, frame.top + i * frame.lineDistance,
                   StaffLineWeight(frame.lineDistance));
    const StaffNamePicture name = NamePictureOf(&staff);
    if (!name.text.empty()) PaintText(port, name.text, name.look, name.place);
}

}  // namespace corvane
