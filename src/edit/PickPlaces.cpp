#include "edit/PickPlaces.h"

#include <algorithm>
#include <cstdlib>

#include "layout/NoteGeometry.h"
#include "model/Par.h"

namespace corvane {
namespace {

// What stands on a page by its marks alone.
template <class Mark, const auto& marks>
void* WholeOf(const DrawPatch& patch) {
    const Mark* mark = patch.Record<Mark>();
    return mark ? marks.ParentOf(mark) : nullptr;
}
template <class Whole, const auto& marks>
void AddMarks(const Pick& pick, std::vector<void*>& records) {
    const Whole* whole = pick.As<Whole>();
    if (whole)
        for (auto* mark : marks.Of(whole)) records.push_back(mark);
}

struct Row {
    bool (*isMark)(int16_t number);
    bool (*isWhole)(int16_t number);
    void* (*wholeOf)(const DrawPatch& patch);
    void (*addMarks)(const Pick& pick, std::vector<void*>& records);
};
template <class Whole, class Mark, const auto& marks>
constexpr Row RowOf() {
    return {IsClass<Mark>, IsClass<Whole>, WholeOf<Mark, marks>, AddMarks<Whole, marks>};
}
constexpr Row kRows[] = {
    RowOf<Hairpin, MarkHairpin, hairpinMarks>(), RowOf<Ottava, MarkOttava, ottavaMarks>(),
    RowOf<Slur, MarkSlur, slurMarks>(),          RowOf<Trillo, MarkTrillo, trilloMarks>(),
    RowOf<Pedale, MarkPedale, pedaleMarks>(),    RowOf<Endings, MarkEndings, endingsMarks>(),
    RowOf<TieValue, MarkValue, tieMarks>(),      RowOf<Irregular, MarkIrreg, irregularMarks>(),
    RowOf<Beam, BeamMarker, beamMarkers>(),
};

std::vector<void*> DrawnRecordsOf(const Pick& pick) {
    if (const auto* note = pick.As<GenericNote>()) {
        const Stem* stem = stemNotes.ParentOf(note);
        return stem ? std::vector<void*>{ChordSymbolPar(stem)} : std::vector<void*>{};
    }
    std::vector<void*> records;
    for (const Row& row : kRows)
        if (row.isWhole(pick.number)) return row.addMarks(pick, records), records;
    return {pick.record};
}

// Boxes along a line, so narrow that they follow it where it slants.
constexpr int32_t kStep = 60, kHalf = 20;

void AddAlong(const std::vector<Point>& line, std::vector<Rect>& areas) {
    for (size_t i = 1; i < line.size(); ++i) {
        const Point a = line[i - 1], b = line[i];
        const bool slants = a.x != b.x && a.y != b.y;
        const int32_t steps = slants ? std::max(std::abs(b.x - a.x), std::abs(b.y - a.y)) / kStep + 1 : 1;
        const auto at = [&](int32_t n) {
            return Point{a.x + (b.x - a.x) * n / steps, a.y + (b.y - a.y) * n / steps};
        };
        for (int32_t n = 0; n < steps; ++n) {
            const Point from = at(n), to = at(n + 1);
            areas.push_back(Rect{from.x, from.y, to.x, to.y}.Normalised().GrownBy(kHalf));
        }
    }
}

}  // namespace

void* RecordAt(const DrawPatch& patch, Point p) {
    if (const auto* column = patch.Record<ChordSymbol>()) return HeadAt(column, p);
    for (const Row& row : kRows)
        if (row.isMark(patch.ClassNumber())) return row.wholeOf(patch);
    return patch.Object();
}

std::vector<DrawPatch> PatchesOf(const WindowTarn& window, const Pick& pick) {
    std::vector<DrawPatch> patches;
    for (void* record : DrawnRecordsOf(pick))
        if (const DrawPatch patch = PatchOf(record); patch && window.Sheet().IsFiled(patch))
            patches.push_back(patch);
    return patches;
}

std::vector<Rect> AreasOf(const WindowTarn& window, const Pick& pick) {
    std::vector<Rect> areas;
    const auto* note = pick.As<GenericNote>();
    for (const DrawPatch& patch : PatchesOf(window, pick)) {
        const std::vector<Point> outline = patch.Behaviour().Outline(patch.Object());
        if (outline.empty())
            areas.push_back(note ? RectOf(note) : patch.Bounds());
        else
            AddAlong(outline, areas);
    }
    std::erase_if(areas, [](const Rect& area) { return area.IsEmpty(); });
    return areas;
}

}  // namespace corvane
