// Arpeggios: as many segments as fit between their ends, at least one, in the middle of the room.
#include <algorithm>
#include <vector>

#include "layout/Arpeggios.h"
#include "layout/DrawFamilies.h"
#include "layout/NoteGeometry.h"
#include "layout/SymbolInk.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// Hundredths of a line distance: from the wave's middle to the column, and beyond the middles of the outer
// heads.
constexpr int32_t kBefore = 55, kBeyond = 75;
// Of a segment's ink: where the next one continues its wave.
constexpr int32_t kRepeat = 255, kHeight = 325;
constexpr int32_t kMostSegments = 200;
// No hand reaches beyond; sums of such places stay numbers.
constexpr int32_t kFarthest = 1 << 20;

int32_t Down(int32_t thousandths, int32_t lineDistance) {
    const int64_t units = int64_t{thousandths} * lineDistance / 1000;
    return static_cast<int32_t>(std::clamp<int64_t>(units, -kFarthest, kFarthest));
}

// Where the segments are drawn, from the top.
std::vector<Point> SegmentsOf(const Arpeggio* arpeggio, const ArpeggioLine& line) {
    const FontSymbol* symbol = arpeggio->_symbol;
    if (line.IsEmpty() || !symbol) return {};
    const Rect ink = InkOf(symbol, Point{}, line.lineDistance, 100);
    const int32_t step = std::max(1, ink.Height() * kRepeat / kHeight);
    const int32_t room = std::max(line.bottom - line.top - ink.Height(), 0);
    const int32_t count = std::clamp((room + step / 2) / step + 1, 1, kMostSegments);
    const int32_t left = line.x - (ink.left + ink.right) / 2;
    int32_t y = (line.top + line.bottom - (count - 1) * step - ink.Height()) / 2 - ink.top;
    std::vector<Point> places;
    for (int32_t i = 0; i < count; ++i, y += step) places.push_back({left, y});
    return places;
}

}  // namespace

ArpeggioLine LineOf(const Arpeggio* arpeggio) {
    const MeasureStaff* crossing = MeasureStaffPar(arpeggio);
    const Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    if (!staff) return {};
    const StaffFrame frame = FrameOf(staff);
    return {FrameOf(MeasurePar(crossing)).XOf(arpeggio->_long[kArpeggioX]),
            frame.top + Down(arpeggio->_long[kArpeggioTop], frame.lineDistance),
            frame.top + Down(arpeggio->_long[kArpeggioBottom], frame.lineDistance), frame.lineDistance};
}

void SetLine(Arpeggio* arpeggio, const ArpeggioLine& line) {
    const MeasureStaff* crossing = MeasureStaffPar(arpeggio);
    const StaffFrame frame = FrameOf(crossing->_staff.Get());
    if (frame.lineDistance <= 0) return;
    const auto put = [&](ArpeggioField field, int32_t value) {
        if (arpeggio->_long[field] != value) arpeggio->_long[field] = value;
    };
    put(kArpeggioX, FrameOf(MeasurePar(crossing)).PerMilleOfX(line.x));
    put(kArpeggioTop, (line.top - frame.top) * 1000 / frame.lineDistance);
    put(kArpeggioBottom, (line.bottom - frame.top) * 1000 / frame.lineDistance);
}

ArpeggioLine ArpeggioBefore(const ChordSymbol* column) {
    ArpeggioLine line;
    Rect ink;
    for (const Chords* chord : chordSymbolChords.Of(column))
        for (const GenericNote* note : chordNotes.Of(chord)) {
            const StaffFrame staff = FrameOf(StaffPar(note));
            const int32_t y = staff.YOfLine(note->_line), beyond = kBeyond * staff.lineDistance / 100;
            line.top = line.IsEmpty() ? y - beyond : std::min(line.top, y - beyond);
            line.bottom = line.IsEmpty() ? y + beyond : std::max(line.bottom, y + beyond);
            line.lineDistance = staff.lineDistance;
            ink = Union(ink, Union(RectOf(note), LedgerLinesOf(note).Ink()));
            if (const Accident* accident = AccidentOf(note)) ink = Union(ink, RectOf(accident));
        }
    line.x = ink.left - kBefore * line.lineDistance / 100;
    return line;
}

Rect InkOf(const Arpeggio* arpeggio, const ArpeggioLine& line) {
    Rect ink;
    for (const Point at : SegmentsOf(arpeggio, line))
        ink = Union(ink, InkOf(arpeggio->_symbol.Get(), at, line.lineDistance, 100));
    return ink;
}

void Paint(GraphicPort& port, const Arpeggio* arpeggio, const ArpeggioLine& line) {
    for (const Point at : SegmentsOf(arpeggio, line))
        DrawSymbol(port, arpeggio->_symbol, at.x, at.y, line.lineDistance, 100);
}

Rect InkOf(const Arpeggio& arpeggio) { return InkOf(&arpeggio, LineOf(&arpeggio)); }
void Paint(GraphicPort& port, const Arpeggio& arpeggio, const DrawContext&) {
    Paint(port, &arpeggio, LineOf(&arpeggio));
}
std::vector<Point> OutlineOf(const Arpeggio& arpeggio) {
    const Rect ink = InkOf(arpeggio);
    const int32_t x = (ink.left + ink.right) / 2;
    return ink.IsEmpty() ? std::vector<Point>{} : std::vector<Point>{{x, ink.top}, {x, ink.bottom}};
}

}  // namespace corvane
