// Where measures and staves stand on their page, in absolute page units, and the conversions between the
// units of notes and the page. Plain values, made afresh from the records whenever needed.
#pragma once

#include "base/Geometry.h"
#include "model/Relations.h"

namespace corvane {

// Horizontal frame of a measure.
struct MeasureFrame {
    int32_t left = 0;    // of the measure, absolute
    int32_t width = 0;   // right less left
    int32_t header = 0;  // from the left edge to the note area: NoteAreaLeft

    int32_t NoteArea() const { return width - header; }
    // Absolute x of a place in per mille of the note area. A measure no wider than its header leaves it
    // unscaled.
    int32_t XOf(int32_t perMille) const;
    // A width or a place counted from the note area's start, in per mille.
    int32_t PerMille(int32_t units) const;
    int32_t PerMilleOfX(int32_t x) const { return PerMille(x - left - header); }
};

// Vertical frame of a staff.
struct StaffFrame {
    int32_t left = 0, right = 0;
    int32_t top = 0;  // of the top line, absolute
    int32_t lineDistance = 100;
    int32_t lineCount = 5;

    int32_t Bottom() const { return top + (lineCount - 1) * lineDistance; }
    // Centre of a staff step: 1 the bottom line.
    int32_t YOfLine(int32_t line) const { return Bottom() - (line - 1) * lineDistance / 2; }
};

MeasureFrame FrameOf(const Measure* measure);
StaffFrame FrameOf(const Staff* staff);
// The absolute point from which the measures and staves of a system count.
Point OriginOf(const System* system);
Rect PageRect(const Page* page);  // 0, 0, page width, page height

// The staff step nearest to y, as a click is read; 0 where the line distance is 0.
int StaffPosition(const StaffFrame& staff, int32_t y);

}  // namespace corvane
