#include "layout/CourtesySigns.h"

#include <algorithm>
#include <vector>

#include "layout/BarlineShapes.h"
#include "layout/Frames.h"
#include "layout/Glyphs.h"
#include "layout/MovingClefs.h"
#include "layout/SignRecords.h"
#include "layout/SpacingHeader.h"
#include "layout/SymbolInk.h"
#include "layout/TimeSigns.h"
#include "model/Clefs.h"
#include "model/Par.h"
#include "model/SymbolMaker.h"
#include "model/SymbolNames.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int32_t kBehindAll = 1001;  // per mille

// What one staff is told.
struct StaffCourtesy {
    const Staff* staff = nullptr;
    const StaticClaf* clef = nullptr;
    SymbolDesign key;  // without parts where the key goes on
    const TimeSignature* time = nullptr;

    int32_t Distance() const { return staff->_lineDistance; }
};

// Ink and painting of a key that is no symbol of the document.
Rect InkOfDesign(const SymbolDesign& design, Point at, int32_t lineDistance) {
    Rect ink;
    for (const SymbolPart& part : design.parts) ink = Union(ink, InkOfGlyph(part.glyph, at, lineDistance));
    return ink;
}
void PaintDesign(GraphicPort& port, const SymbolDesign& design, Point at, int32_t lineDistance) {
    for (const SymbolPart& part : design.parts) PaintGlyph(port, part.glyph, at, lineDistance);
}

StaffCourtesy CourtesyOf(const MeasureStaff* crossing, const MeasureStaff* next) {
    StaffCourtesy courtesy{crossing->_staff, nullptr, {}, nullptr};
    if (ShowsTimeSignatures(DocumentPar(next))) courtesy.time = SignOf<TimeSignature>(next);
    const auto* clef = SignOf<StaticClaf>(next);
    if (clef && clef->_code != ClefInForce(crossing, kBehindAll)) courtesy.clef = clef;
    const auto* key = SignOf<ClafSignature>(next);
    const int before = KeyInForce(crossing);
    if (key && key->_key - 7 != before)
        courtesy.key =
            DesignSymbol(DocumentPar(next), KeySignatureName(ClefInForce(next, 0), key->_key - 7, before));
    return courtesy;
}

// Of all staves, with the columns behind the barline, counted from it.
struct Courtesy {
    std::vector<StaffCourtesy> staves;
    int32_t key = 0, time = 0, width = 0;
};

Courtesy CourtesyOf(const Measure* measure) {
    Courtesy all;
    const Measure* next = systemMeasures.Next(measure) ? nullptr : NextMeasure(measure);
    if (!next || measure->_barline == BarlineKind::Final) return all;
    int32_t keyWidth = 0, timeWidth = 0;
    for (const MeasureStaff* crossing : measureStaffs.Of(measure)) {
        const MeasureStaff* there = NextOnStaff(crossing);
        if (!crossing->_staff.Get() || !there || MeasurePar(there) != next) continue;
        StaffCourtesy one = CourtesyOf(crossing, there);
        keyWidth = std::max(keyWidth, InkOfDesign(one.key, {}, one.Distance()).Width());
        if (one.time) timeWidth = std::max(timeWidth, InkOfTime(*one.time, {}, one.Distance()).Width());
        all.staves.push_back(std::move(one));
    }
    const SpacingGaps gaps = GapsOf(DocumentPar(measure));
    const auto column = [&all](int32_t width, int32_t gap) {
        const int32_t place = all.width + gap;
        if (width) all.width = place + width;
        return place;
    };
    all.key = column(keyWidth, gaps.clefKey);
    all.time = column(timeWidth, gaps.keyTime);
    if (all.width) all.width += gaps.clefKey / 2;
    return all;
}

int32_t BarlineOf(const Measure* measure) { return OriginOf(SystemPar(measure)).x + measure->_right; }

// Where a column of a staff is drawn: on its middle line.
Point MiddleAt(const StaffFrame& frame, int32_t x) { return {x, frame.YOfLine(frame.lineCount)}; }

Point ClefPlace(const StaffCourtesy& one, const StaffFrame& frame, const Measure* measure) {
    const Rect ink = InkOf(one.clef->_symbol, Point{}, frame.lineDistance, kMovingClefPercent);
    const int32_t gap = kClefBeforeBarline * frame.lineDistance / 100;
    return {BarlineOf(measure) - EndBarlineWidth(measure) - gap - ink.right,
            frame.YOfLine(ClefLine(one.clef->_code, frame.lineCount))};
}

}  // namespace

int32_t CourtesyWidth(const System* system) {
    const Measure* last = systemMeasures.Last(system);
    return last ? CourtesyOf(last).width : 0;
}

Rect InkOfCourtesy(const Measure* measure) {
    const Courtesy all = CourtesyOf(measure);
    const int32_t barline = all.staves.empty() ? 0 : BarlineOf(measure);
    Rect ink;
    for (const StaffCourtesy& one : all.staves) {
        const StaffFrame frame = FrameOf(one.staff);
        ink = Union(ink, InkOfDesign(one.key, MiddleAt(frame, barline + all.key), frame.lineDistance));
        if (one.time)
            ink = Union(ink, InkOfTime(*one.time, MiddleAt(frame, barline + all.time), frame.lineDistance));
        if (one.clef)
            ink = Union(ink, InkOf(one.clef->_symbol, ClefPlace(one, frame, measure), frame.lineDistance,
                                   kMovingClefPercent));
    }
    return ink;
}

void PaintCourtesy(GraphicPort& port, const Measure* measure) {
    const Courtesy all = CourtesyOf(measure);
    const int32_t barline = all.staves.empty() ? 0 : BarlineOf(measure);
    for (const StaffCourtesy& one : all.staves) {
        const StaffFrame frame = FrameOf(one.staff);
        PaintDesign(port, one.key, MiddleAt(frame, barline + all.key), frame.lineDistance);
        if (one.time) PaintTime(port, *one.time, MiddleAt(frame, barline + all.time), frame.lineDistance);
        if (!one.clef) continue;
        const Point at = ClefPlace(one, frame, measure);
        DrawSymbol(port, one.clef->_symbol, at.x, at.y, frame.lineDistance, kMovingClefPercent);
    }
}

}  // namespace corvane
