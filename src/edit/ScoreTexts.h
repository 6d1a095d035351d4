// Texts of a score as a whole: its title, the names of its staves, the numbers of its measures. Each is one
// undoable step of its own; texts are cut to their most bytes.
#pragma once

#include <string_view>

#include "base/Status.h"
#include "edit/WindowTarn.h"
#include "layout/MeasureNumbers.h"

namespace corvane {

// An empty one takes it away.
void ChangeTitle(WindowTarn& window, std::string_view title);

// The name at the first system and the one at all others, "" for the same and for none there. Systems get and
// lose the room for their names; linear in the systems.
Status ChangeStaffName(WindowTarn& window, DocStaff* staff, std::string_view name,
                       std::string_view shortName);

struct MeasureNumbering {
    bool shown = true;
    Numbering numbering = Numbering::EachSystem;
    int step = 1;  // measures from a number to the next, where they are counted
    NumberStaves staves = NumberStaves::Top;
    int first = 1;  // the number of the first measure
};
void ChangeMeasureNumbers(WindowTarn& window, const MeasureNumbering& numbering);
MeasureNumbering MeasureNumberingOf(const Document* document);

}  // namespace corvane
