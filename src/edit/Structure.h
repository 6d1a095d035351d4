// Adding and removing pages, measures and staves, and dealing measures and systems out anew. Each function is
// one undoable step with its layout, and refuses with a sentence what makes no sense, before it begins. A
// step touches what it changes and the numbers behind that, nothing else of the score.
#pragma once

#include "edit/MeasureRange.h"
#include "edit/WindowTarn.h"

namespace corvane {

// Above these a dialog asks before it goes on.
inline constexpr int kManyMeasures = 15, kManySystems = 15;
// As many staves can be added at once.
inline constexpr int kMostNewStaves = 16;

// Pages behind a page, or in front where it is null; each like that page, or like the first, with as many
// systems and empty measures.
Status AddPages(WindowTarn& window, int count, Page* behind);
// Empty measures behind a measure in its system, or at the start of the score where it is null, in the meter
// and the key that hold there. Their system shares its width anew. Ties and beams do not reach over them,
// endings and all other spanners do; the final barline stays at the end.
Status AddMeasures(WindowTarn& window, int count, Measure* behind);
// `count` times the staves of a letter of a staff string (S, D, B, E) below a staff, or on top where it is
// null.
Status AddStaffs(WindowTarn& window, char type, int count, DocStaff* behind);

// From `first` to `last` in score order, both included. What stands behind is read as before: meters, clefs
// and keys of what goes are said there again where they would be lost. Systems that lose measures share their
// width anew, emptied systems and pages go.
Status RemoveMeasures(WindowTarn& window, const MeasureRange& range);
// With all that stands on them; nothing moves to other pages.
Status RemovePages(WindowTarn& window, Page* first, Page* last);
// A brace or bracket shrinks to the staves that stay, or goes with all but one.
Status RemoveStaffs(WindowTarn& window, DocStaff* first, DocStaff* last);

// `count` measures to a system, for the systems of two measures and those between.
Status FlowMeasures(WindowTarn& window, int count, const MeasureRange& range);
// `count` systems to a page, from a page on. The first page, and each one up to `lastFilled` where that is no
// null, is filled with new systems of `measures` measures, 0 for as many as a new score has.
Status FlowSystems(WindowTarn& window, int count, Page* first, const Page* lastFilled, int measures);
// Equal bands for the systems of pages, their staves spread over them; or the staves of their systems only.
Status AutocenterSystems(WindowTarn& window, Page* first, Page* last);
Status AutocenterStaves(WindowTarn& window, Page* first, Page* last);

}  // namespace corvane
