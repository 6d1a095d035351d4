// Hairpins, octave, trill and pedal lines: as a whole, by an end, a hairpin by its opening.
#include <algorithm>
#include <cstdlib>

#include "edit/DeletionSteps.h"
#include "edit/Drag.h"
#include "edit/Drags.h"
#include "edit/SpannerSteps.h"
#include "edit/TarnClick.h"
#include "layout/MovedPictures.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Page units: how far from an end it is taken by it, and how short a line may become.
constexpr int32_t kHandle = 80, kLeast = 100;
// Of hairpins, thousandths of a line distance.
constexpr int32_t kLeastOpening = 200, kMostOpening = 8000;

StaffMeasureSymbol* MarkOf(const DrawPatch& patch) { return patch.Record<StaffMeasureSymbol>(); }

// ---- Ends of lines on the page.

int32_t XOf(const MeasureStaff* crossing, int32_t place) { return FrameOf(MeasurePar(crossing)).XOf(place); }

// Where the notes of a system begin, and its last barline.
struct Span {
    int32_t left, right;
};
Span SpanOf(const System* system) {
    return {FrameOf(systemMeasures.First(system)).XOf(0),
            OriginOf(system).x + systemMeasures.Last(system)->_right};
}

struct End {
    MeasureStaff* crossing = nullptr;
    int32_t place = 0;
};
// The place of a staff under a point; without a crossing where the staff is not shown.
End EndAt(const System* system, const DocStaff* staff, int32_t x) {
    const Span span = SpanOf(system);
    x = std::clamp(x, span.left, std::max(span.left, span.right));
    Measure* measure = FindMeasure(system, x);
    MeasureStaff* crossing = measure ? MeasureStaffAt(measure, staff) : nullptr;
    if (!crossing || !crossing->_staff.Get()) return {};
    return {crossing, std::clamp(FrameOf(measure).PerMilleOfX(x), 0, 1000)};
}

// Not too near to each other, and in order.
bool Leads(const End& first, const End& last) {
    const Measure *from = MeasurePar(first.crossing), *to = MeasurePar(last.crossing);
    if (SystemPar(from) != SystemPar(to)) return from->_number < to->_number;
    return XOf(last.crossing, last.place) - XOf(first.crossing, first.place) >= kLeast;
}

// ---- What each handle makes of a line.

struct Pull {
    const Page* page;
    Point from, by;
    const MeasureStaff* pressed;  // the crossing of the mark
};
using Handle = LineRun (*)(const LineRun& run, const Pull& pull);

// An end goes sideways, or into another system of the page where the pointer is in that.
End Pulled(const MeasureStaff* crossing, int32_t place, const Pull& pull) {
    const System* system = SystemPar(MeasurePar(crossing));
    const Point to = pull.from + pull.by;
    const System* under = FindSystem(pull.page, to.y);
    const int32_t x = under == system || !under ? XOf(crossing, place) + pull.by.x : to.x;
    return EndAt(under ? under : system, DocStaffPar(crossing), x);
}
// One short of the other end stops there.
LineRun PullStart(const LineRun& run, const Pull& pull) {
    End start = Pulled(run.first, run.from, pull);
    const End last{run.last, run.to};
    if (start.crossing && !Leads(start, last))
        start =
            EndAt(SystemPar(MeasurePar(run.last)), DocStaffPar(run.first), XOf(run.last, run.to) - kLeast);
    if (!start.crossing || !Leads(start, last)) return run;
    return {start.crossing, run.last, start.place, run.to, run.y, run.opening};
}
LineRun PullEnd(const LineRun& run, const Pull& pull) {
    End end = Pulled(run.last, run.to, pull);
    const End first{run.first, run.from};
    if (end.crossing && !Leads(first, end))
        end =
            EndAt(SystemPar(MeasurePar(run.first)), DocStaffPar(run.last), XOf(run.first, run.from) + kLeast);
    if (!end.crossing || !Leads(first, end)) return run;
    return {run.first, end.crossing, run.from, end.place, run.y, run.opening};
}

