// Pages and staves by their numbers, as commands name them.
#pragma once

#include "edit/CommandArguments.h"
#include "edit/WindowTarn.h"

namespace corvane {

// Consecutive ones, both included.
struct PageRange {
    Page *first = nullptr, *last = nullptr;
};
struct StaffRange {
    DocStaff *first = nullptr, *last = nullptr;
};

// Null for a number that none has.
Page* PageOfNumber(const Document* document, int number);
DocStaff* StaffOfNumber(const Document* document, int number);

// `from` and `to`, in either order, `to` being `from` where it is missing. Without both the current page, or
// the staves of the selection; without a selection staves are refused.
PageRange ReadPages(ArgumentReader& reader, const WindowTarn& window);
StaffRange ReadStaffs(ArgumentReader& reader, WindowTarn& window);

}  // namespace corvane
