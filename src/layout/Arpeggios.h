// The wave before a chord that is broken: an upright line of segments at a place of a staff's measure, from a
// height to a lower one, over the staff below too. Absolute page units.
#pragma once

#include "layout/Frames.h"

namespace corvane {

class GraphicPort;

// Where it stands in the record: per mille of the note area, then thousandths of the line distance below the
// top line.
enum ArpeggioField { kArpeggioX, kArpeggioTop, kArpeggioBottom };

struct ArpeggioLine {
    int32_t x = 0, top = 0, bottom = 0;  // its middle, its ends
    int32_t lineDistance = 0;            // 0 where nothing shows

    bool IsEmpty() const { return lineDistance <= 0; }
};
ArpeggioLine LineOf(const Arpeggio* arpeggio);
// Puts it where a line stands now.
void SetLine(Arpeggio* arpeggio, const ArpeggioLine& line);
// Left of a column with its accidentals, over all its heads.
ArpeggioLine ArpeggioBefore(const ChordSymbol* column);

Rect InkOf(const Arpeggio* arpeggio, const ArpeggioLine& line);
void Paint(GraphicPort& port, const Arpeggio* arpeggio, const ArpeggioLine& line);

}  // namespace corvane
