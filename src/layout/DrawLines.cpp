// Octave lines, trill lines and pedal lines.
#include <algorithm>

#include "layout/DrawFamilies.h"
#include "layout/LineWeights.h"
#include "layout/SpannerLines.h"
#include "layout/SymbolInk.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

// Hundredths of a line distance: dashes and the gaps between them, hooks, what a line keeps from its sign.
constexpr int32_t kDash = 90, kGap = 60, kHook = 90, kFromSign = 35, kTogether = 4;
constexpr int32_t kWeight = 13;

struct Sign {
    const FontSymbol* symbol = nullptr;
    Point at;  // the left edge of its ink, on its baseline
    Rect ink;

    Sign() = default;
    Sign(const FontSymbol* theSymbol, Point place, int32_t lineDistance)
        : symbol(theSymbol), at(place), ink(InkOf(theSymbol, place, lineDistance, 100)) {}
    void Paint(GraphicPort& port, int32_t lineDistance) const {
        if (symbol) DrawSymbol(port, symbol, at.x, at.y, lineDistance, 100);
    }
};

// ---- Octave lines: the sign, a dashed line at its outer edge, at the end a hook towards the staff. A
// further system begins with the sign anew.

struct OctaveLine {
    Sign sign;
    int32_t left = 0, right = 0, y = 0, hook = 0;  // downward; 0 for none
    int32_t weight = 0, dash = 1, gap = 1, lineDistance = 0;

    Rect Ink() const {
        const Rect line = Rect{left, y, right, y + hook}.Normalised().GrownBy((weight + 1) / 2);
        return right > left ? Union(sign.ink, line) : sign.ink;
    }
};

OctaveLine LineOf(const Ottava* ottava, const SpannerPart& part, const LineRun& run) {
    if (!part || !ottava || !ottava->_symbol.Get()) return {};
    const LinePlace place = PlaceOf(part, run);
    OctaveLine line;
    line.lineDistance = part.staff.lineDistance;
    line.sign = Sign(ottava->_symbol, {place.left, place.y}, line.lineDistance);
    line.weight = WeightOf(kWeight, line.lineDistance);
    line.dash = std::max(1, part.Hundredths(kDash));
    line.gap = std::max(1, part.Hundredths(kGap));
    line.left = line.sign.ink.right + part.Hundredths(kFromSign);
    line.right = place.right;
    const bool below = IsBelow(ottava);
    line.y = below ? line.sign.ink.bottom - line.weight / 2 : line.sign.ink.top + line.weight / 2;
    if (part.ends) line.hook = part.Hundredths(below ? -kHook : kHook);
    return line;
}
OctaveLine LineOf(const MarkOttava& mark) {
    return LineOf(ottavaMarks.ParentOf(&mark), PartOf(&mark), RunOf(&mark));
}

void Paint(GraphicPort& port, const OctaveLine& line) {
    line.sign.Paint(port, line.lineDistance);
    if (line.right <= line.left) return;
    const PenKept kept(port);
    port.SetPenSize(line.weight, line.weight);
    // From the right, so that a whole dash meets the hook.
    for (int32_t x = line.right; x > line.left; x -= line.dash + line.gap)
        port.DrawLine(std::max(line.left, x - line.dash), line.y, x, line.y);
    if (line.hook) port.DrawLine(line.right, line.y, line.right, line.y + line.hook);
}

// ---- Trill lines: the sign, then waves.

struct TrillLine {
    Sign sign;
    std::vector<Sign> waves;
    int32_t lineDistance = 0;

    Rect Ink() const {
        Rect ink = sign.ink;
        if (!waves.empty()) ink = Union(Union(ink, waves.front().ink), waves.back().ink);
        return ink;
    }
};

TrillLine LineOf(const Trillo* trill, const SpannerPart& part, const LineRun& run) {
    if (!part || !trill) return {};
    const LinePlace place = PlaceOf(part, run);
    TrillLine line;
    line.lineDistance = part.staff.lineDistance;
    int32_t x = place.left, middle = place.y - part.Hundredths(50);
    if (part.begins && trill->_symbol.Get()) {
        line.sign = Sign(trill->_symbol, {place.left, place.y}, line.lineDistance);
        x = line.sign.ink.right + part.Hundredths(kFromSign) / 2;
    }
    if (!trill->_bracket.Get()) return line;
    const Rect wave = InkOf(trill->_bracket.Get(), Point{}, line.lineDistance, 100);
    const int32_t step = std::max(1, wave.Width() - part.Hundredths(kTogether));
    const int32_t baseline = middle - (wave.top + wave.bottom) / 2;
    for (; x + wave.Width() <= place.right; x += step)
        line.waves.emplace_back(trill->_bracket, Point{x, baseline}, line.lineDistance);
    return line;
}
TrillLine LineOf(const MarkTrillo& mark) {
    return LineOf(trilloMarks.ParentOf(&mark), PartOf(&mark), RunOf(&mark));
}

