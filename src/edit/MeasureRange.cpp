#include "edit/MeasureRange.h"

#include <utility>

#include "edit/TarnSelect.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int kMostMeasures = 1 << 24;

bool StartsBehind(const Page* page, int number) {
    const Measure* first = FirstMeasure(page);
    return first && first->_number > number;
}

Measure* OnPage(const Page* page, int number) {
    for (const System* system : pageSystems.Of(page)) {
        const Measure* last = systemMeasures.Last(system);
        if (!last || last->_number < number) continue;
        for (Measure* measure : systemMeasures.Of(system))
            if (measure->_number == number) return measure;
    }
    return nullptr;
}

}  // namespace

Measure* FirstMeasure(const Page* page) {
    for (const System* system : pageSystems.Of(page))
        if (Measure* measure = systemMeasures.First(system)) return measure;
    return nullptr;
}

MeasureRange SelectedMeasures(WindowTarn& window) {
    SetSelectionAnchors(window);
    const MeasureRange range = SpanOf(SelectedMeasureStaffs());
    ClearSelectionAnchors();
    return range;
}

MeasureRange MeasuresAtHand(WindowTarn& window) {
    MeasureRange range = SelectedMeasures(window);
    if (!range.first) range.first = range.last = window.caret.measure;
    return range;
}

Measure* PlayStart(WindowTarn& window) {
    if (Measure* selected = SelectedMeasures(window).first) return selected;
    return window.caret.visible ? window.caret.measure : nullptr;
}

Measure* MeasureOfNumber(const WindowTarn& window, int number) {
    const Page* page = window.CurrentPage();
    while (page && StartsBehind(page, number)) page = documentPages.Prev(page);
    for (; page; page = documentPages.Next(page)) {
        if (Measure* measure = OnPage(page, number)) return measure;
        if (StartsBehind(page, number)) return nullptr;
    }
    return nullptr;
}

Measure* ReadMeasure(ArgumentReader& reader, WindowTarn& window, const char* name) {
    if (!reader.Has(name))
        if (Measure* here = MeasuresAtHand(window).first) return here;
    Measure* measure = MeasureOfNumber(window, reader.Number(name, 1, kMostMeasures));
    if (!measure) reader.Refuse("there is no measure " + reader.Text(name, "here"));
    return measure;
}

MeasureRange ReadRange(ArgumentReader& reader, WindowTarn& window) {
    MeasureRange range;
    if (!reader.Has("from") && !reader.Has("to")) range = MeasuresAtHand(window);
    if (!range.first) {
        range.first = ReadMeasure(reader, window, "from");
        if (reader.Has("to")) range.last = ReadMeasure(reader, window, "to");
    }
    if (range.first && range.last && range.first->_number > range.last->_number)
        std::swap(range.first, range.last);
    return range;
}

}  // namespace corvane
