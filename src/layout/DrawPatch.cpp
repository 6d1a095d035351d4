#include "layout/DrawPatch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "layout/DrawFamilies.h"

namespace corvane {
namespace {

// What is long and thin, and arches over other things, is hit near its line only.
enum class Hits { Rectangle, Outline, Never };
enum class When { InOrder, Late };

constexpr int32_t kReach = 30;  // of a press beside a line, page units

double DistanceFrom(Point a, Point b, Point p) {
    const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
    const double along = square > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / square : 0;
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

bool LineMeetsRegion(const GraphicPort& port, const std::vector<Point>& line, const WRegion& region) {
    for (size_t i = 1; i < line.size(); ++i) {
        const Point a = line[i - 1], b = line[i];
        const int32_t steps = std::max(std::abs(b.x - a.x), std::abs(b.y - a.y)) / kReach + 1;
        for (int32_t step = 0; step <= steps; ++step) {
            const int32_t x = a.x + (b.x - a.x) * step / steps, y = a.y + (b.y - a.y) * step / steps;
            if (port.RectMeetsRegion(region, {x, y, x + 1, y + 1})) return true;
        }
    }
    return false;
}

// A class by its overloads of InkOf, Paint and, where it has them, OutlineOf, Touches and VoiceNumberOf.
// `Base` is what they take.
template <class R, class Base, Hits kHits, When kWhen>
class RecordBehaviour : public PatchBehaviour {
public:
    void Draw(GraphicPort& port, void* object, const DrawContext& context) const override {
        Paint(port, Of(object), context);
    }
    Rect Bounds(const void* object) const override { return InkOf(Of(object)); }
    bool Hit(const void* object, Point p) const override {
        if constexpr (requires(const R& r) { Touches(r, p); })
            return Touches(Of(object), p);
        else if constexpr (kHits == Hits::Outline)
            return IsNearLine(OutlineOf(Of(object)), p);
        else
            return kHits == Hits::Rectangle && PatchBehaviour::Hit(object, p);
    }
    bool HitRegion(const GraphicPort& port, const void* object, const WRegion& region) const override {
        if constexpr (kHits == Hits::Outline)
            return LineMeetsRegion(port, OutlineOf(Of(object)), region);
        else
            return kHits == Hits::Rectangle && PatchBehaviour::HitRegion(port, object, region);
    }
    std::vector<Point> Outline(const void* object) const override {
        if constexpr (requires(const R& r) { OutlineOf(r); })
            return OutlineOf(Of(object));
        else
            return {};
    }
    bool IsLate() const override { return kWhen == When::Late; }
    int VoiceOf(const void* object) const override {
        if constexpr (requires(const R& r) { VoiceNumberOf(r); })
            return VoiceNumberOf(Of(object));
        else
            return 0;
    }
    int16_t ClassNumber() const override { return R::kClass; }

private:
    static const Base& Of(const void* object) { return *static_cast<const R*>(object); }
};

struct Row {
    int16_t number;
    const PatchBehaviour* behaviour;
};

template <class R, Hits kHits = Hits::Rectangle, When kWhen = When::InOrder, class Base = R>
Row RowOf() {
    static const RecordBehaviour<R, Base, kHits, kWhen> behaviour;
    return {R::kClass, &behaviour};
}

template <class Sign>
Row SignRow() {
    return RowOf<Sign, Hits::Rectangle, When::InOrder, SymbolAttribute>();
}

constexpr size_t kClasses = 112;

// The drawn classes. What spans whole staves is never hit: a press there is meant for what stands on them.
std::array<const PatchBehaviour*, kClasses> MakeTable() {
    std::array<const PatchBehaviour*, kClasses> table{};
    for (const Row& row : {
             RowOf<SimpleStaff, Hits::Never, When::InOrder, Staff>(),
             RowOf<StaffBot, Hits::Never, When::InOrder, Staff>(),
             RowOf<Measure, Hits::Never>(),
             RowOf<MultiMeasure, Hits::Never, When::InOrder, Measure>(),
             RowOf<Connection, Hits::Never>(),
             RowOf<StaticClaf>(),
             RowOf<MovingClaf>(),
             RowOf<ClafSignature>(),
             RowOf<TimeSignature>(),
             RowOf<ChordSymbol>(),
             RowOf<Pause>(),
             RowOf<Accident, Hits::Rectangle, When::Late>(),
             RowOf<Dot>(),
             RowOf<BeamMarker, Hits::Outline>(),
             RowOf<MarkValue, Hits::Outline>(),
             RowOf<MarkIrreg, Hits::Outline>(),
             RowOf<MarkSlur, Hits::Outline>(),
             RowOf<MarkHairpin, Hits::Outline>(),
             RowOf<MarkOttava, Hits::Outline>(),
             RowOf<MarkTrillo, Hits::Outline>(),
             RowOf<MarkPedale, Hits::Outline>(),
             RowOf<Time>(),
             RowOf<MarkEndings>(),
             RowOf<Coda>(),
             RowOf<SimboliVari>(),
             RowOf<Arpeggio, Hits::Outline>(),
             RowOf<MultiPause>(),
             RowOf<PageText>(),
             RowOf<MeasureStaffText>(),
             RowOf<Document>(),
             RowOf<Liriche>(),
             RowOf<Dinamiche>(),
             RowOf<Tremolo>(),
             SignRow<Mordente>(),
             SignRow<Gruppetto>(),
             SignRow<ArcoGiu>(),
             SignRow<ArcoSu>(),
             SignRow<SuonoAperto>(),
             SignRow<SuonoChiuso>(),
             SignRow<Armonico>(),
             SignRow<Circonflesso>(),
             SignRow<Respiro>(),
             SignRow<Tilde>(),
             SignRow<Pizzicato>(),
             SignRow<BartokSup>(),
             SignRow<BartokInf>(),
             SignRow<Articolazione>(),
             SignRow<Diteggiatura>(),
             SignRow<Corona>(),
             SignRow<Ornamenti>(),
         })
        table[static_cast<size_t>(row.number)] = row.behaviour;
    return table;
}

}  // namespace

bool PatchBehaviour::HitRegion(const GraphicPort& port, const void* object, const WRegion& region) const {
    return port.RectMeetsRegion(region, Bounds(object));
}

DrawPatch PatchOf(void* record) {
    static const std::array<const PatchBehaviour*, kClasses> table = MakeTable();
    if (!record) return {};
    const auto number = static_cast<size_t>(static_cast<const BehaviourWord*>(record)->ClassNumber());
    const PatchBehaviour* behaviour = number < kClasses ? table[number] : nullptr;
    return behaviour ? DrawPatch(record, behaviour) : DrawPatch();
}

// ---- Helpers of the families

bool IsNearLine(const std::vector<Point>& line, Point p) {
    for (size_t i = 1; i < line.size(); ++i)
        if (DistanceFrom(line[i - 1], line[i], p) < kReach) return true;
    return false;
}

bool UseHiddenColour(GraphicPort& port, const HiddenRule& rule, bool printing) {
    if (printing ? rule.hideInPrint : !rule.show) return false;
    port.SetColor(printing ? kBlack : kGrey);
    return true;
}

void PaintUpright(GraphicPort& port, int32_t x, int32_t top, int32_t bottom, int32_t weight) {
    port.SetPenSize(weight, weight);
    port.DrawLine(x + weight / 2, top, x + weight / 2, bottom);
}

void PaintLevel(GraphicPort& port, int32_t left, int32_t right, int32_t y, int32_t weight) {
    port.SetPenSize(weight, weight);
    port.DrawLine(left, y, right, y);
}

}  // namespace corvane
