// Barlines at the edges of a measure, the line that opens a system of several staves, and what stands at its
// end.
#include <algorithm>
#include <vector>

#include "layout/BarlineShapes.h"
#include "layout/CourtesySigns.h"
#include "layout/DrawFamilies.h"
#include "layout/Frames.h"
#include "layout/LineWeights.h"
#include "layout/MeasureNumbers.h"
#include "layout/PageLayout.h"
#include "layout/SpacingHeader.h"
#include "model/Par.h"

namespace corvane {
namespace {

struct Span {
    int32_t top, bottom;
};

// What barlines cover of one staff: from the top line's upper edge to the bottom line's lower edge. A single
// line has no height, so they reach a space beyond it.
Span SpanOf(const Staff* staff) {
    const StaffFrame frame = FrameOf(staff);
    const int32_t beyond = frame.lineCount > 1 ? StaffLineWeight(frame.lineDistance) / 2 : frame.lineDistance;
    return {frame.top - beyond, frame.Bottom() + beyond};
}

// Of each group of staves that barlines run through.
std::vector<Span> SpansOf(const System* system, const std::vector<Staff*>& staffs) {
    std::vector<bool> joined(staffs.size(), false);  // with the staff above
    for (const Connection* connection : systemConnections.Of(system)) {
        const ConnStaff *first = connectionStaffs.First(connection),
                        *last = connectionStaffs.Last(connection);
        if (!first || !last) continue;
        const auto begin = std::find(staffs.begin(), staffs.end(), staffConnections.ParentOf(first));
        const auto end = std::find(begin, staffs.end(), staffConnections.ParentOf(last));
        if (begin == staffs.end() || end == staffs.end()) continue;
        for (auto i = begin; i != end; ++i) joined[static_cast<size_t>(i - staffs.begin()) + 1] = true;
    }
    std::vector<Span> spans;
    for (size_t i = 0; i < staffs.size(); ++i) {
        const Span span = SpanOf(staffs[i]);
        if (joined[i])
            spans.back().bottom = span.bottom;
        else
            spans.push_back(span);
    }
    return spans;
}

// One upright line of a barline: its left edge counts from the measure's edge.
struct Bar {
    int32_t left, weight;
    bool dashed = false;
};

// Everything that one measure draws, in absolute page units.
struct BarlinePicture {
    std::vector<Span> spans;
    std::vector<Bar> bars;      // through every span
    std::vector<Rect> dots;     // of repeats
    std::vector<Rect> opening;  // the system's opening line, or none
    int32_t lineDistance = 0;