void Paint(GraphicPort& port, const TrillLine& line) {
    line.sign.Paint(port, line.lineDistance);
    for (const Sign& wave : line.waves) wave.Paint(port, line.lineDistance);
}

// ---- Pedal lines: a line with a hook up at either end of the whole.

struct PedalLine {
    LinePlace place;
    bool begins = false, ends = false;
    int32_t hook = 0, weight = 0;
};

PedalLine LineOf(const Pedale* pedal, const SpannerPart& part, const LineRun& run) {
    if (!part || !pedal) return {};
    return {PlaceOf(part, run), part.begins, part.ends, part.Hundredths(kHook),
            WeightOf(kWeight, part.staff.lineDistance)};
}
PedalLine LineOf(const MarkPedale& mark) {
    return LineOf(pedaleMarks.ParentOf(&mark), PartOf(&mark), RunOf(&mark));
}

void Paint(GraphicPort& port, const PedalLine& line) {
    if (line.place.IsEmpty()) return;
    const PenKept kept(port);
    const LinePlace& p = line.place;
    port.SetPenSize(line.weight, line.weight);
    port.DrawLine(p.left, p.y, p.right, p.y);
    if (line.begins) port.DrawLine(p.left, p.y - line.hook, p.left, p.y);
    if (line.ends) port.DrawLine(p.right, p.y - line.hook, p.right, p.y);
}

}  // namespace

Rect InkOf(const MarkOttava& mark) { return LineOf(mark).Ink(); }

void Paint(GraphicPort& port, const MarkOttava& mark, const DrawContext&) { Paint(port, LineOf(mark)); }
void Paint(GraphicPort& port, const MarkOttava& mark, const SpannerPart& part, const LineRun& run) {
    Paint(port, LineOf(ottavaMarks.ParentOf(&mark), part, run));
}

std::vector<Point> OutlineOf(const MarkOttava& mark) {
    const OctaveLine line = LineOf(mark);
    if (!line.sign.symbol) return {};
    const int32_t middle = (line.sign.ink.top + line.sign.ink.bottom) / 2;
    return {{line.sign.ink.left, middle},
            {line.sign.ink.right, middle},
            {line.left, line.y},
            {std::max(line.left, line.right), line.y}};
}

Rect InkOf(const MarkTrillo& mark) { return LineOf(mark).Ink(); }

void Paint(GraphicPort& port, const MarkTrillo& mark, const DrawContext&) { Paint(port, LineOf(mark)); }
void Paint(GraphicPort& port, const MarkTrillo& mark, const SpannerPart& part, const LineRun& run) {
    Paint(port, LineOf(trilloMarks.ParentOf(&mark), part, run));
}

std::vector<Point> OutlineOf(const MarkTrillo& mark) {
    const Rect ink = LineOf(mark).Ink();
    const int32_t middle = (ink.top + ink.bottom) / 2;
    return ink.IsEmpty() ? std::vector<Point>{} : std::vector<Point>{{ink.left, middle}, {ink.right, middle}};
}

Rect InkOf(const MarkPedale& mark) {
    const PedalLine line = LineOf(mark);
    if (line.place.IsEmpty()) return {};
    const int32_t hook = line.begins || line.ends ? line.hook : 0;
    return Rect{line.place.left, line.place.y - hook, line.place.right, line.place.y}.GrownBy(
        (line.weight + 1) / 2);
}

void Paint(GraphicPort& port, const MarkPedale& mark, const DrawContext&) { Paint(port, LineOf(mark)); }
void Paint(GraphicPort& port, const MarkPedale& mark, const SpannerPart& part, const LineRun& run) {
    Paint(port, LineOf(pedaleMarks.ParentOf(&mark), part, run));
}

std::vector<Point> OutlineOf(const MarkPedale& mark) {
    const PedalLine line = LineOf(mark);
    if (line.place.IsEmpty()) return {};
    return {{line.place.left, line.place.y}, {line.place.right, line.place.y}};
}

}  // namespace corvane
