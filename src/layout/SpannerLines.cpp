#include "layout/SpannerLines.h"

#include <algorithm>

#include "layout/SymbolInk.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// Hundredths of a line distance.
constexpr int32_t kFromEdge = 30, kBeforeNotes = 100;

// Where a new line stands: its least distance from the staff and from what it runs over, counted from the
// nearest edge of its ink, and how far that edge is from y.
struct Distances {
    bool above;
    int32_t fromStaff, fromInk, edge;
};
constexpr Distances kDistances[] = {
    {false, 130, 60, 65},   // Hairpin: half its opening
    {true, 150, 60, 0},     // OctaveAbove
    {false, 120, 60, 0},    // OctaveBelow
    {true, 100, 60, 0},     // Trill
    {false, 250, 80, 100},  // Pedal: its hooks
};

// How far the ink of a line's sign reaches from its baseline towards the staff, hundredths.
int32_t SignEdge(const StaffMeasureSymbol* mark, bool above) {
    const FontSymbol* sign = nullptr;
    if (const auto* octave = As<MarkOttava>(mark)) sign = ottavaMarks.ParentOf(octave)->_symbol;
    if (const auto* trill = As<MarkTrillo>(mark)) sign = trilloMarks.ParentOf(trill)->_symbol;
    const Rect ink = sign ? InkOf(sign, Point{}, 100, 100) : Rect{};
    return std::max(0, above ? ink.bottom : -ink.top);
}

// ---- How a class of lines keeps its run.

void Put(Stored<int32_t>& field, int32_t value) {
    if (field != value) field = value;
}

template <class Mark, const auto& marks>
LineRun Read(const StaffMeasureSymbol* mark) {
    const auto* spanner = marks.ParentOf(static_cast<const Mark*>(mark));
    if (!spanner) return {};
    LineRun run{MeasureStaffPar(marks.First(spanner)), MeasureStaffPar(marks.Last(spanner)), spanner->_from,
                spanner->_to, spanner->_y};
    if constexpr (requires { spanner->_opening; }) run.opening = spanner->_opening;
    return run;
}
template <class Mark, const auto& marks>
void Write(StaffMeasureSymbol* mark, const LineRun& run) {
    auto* spanner = marks.ParentOf(static_cast<Mark*>(mark));
    Put(spanner->_from, run.from);
    Put(spanner->_to, run.to);
    Put(spanner->_y, run.y);
    if constexpr (requires { spanner->_opening; }) Put(spanner->_opening, run.opening);
}

struct Row {
    bool (*is)(int16_t number);
    LineRun (*read)(const StaffMeasureSymbol* mark);
    void (*write)(StaffMeasureSymbol* mark, const LineRun& run);
};
template <class Mark, const auto& marks>
constexpr Row RowOf() {
    return {IsClass<Mark>, Read<Mark, marks>, Write<Mark, marks>};
}
constexpr Row kRows[] = {
    RowOf<MarkHairpin, hairpinMarks>(),
    RowOf<MarkOttava, ottavaMarks>(),
    RowOf<MarkTrillo, trilloMarks>(),
    RowOf<MarkPedale, pedaleMarks>(),
};

}  // namespace

LineRun RunOf(const StaffMeasureSymbol* mark) {
    for (const Row& row : kRows)
        if (row.is(mark->ClassNumber())) return row.read(mark);
    return {};
}

void SetRun(StaffMeasureSymbol* mark, const LineRun& run) {
    for (const Row& row : kRows)
        if (row.is(mark->ClassNumber())) row.write(mark, run);
    MoveMarks(mark, run.first, run.last);
}

LinePlace PlaceOf(const SpannerPart& part, const LineRun& run) {
    LinePlace place;
    place.left = part.begins ? FrameOf(MeasurePar(part.first)).XOf(run.from)
                             : part.left - part.Hundredths(kBeforeNotes);
    place.right =
        part.ends ? FrameOf(MeasurePar(part.last)).XOf(run.to) : part.right - part.Hundredths(kFromEdge);
    place.y = part.staff.top + static_cast<int32_t>(int64_t{run.y} * part.staff.lineDistance / 1000);
    return place;
}

int32_t ClearY(const StaffMeasureSymbol* mark, int32_t from, int32_t to, LineKind kind) {
    const Distances& d = kDistances[static_cast<size_t>(kind)];
    const int32_t out = d.above ? -1 : 1, edge = d.edge + SignEdge(mark, d.above);
    int32_t farthest = 0;  // outward from the top line, thousandths
    for (const StaffMeasureSymbol* each : MarksOf(mark)) {
        const SpannerPart part = PartOf(each);
        if (!part || part.staff.lineDistance <= 0) continue;
        const LinePlace place = PlaceOf(part, {.from = from, .to = to});
        const int32_t staff = d.above ? part.staff.top : part.staff.Bottom();
        const int32_t reach = ReachUnder(part, place.left, place.right, d.above, mark);
        const int32_t y = std::max(out * (staff - part.staff.top) + part.Hundredths(d.fromStaff),
                                   out * (reach - part.staff.top) + part.Hundredths(d.fromInk)) +
                          part.Hundredths(edge);
        farthest = std::max(farthest, y * 1000 / part.staff.lineDistance);
    }
    return out * farthest;
}

bool IsBelow(const Ottava* ottava) { return NameHolds(ottava->_symbol, "Giu"); }

}  // namespace corvane