    Rect Ink() const {
        Rect all;
        for (const Span& span : spans)
            for (const Bar& bar : bars)
                all = Union(all, {bar.left, span.top, bar.left + bar.weight, span.bottom});
        for (const Rect& dot : dots) all = Union(all, dot);
        for (const Rect& line : opening) all = Union(all, line);
        return all;
    }
};

// How far the dots of a repeat stand from the middle of a staff: in spaces, whatever the count of lines; two
// lines have only the one.
int32_t DotDistance(const StaffFrame& frame) {
    if (frame.lineCount == 2) return frame.lineDistance / 4;
    return frame.lineCount % 2 ? frame.lineDistance / 2 : frame.lineDistance;
}

// The two dots of a repeat on each staff, their left edge at x.
void AddDots(BarlinePicture& picture, const std::vector<Staff*>& staffs, int32_t x) {
    for (const Staff* staff : staffs) {
        const StaffFrame frame = FrameOf(staff);
        const int32_t middle = (frame.top + frame.Bottom()) / 2, size = frame.lineDistance * 2 / 5;
        for (const int32_t side : {-1, 1}) {
            const int32_t top = middle + side * DotDistance(frame) - size / 2;
            picture.dots.push_back({x, top, x + size, top + size});
        }
    }
}

// The repeat sign takes the barline's place, but for one behind clefs, keys and time signatures.
bool OpensWithRepeat(const Measure* measure) {
    return measure && measure->_startRepeat && PlacesOf(measure).repeat == 0;
}
bool EndsThick(const Measure* measure) {
    return measure && (measure->_endRepeat || measure->_barline == BarlineKind::Final);
}

// At the right edge; the last bar ends there. A repeat that starts behind it stands for a thin barline.
void AddEnd(BarlinePicture& picture, const Measure* measure, const std::vector<Staff*>& staffs, int32_t right,
            const BarlineWeights& w) {
    if (EndsThick(measure)) {
        const int32_t thin = right - w.thick - w.gap - w.thin;
        picture.bars.push_back({thin, w.thin});
        picture.bars.push_back({right - w.thick, w.thick});
        if (measure->_endRepeat) AddDots(picture, staffs, thin - w.gap - w.DotSize());
        return;
    }
    if (OpensWithRepeat(systemMeasures.Next(measure))) return;
    if (measure->_barline == BarlineKind::Double)
        picture.bars.push_back({right - 2 * w.thin - w.gap, w.thin});
    picture.bars.push_back({right - w.thin, w.thin, measure->_barline == BarlineKind::Dashed});
}

// Behind the header, or at the left edge, where the thick bar of a repeat that ends before it serves both.
void AddStartRepeat(BarlinePicture& picture, const Measure* measure, const std::vector<Staff*>& staffs,
                    int32_t left, const BarlineWeights& w) {
    left += PlacesOf(measure).repeat;
    if (!OpensWithRepeat(measure) || !EndsThick(systemMeasures.Prev(measure))) {
        picture.bars.push_back({left, w.thick});
        left += w.thick;
    }
    picture.bars.push_back({left + w.gap, w.thin});
    AddDots(picture, staffs, left + 2 * w.gap + w.thin);
}

BarlinePicture PictureOf(const Measure* measure) {
    BarlinePicture picture;
    const System* system = SystemPar(measure);
    if (!system) return picture;
    const std::vector<Staff*> staffs = StaffsFromTop(system);
    if (staffs.empty()) return picture;
    picture.spans = SpansOf(system, staffs);
    picture.lineDistance = staffs.front()->_lineDistance;
    const int32_t left = OriginOf(system).x + measure->_left, right = OriginOf(system).x + measure->_right;
    const BarlineWeights weights = BarlineWeightsOf(measure, picture.lineDistance);
    if (!measure->_hiddenBarline) AddEnd(picture, measure, staffs, right, weights);
    if (measure->_startRepeat) AddStartRepeat(picture, measure, staffs, left, weights);
    if (systemMeasures.First(system) == measure && staffs.size() > 1)
        picture.opening.push_back(
            {left, picture.spans.front().top, left + weights.thin, picture.spans.back().bottom});
    return picture;
}

void PaintBar(GraphicPort& port, const Bar& bar, const Span& span, int32_t lineDistance) {
    if (!bar.dashed) return PaintUpright(port, bar.left, span.top, span.bottom, bar.weight);
    const int32_t dash = std::max(1, lineDistance / 2);
    for (int32_t y = span.top; y < span.bottom; y += 2 * dash)
        PaintUpright(port, bar.left, y, std::min(y + dash, span.bottom), bar.weight);
}

}  // namespace

Rect InkOf(const Measure& measure) {
    Rect ink = Union(PictureOf(&measure).Ink(), InkOfCourtesy(&measure));
    const NumberPicture number = NumberPictureOf(&measure);
    for (const TextPlace& place : number.places) ink = Union(ink, InkOfText(number.text, number.look, place));
    return ink;
}

void Paint(GraphicPort& port, const Measure& measure, const DrawContext&) {
    const PenKept kept(port);
    const BarlinePicture picture = PictureOf(&measure);
    for (const Span& span : picture.spans)
        for (const Bar& bar : picture.bars) PaintBar(port, bar, span, picture.lineDistance);
    for (const Rect& dot : picture.dots) port.FillEllipse(dot);
    for (const Rect& line : picture.opening)
        PaintUpright(port, line.left, line.top, line.bottom, line.Width());
    PaintCourtesy(port, &measure);
    const NumberPicture number = NumberPictureOf(&measure);
    for (const TextPlace& place : number.places) PaintText(port, number.text, number.look, place);
}

}  // namespace corvane
