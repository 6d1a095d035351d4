// How measures flow over systems and systems over pages. What is dealt out anew keeps its music, clefs, keys
// and meters; systems without measures and pages without systems go, with the texts of those pages. All
// changed systems and pages are laid out.
#pragma once

#include "model/Relations.h"

namespace corvane {

inline constexpr int kNewSystemMeasures = 3;  // of a system that fills a page

// The measures of the systems from `first` to `last`, over pages, stand `perSystem` to a system. Where that
// makes more systems than the last page held, new pages like it follow.
void SetMeasuresPerSystem(Document* document, System* first, System* last, int perSystem);

// All systems from the page `first` on stand `perPage` to a page, on as many pages as they need. The first
// page, and each one up to the number `lastFilled`, is filled with new systems of `measures` measures. The
// score has a system somewhere up to the end of `first`, or behind it.
void SetSystemsPerPage(Document* document, Page* first, int lastFilled, int perPage,
                       int measures = kNewSystemMeasures);

// Numbers what stands behind a place that changed, up to the first that is right.
void RenumberMeasures(Measure* first);
void RenumberPages(Document* document);

// Shares a page among its systems after some came or went: tops only where all find room, else staves too.
void RefitSystems(Document* document, Page* page);

}  // namespace corvane
