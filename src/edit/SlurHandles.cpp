// Slurs: handles at both tips and both shoulders, on the system where each stands. What is told is how far a
// point is from where the slur's rule puts it, so that it goes on following its notes.
#include <algorithm>

#include "base/Rounding.h"
#include "edit/HandleFamily.h"
#include "edit/SpannerSteps.h"
#include "edit/Spanners.h"
#include "graphics/GraphicPort.h"
#include "layout/SlurShape.h"
#include "layout/SpannerMarks.h"

namespace corvane {
namespace {

enum Part { kFirstTip = 0, kFirstShoulder = 1, kLastShoulder = 2, kLastTip = 3 };

Slur* SlurAt(const Handle& handle) { return static_cast<Slur*>(handle.target); }

// The one that draws the piece on which a point stands.
const MarkSlur* MarkOf(const Handle& handle) {
    if (handle.part <= kFirstShoulder) return slurMarks.First(SlurAt(handle));
    for (const MarkSlur* mark : slurMarks.Of(SlurAt(handle)))
        if (PartOf(mark).ends) return mark;
    return nullptr;
}

bool IsWithin(const std::vector<Handle>& handles, const Slur* slur, int part) {
    return std::any_of(handles.begin(), handles.end(),
                       [&](const Handle& each) { return each.target == slur && each.part == part; });
}

// Within the system's music; a tip stays a line distance before, or behind, the other one.
int32_t XTowards(const std::vector<Handle>& handles, const Handle& handle, const MarkSlur& mark, int32_t x) {
    const SpannerPart part = PartOf(&mark);
    const TaperedCurve curve = CurveOf(mark);
    int32_t least = part.left, most = part.right;
    if (handle.part == kFirstTip && !IsWithin(handles, SlurAt(handle), kLastTip))
        most = curve.to.x - part.staff.lineDistance;
    if (handle.part == kLastTip && !IsWithin(handles, SlurAt(handle), kFirstTip))
        least = curve.from.x + part.staff.lineDistance;
    // Where it stands it may always stay.
    const int32_t now = handle.place.x;
    return std::clamp(x, std::min(least, now), std::max(most, now));
}

// With all moves of its handles.
SlurPoints PointsBehind(const Slur* slur, const std::vector<HandleMove>& moves) {
    SlurPoints points = PointsOf(slur);
    for (const HandleMove& move : moves) {
        if (move.handle.target != slur) continue;
        const MarkSlur* mark = MarkOf(move.handle);
        const double distance = mark ? std::max(PartOf(mark).staff.lineDistance, 1) : 1;
        const auto x = static_cast<size_t>(2 * move.handle.part);
        points[x] += Round(move.By().x * 100 / distance);
        points[x + 1] += Round(move.By().y * 100 / distance);
    }
    return points;
}

class Family : public HandleFamily {
public:
    void Find(const Page* page, std::vector<Handle>& handles) const override {
        for (const System* system : pageSystems.Of(page))
            for (const Measure* measure : systemMeasures.Of(system))
                for (const MeasureStaff* crossing : measureStaffs.Of(measure)) {
                    if (!crossing->_staff) continue;
                    for (const StaffMeasureSymbol* symbol : staffSymbols.Of(crossing))
                        if (const auto* mark = As<MarkSlur>(symbol)) FindOn(*mark, handles);
                }
    }
    std::vector<HandleMove> Moved(const std::vector<Handle>& handles, Point by) const override {
        std::vector<HandleMove> moves;
        for (const Handle& handle : handles)
            if (const MarkSlur* mark = MarkOf(handle)) {
                const int32_t x = XTowards(handles, handle, *mark, handle.place.x + by.x);
                moves.push_back({handle, {x, handle.place.y + by.y}});
            }
        return moves;
    }
    std::vector<DrawPatch> Lifted(const Handle& handle) const override {
        std::vector<DrawPatch> patches;
        for (MarkSlur* mark : slurMarks.Of(SlurAt(handle))) patches.push_back(PatchOf(mark));
        return patches;
    }
    void Draw(GraphicPort& port, const std::vector<HandleMove>& moves,
              const DrawContext& context) const override {
        port.SetColor(context.ColourOf(0));
        for (const HandleMove& move : moves) {
            const SlurPoints points = PointsBehind(SlurAt(move.handle), moves);
            for (const DrawPatch& patch : Lifted(move.handle))
                Paint(port, CurveOf(*patch.Record<MarkSlur>(), points));
        }
    }
    void Apply(WindowTarn& window, const std::vector<HandleMove>& moves) const override {
        std::vector<std::pair<Slur*, SlurPoints>> all;
        for (const HandleMove& move : moves)
            all.emplace_back(SlurAt(move.handle), PointsBehind(SlurAt(move.handle), moves));
        for (const auto& [slur, points] : all) {
            MovePoints(slur, points);
            FileMarks(window, slurMarks.First(slur));
        }
    }
    void Delete(WindowTarn& window, const Handle& handle) const override {
        DeleteSpanner(window, slurMarks.First(SlurAt(handle)));
    }
    bool CanDelete() const override { return true; }

private:
    static void FindOn(const MarkSlur& mark, std::vector<Handle>& handles) {
        const TaperedCurve curve = CurveOf(mark);
        if (curve.IsEmpty()) return;
        const SpannerPart part = PartOf(&mark);
        Slur* slur = slurMarks.ParentOf(&mark);
        const auto add = [&](int point, Point place, std::optional<Point> tip) {
            handles.push_back({HandleKind::Slur, slur, point, place, tip});
        };
        if (part.begins) {
            add(kFirstTip, curve.from, {});
            add(kFirstShoulder, curve.control1, curve.from);
        }
        if (part.ends) {
            add(kLastShoulder, curve.control2, curve.to);
            add(kLastTip, curve.to, {});
        }
    }
};

}  // namespace

const HandleFamily& SlurHandles() {
    static const Family family;
    return family;
}

}  // namespace corvane
