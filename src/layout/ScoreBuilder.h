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

// The document of a new score in the current pool: preferences, fonts, one page with its systems, measures and staves,
// clefs, key of C and 4/4, laid out. Undo must be off.
Document* BuildNewScore(const PageLayout& layout, std::string_view staffs);

// For each letter of a staff string a request; other letters make none.
void BuildStaffs(Document* document, std::string_view staffs);
// Adds the staves of a request to every page, system and measure of the document.
void AddStaffs(Document* document, const StaffRequest& request);

Page* MakePage(Document* document, Page* behind, const Page* model);
System* MakeSystem(Page* page, System* behind, int measures);
Measure* MakeMeasure(System* system, Measure* behind);
// The crossing with one voice, linked in both ways.
MeasureStaff* MakeMeasureStaff(Measure* measure, DocStaff* docStaff, Staff* staff, MeasureStaff* behindOnStaff);
Voice* MakeVoice(MeasureStaff* measureStaff, int number);

void CenterSystems(Document* document, Page* page);      // equal bands, staves refitted
void DistributeSystems(Document* document, Page* page);  // tops only
void CenterStaves(System* system);
void AdjustPianoStaves(System* system);
// Measures of a system share its width so that their note areas are equal.
void FitMeasures(System* system);
// Numbers all measures from 1.
void NumberMeasures(Document* document);

}  // namespace corvane
