// A measure as wide as its header and 1000, so that a per mille is a page unit, with a voice to fill.
#pragma once

#include "draw_score.h"

namespace corvane::draw {

class GeometryTest : public DrawTest {
protected:
    GeometryTest() {
        New("S", 2, 1);
        measure = MeasureAt(SystemAt(0), 0);
        measure->_right = measure->_left + FrameOf(measure).header + 1000;
        voice = VoiceOfStaff(0, 0);
        staff = PageLayoutStaff();
        zero = FrameOf(measure).XOf(0);
        bottom = FrameOf(staff).Bottom();
    }
    Staff* PageLayoutStaff() const { return StaffsFromTop(SystemAt(0))[0]; }
    ChordSymbol* Add(const ChordWanted& wanted) { return AddChord(voice, wanted); }
    // Heights above the bottom line.
    int32_t Up(int32_t y) const { return bottom - y; }

    Measure* measure;
    Voice* voice;
    Staff* staff;
    int32_t zero, bottom;
};

}  // namespace corvane::draw
