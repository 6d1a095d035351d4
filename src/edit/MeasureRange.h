// Measures by their numbers over the score, as commands name them.
#pragma once

#include <vector>

#include "edit/CommandArguments.h"
#include "edit/WindowTarn.h"
#include "model/Par.h"

namespace corvane {

// Consecutive measures, both included.
struct MeasureRange {
    Measure *first = nullptr, *last = nullptr;
};

// From the first to the last measure of some notes, events or crossings, in any order; null for none.
template <class Object>
MeasureRange SpanOf(const std::vector<Object*>& objects) {
    MeasureRange range;
    for (const Object* object : objects) {
        Measure* measure = MeasurePar(object);
        if (!range.first || measure->_number < range.first->_number) range.first = measure;
        if (!range.last || measure->_number > range.last->_number) range.last = measure;
    }
    return range;
}

// Null for a page without measures.
Measure* FirstMeasure(const Page* page);
// The measure of that number over the score; null for none. Cost: the pages between the shown one and its
// own.
Measure* MeasureOfNumber(const WindowTarn& window, int number);

// The measures in which anything is selected; none where nothing is.
MeasureRange SelectedMeasures(WindowTarn& window);
// Where a command works that is not told: those, else that of the caret; none for neither.
MeasureRange MeasuresAtHand(WindowTarn& window);

// Where a play starts: at the first selected measure, else at the caret's where it is shown, else, with null,
// at the score's first.
Measure* PlayStart(WindowTarn& window);

// What the argument `name` names, refused where no measure has the number. Where it is missing and not
// required: the first selected measure, else that of the caret, else refused too.
Measure* ReadMeasure(ArgumentReader& reader, WindowTarn& window, const char* name);

// `from` and `to`, in either order. Without `from` the measures of the selection, of the caret else. Without
// `to` `last` is null, so that the command tells how far it reaches; with neither, the selection's last.
MeasureRange ReadRange(ArgumentReader& reader, WindowTarn& window);

// The crossings of one staff from a measure on, up to the last one; null behind the end of the score.
inline bool IsWithin(const MeasureRange& range, const Measure* measure) {
    return measure && measure->_number >= range.first->_number && measure->_number <= range.last->_number;
}

}  // namespace corvane
