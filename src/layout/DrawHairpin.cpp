// Hairpins: two lines that open, or close, over all systems that they cross.
#include <algorithm>

#include "base/Rounding.h"
#include "layout/DrawFamilies.h"
#include "layout/LineWeights.h"
#include "layout/SpannerLines.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int32_t kWeight = 14;  // percent of the line distance

struct Wedge {
    LinePlace place;
    int32_t leftOpening = 0, rightOpening = 0, weight = 0;
};

// A place in the score as a number that grows evenly with measures, so that what a wedge shows on one system
// does not hang on the widths of another.
double Time(const MeasureStaff* crossing, int32_t perMille) {
    return MeasurePar(crossing)->_number + perMille / 1000.0;
}

Wedge WedgeOf(const Hairpin* hairpin, const SpannerPart& part, const LineRun& run) {
    if (!part || !hairpin) return {};
    Wedge wedge;
    wedge.place = PlaceOf(part, run);
    wedge.weight = WeightOf(kWeight, part.staff.lineDistance);
    const double start = Time(part.first, run.from), end = Time(part.last, run.to);
    const double left = part.begins ? start : systemMeasures.First(part.system)->_number.Get();
    const double right = part.ends ? end : systemMeasures.Last(part.system)->_number + 1.0;
    const auto opening = [&](double time) {
        const double grown = end > start ? std::clamp((time - start) / (end - start), 0.0, 1.0) : 1.0;
        const double share = hairpin->_kind == HairpinKind::Diminuendo ? 1 - grown : grown;
        return Round(share * run.opening * part.staff.lineDistance / 1000);
    };
    wedge.leftOpening = opening(left);
    wedge.rightOpening = opening(right);
    return wedge;
}

Wedge WedgeOf(const MarkHairpin& mark) {
    return WedgeOf(hairpinMarks.ParentOf(&mark), PartOf(&mark), RunOf(&mark));
}

void Paint(GraphicPort& port, const Wedge& wedge) {
    if (wedge.place.IsEmpty()) return;
    const PenKept kept(port);
    port.SetPenSize(wedge.weight, wedge.weight);
    for (const int32_t side : {-1, 1})
        port.DrawLine(wedge.place.left, wedge.place.y + side * wedge.leftOpening / 2, wedge.place.right,
                      wedge.place.y + side * wedge.rightOpening / 2);
}

}  // namespace

Rect InkOf(const MarkHairpin& mark) {
    const Wedge wedge = WedgeOf(mark);
    if (wedge.place.IsEmpty()) return {};
    const int32_t half = std::max(wedge.leftOpening, wedge.rightOpening) / 2;
    const Rect axis{wedge.place.left, wedge.place.y - half, wedge.place.right, wedge.place.y + half};
    return axis.GrownBy((wedge.weight + 1) / 2);
}

void Paint(GraphicPort& port, const MarkHairpin& mark, const DrawContext&) { Paint(port, WedgeOf(mark)); }
void Paint(GraphicPort& port, const MarkHairpin& mark, const SpannerPart& part, const LineRun& run) {
    Paint(port, WedgeOf(hairpinMarks.ParentOf(&mark), part, run));
}

std::vector<Point> OutlineOf(const MarkHairpin& mark) {
    const Wedge wedge = WedgeOf(mark);
    if (wedge.place.IsEmpty()) return {};
    const LinePlace& p = wedge.place;
    // There and back along both lines, and along the axis.
    return {{p.left, p.y - wedge.leftOpening / 2},
            {p.right, p.y - wedge.rightOpening / 2},
            {p.right, p.y},
            {p.left, p.y},
            {p.left, p.y + wedge.leftOpening / 2},
            {p.right, p.y + wedge.rightOpening / 2}};
}

}  // namespace corvane
