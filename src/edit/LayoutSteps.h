// Spacing of measures, and what is set up of pages, staves and gaps. Each function is one undoable step that
// lays out what it changes, and refuses with a sentence what makes no sense, before it begins. Page units
// where nothing else is said.
#pragma once

#include <optional>

#include "edit/MeasureRange.h"
#include "layout/ListaEventi.h"
#include "layout/SpacingHeader.h"

namespace corvane {

enum class SpacingMode { Mathematical, Engraver };
struct SpacingChoice {
    SpacingMode mode = SpacingMode::Engraver;
    bool allStaves = true;  // mathematical mode; else the selected voices, where there are any
    SpacingRoom room;       // engraver's mode
};
// What the score's preferences start the dialog with.
SpacingRoom PreferredRoom(const Document* document);
// From `first` to `last` in score order, both included.
Status SpaceMeasures(WindowTarn& window, const MeasureRange& range, const SpacingChoice& choice);

// What commands call the rows of the spacing table.
inline constexpr const char* kSpacingRows[] = {"2/1", "1/1", "1/2", "1/4", "1/8", "1/16", "1/32", "min"};

// Gaps of headers and around notes; headers grow and shrink at once, notes when they are spaced.
Status SetSpacingGaps(WindowTarn& window, const SpacingGaps& gaps);

// Paper of the whole score; systems keep their margins.
Status SetPageSize(WindowTarn& window, int height, int width);
// What is null stays.
struct Margins {
    std::optional<int> left, right, top, bottom;
};
Status SetMargins(WindowTarn& window, Page* first, Page* last, const Margins& margins);
// Room for staff names left of the first system.
Status SetFirstIndent(WindowTarn& window, int width);

// Line distance and count of lines of staves, and how far the next staff's top line stands below their last
// one.
struct StaffForm {
    std::optional<int> size, lines, distance;
};
Status SetStaffs(WindowTarn& window, DocStaff* first, DocStaff* last, const StaffForm& form);

}  // namespace corvane