// As far as both ends stay in their systems; up and down it goes freely.
LineRun PullWhole(const LineRun& run, const Pull& pull) {
    int32_t dx = pull.by.x;
    const auto limit = [&dx](const MeasureStaff* crossing, int32_t place) {
        const Span span = SpanOf(SystemPar(MeasurePar(crossing)));
        const int32_t x = XOf(crossing, place);
        dx = std::clamp(dx, std::min(span.left - x, 0), std::max(span.right - x, 0));
    };
    limit(run.first, run.from);
    limit(run.last, run.to);
    LineRun moved = run;
    const int32_t distance = FrameOf(pull.pressed->_staff.Get()).lineDistance;
    if (distance) moved.y += pull.by.y * 1000 / distance;
    if (!dx) return moved;
    const auto end = [dx](const MeasureStaff* crossing, int32_t place) {
        return EndAt(SystemPar(MeasurePar(crossing)), DocStaffPar(crossing), XOf(crossing, place) + dx);
    };
    const End first = end(run.first, run.from), last = end(run.last, run.to);
    if (!first.crossing || !last.crossing || !Leads(first, last)) return moved;
    return {first.crossing, last.crossing, first.place, last.place, moved.y, moved.opening};
}

// Both of its lines, each by what the pressed one is pulled.
LineRun PullOpening(const LineRun& run, const Pull& pull) {
    const StaffFrame staff = FrameOf(pull.pressed->_staff.Get());
    if (!staff.lineDistance) return run;
    const int32_t axis = staff.top + run.y * staff.lineDistance / 1000;
    const int32_t wider = (pull.from.y < axis ? -pull.by.y : pull.by.y) * 2;
    LineRun moved = run;
    moved.opening = std::clamp(run.opening + wider * 1000 / staff.lineDistance,
                               std::min(kLeastOpening, run.opening), std::max(kMostOpening, run.opening));
    return moved;
}

// ---- Which handle a press takes.

bool IsAtOpening(const MarkHairpin* mark, const SpannerPart& part, const LinePlace& place, const LineRun& run,
                 Point p) {
    const bool atEnd = hairpinMarks.ParentOf(mark)->_kind == HairpinKind::Crescendo;
    const int32_t x = atEnd ? place.right : place.left;
    const int32_t half = run.opening * part.staff.lineDistance / 2000;
    return (atEnd ? part.ends : part.begins) && std::abs(p.x - x) < kHandle &&
           std::abs(p.y - place.y) > half / 2;
}

Handle HandleAt(const DrawPatch& patch, Point p) {
    const StaffMeasureSymbol* mark = MarkOf(patch);
    const SpannerPart part = PartOf(mark);
    const LineRun run = RunOf(mark);
    if (!part) return nullptr;
    const LinePlace place = PlaceOf(part, run);
    const auto* hairpin = patch.Record<MarkHairpin>();
    if (hairpin && IsAtOpening(hairpin, part, place, run, p)) return PullOpening;
    const Rect ink = patch.Bounds();  // the waves of a trill stop where the next has no room
    const int32_t reach = std::min(kHandle, ink.Width() / 3);
    if (part.ends && ink.right - p.x < reach) return PullEnd;
    const bool hasStart = !patch.Record<MarkPedale>();
    if (hasStart && part.begins && p.x - ink.left < reach) return PullStart;
    return PullWhole;
}

class LineDrag : public LiftedDrag {
public:
    LineDrag(WindowTarn& window, const DrawPatch& patch, Point from, Handle handle)
        : LiftedDrag(window, patch, from), _handle(handle) {}

    void Draw(GraphicPort& port, const DrawContext& context) const override {
        if (!IsLifted()) return;
        port.SetColor(context.ColourOf(0));
        PaintRun(port, MarkOf(_patch), Run(), _window.CurrentPage());
    }

private:
    LineRun Run() const {
        const StaffMeasureSymbol* mark = MarkOf(_patch);
        return _handle(RunOf(mark), {_window.CurrentPage(), _from, _by, MeasureStaffPar(mark)});
    }
    bool Changes() const override { return Run() != RunOf(MarkOf(_patch)); }
    // Marks between the ends come and go; those at the ends stay.
    void Apply() override {
        const EditStep step(_window);
        const LineRun run = Run();
        const std::vector<StaffMeasureSymbol*> marks = MarksOf(MarkOf(_patch));
        for (StaffMeasureSymbol* mark : marks) TakeOff(_window, mark);
        SetRun(marks.front(), run);
        FileMarks(_window, marks.front());
    }

    const Handle _handle;
};

}  // namespace

std::unique_ptr<Interaction> DragLine(WindowTarn& window, const DrawPatch& patch, Point from) {
    const Handle handle = HandleAt(patch, from);
    return handle ? std::make_unique<LineDrag>(window, patch, from, handle) : nullptr;
}

}  // namespace corvane
