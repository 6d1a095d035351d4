// Repetition texts of a measure, symbols placed at a staff, rests over several measures.
#include <algorithm>

#include "layout/AboveStaff.h"
#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/Glyphs.h"
#include "layout/LineWeights.h"
#include "layout/SpacingHeader.h"
#include "layout/SymbolInk.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

struct SymbolPlace {
    const FontSymbol* symbol = nullptr;
    Point at;
    int32_t lineDistance = 0;

    Rect Ink() const { return symbol ? InkOf(symbol, at, lineDistance, 100) : Rect{}; }
    void Paint(GraphicPort& port) const {
        if (symbol) DrawSymbol(port, symbol, at.x, at.y, lineDistance, 100);
    }
};

// ---- Repetition texts

// Hundredths of a line distance: above the top line, and before the barline, beyond which a sign may begin.
constexpr int32_t kBaseline = 200, kBeforeBarline = 50;

// A sign that is jumped to stands at its measure's beginning, all others end with the measure.
bool StandsAtStart(const FontSymbol* symbol) {
    const std::string_view name = SymbolName(symbol);
    return name == "Segno" || name == "Coda";
}

SymbolPlace PlaceOf(const Coda& coda) {
    const Measure* measure = MeasurePar(&coda);
    const Staff* staff = measure ? TopStaffOf(measure) : nullptr;
    const FontSymbol* symbol = coda._symbol;
    if (!staff || !symbol) return {};
    const StaffFrame frame = FrameOf(staff);
    const Rect ink = InkOf(symbol, Point{}, frame.lineDistance, 100);
    const int32_t origin = OriginOf(SystemPar(measure)).x;
    const int32_t left = StandsAtStart(symbol) ? origin + measure->_left - ink.left
                                               : origin + measure->_right - ink.right -
                                                     kBeforeBarline * frame.lineDistance / 100;
    return {symbol,
            {left + coda._x * frame.lineDistance / 100,
             frame.top + (coda._y - kBaseline) * frame.lineDistance / 100},
            frame.lineDistance};
}

// ---- Placed symbols

// Per mille of the note area, thousandths of the line distance from the top line. A sign's ink is centred
// there; a dynamic's letters stand on one line whatever they reach down to, so only their small ones are.
constexpr int32_t kHalfLetter = 45;  // hundredths of a line distance

enum class Level { Ink, Letters };

template <class Sign>
SymbolPlace PlaceOfPlaced(const Sign& sign, Level level) {
    const MeasureStaff* crossing = MeasureStaffPar(&sign);
    const Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    const FontSymbol* symbol = sign._symbol;
    if (!staff || !symbol) return {};
    const StaffFrame frame = FrameOf(staff);
    const Rect ink = InkOf(symbol, Point{}, frame.lineDistance, 100);
    const int32_t down =
        level == Level::Ink ? -(ink.top + ink.bottom) / 2 : kHalfLetter * frame.lineDistance / 100;
    return {symbol,
            {FrameOf(MeasurePar(crossing)).XOf(sign._x) - (ink.left + ink.right) / 2,
             frame.top + sign._y * frame.lineDistance / 1000 + down},
            frame.lineDistance};
}
SymbolPlace PlaceOf(const SimboliVari& sign) { return PlaceOfPlaced(sign, Level::Ink); }
SymbolPlace PlaceOf(const Dinamiche& mark) { return PlaceOfPlaced(mark, Level::Letters); }

// ---- Rests over several measures

// Hundredths of a line distance: thickness of the bar, half the height of its ends, its ends from the note
// area and the barline, the number above the top line.
constexpr int32_t kBarWeight = 50, kEndHeight = 100, kInset = 100, kNumberUp = 150;

struct MultiRest {
    Rect bar;
    int32_t endWeight = 0, endTop = 0, endBottom = 0;
    int count = 1;
    Point number;
    int32_t lineDistance = 0;
};

MultiRest RestOf(const MultiPause& pause) {
    const MeasureStaff* crossing = MeasureStaffPar(&pause);
    const Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    if (!staff) return {};
    const Measure* measure = MeasurePar(crossing);
    const StaffFrame frame = FrameOf(staff);
    const int32_t distance = frame.lineDistance, middle = (frame.top + frame.Bottom()) / 2;
    const int32_t left = OriginOf(SystemPar(measure)).x + measure->_left;
    const int32_t signs = PlacesOf(measure).noteArea - GapsOf(DocumentPar(measure)).firstNote;
    const int32_t weight = kBarWeight * distance / 100, inset = kInset * distance / 100;

    MultiRest rest;
    rest.bar = {left + signs + inset, middle - weight / 2, left + measure->Width() - inset,
                middle + weight / 2};
    rest.endWeight = BarlineWeight(distance);
    rest.endTop = middle - kEndHeight * distance / 100;
    rest.endBottom = middle + kEndHeight * distance / 100;
    if (const auto* several = As<MultiMeasure>(measure)) rest.count = std::max<int>(1, several->_count);
    rest.number = {(rest.bar.left + rest.bar.right) / 2, frame.top - kNumberUp * distance / 100};
    rest.lineDistance = distance;
    return rest;
}

}  // namespace

Rect InkOf(const Coda& coda) { return PlaceOf(coda).Ink(); }
Rect InkOfMark(const Coda* coda) { return InkOf(*coda); }
void Paint(GraphicPort& port, const Coda& coda, const DrawContext&) { PlaceOf(coda).Paint(port); }

Rect InkOf(const SimboliVari& sign) { return PlaceOf(sign).Ink(); }
void Paint(GraphicPort& port, const SimboliVari& sign, const DrawContext&) { PlaceOf(sign).Paint(port); }
Rect InkOf(const Dinamiche& mark) { return PlaceOf(mark).Ink(); }
void Paint(GraphicPort& port, const Dinamiche& mark, const DrawContext&) { PlaceOf(mark).Paint(port); }

Rect InkOf(const MultiPause& pause) {
    const MultiRest rest = RestOf(pause);
    if (rest.bar.IsEmpty()) return {};
    const Rect bar{rest.bar.left, rest.endTop, rest.bar.right, rest.endBottom};
    return Union(bar, InkOfNumber(rest.count, rest.number, rest.lineDistance));
}

void Paint(GraphicPort& port, const MultiPause& pause, const DrawContext&) {
    const MultiRest rest = RestOf(pause);
    if (rest.bar.IsEmpty()) return;
    const PenKept kept(port);
    port.FillRect(rest.bar);
    PaintUpright(port, rest.bar.left, rest.endTop, rest.endBottom, rest.endWeight);
    PaintUpright(port, rest.bar.right - rest.endWeight, rest.endTop, rest.endBottom, rest.endWeight);
    PaintNumber(port, rest.count, rest.number, rest.lineDistance);
}

}  // namespace corvane
