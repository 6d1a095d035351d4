// Builds scores, pages, systems and staves, and lays them out.
#pragma once

#include <string_view>

#include "model/Relations.h"

namespace corvane {

// What a score starts with.
struct PageLayout {
    int measuresPerSystem = 5;
    int systemsPerPage = 3;
};

// One entry of a staff string's letters.
struct StaffRequest {
    StaffKind kind = StaffKind::Simple;
    int16_t lineCount = 5;
    int16_t staffCount = 1;
    int16_t argument = 1;
};

// The document of a new score in the current pool: preferences, fonts, one page with its systems, measures
// and staves, clefs, key of C and 4/4, laid out. Undo must be off.
Document* BuildNewScore(const PageLayout& layout, std::string_view staffs);

// For each letter of a staff string a request: S a staff, D a braced pair, B a bass staff, E a percussion
// staff, Cmn a custom staff of n groups of m lines (digits from 1). Other letters make none. Layout is left
// to the caller.
void BuildStaffs(Document* document, std::string_view staffs);
// Staves that it makes; -1 where another letter, or digit out of place, stands in it.
int StaffCountOf(std::string_view staffs);
// Adds the staves of a request below `behind`, or on top where it is null, to every page, system and measure
// of the document, with clefs and the keys and meters in force. A custom staff is not parted: what would come
// between its line groups stands below it. The last staff made; null where a request makes none. Layout is
// left to the caller (LayOutPages in PageLayout.h).
DocStaff* AddStaffs(Document* document, const StaffRequest& request, DocStaff* behind);

// Each of these makes its object behind a sibling, or first where `behind` is null, with all that belongs to
// it: a page like its model (empty without one), a system with the staffs of its neighbour, a measure with a
// crossing for each staff, clefs and keys where it is its system's first. Layout and the numbers of later
// measures are left to the caller.
Page* MakePage(Document* document, Page* behind, const Page* model);
System* MakeSystem(Page* page, System* behind, int measures);
Measure* MakeMeasure(System* system, Measure* behind);
// The crossing with one voice, linked in both ways: behind one of its measure and one of its staff.
MeasureStaff* MakeMeasureStaff(Measure* measure, MeasureStaff* behindInMeasure, DocStaff* docStaff,
                               MeasureStaff* behindOnStaff, Staff* staff);
Voice* MakeVoice(MeasureStaff* measureStaff, int number);

void CenterSystems(Document* document, Page* page);      // equal bands, staves refitted
void DistributeSystems(Document* document, Page* page);  // tops only
// Spreads a system's staves evenly over its height, braced pairs excepted; its height becomes what they take.
void CenterStaves(System* system);
// Puts the second staff of each braced pair at the preferred distance; what stands below moves along.
void AdjustPianoStaves(System* system);
// Measures of a system share its width so that their note areas are equal, but for a unit of rounding.
void FitMeasures(System* system);
// Numbers all measures from 1.
void NumberMeasures(Document* document);

}  // namespace corvane
