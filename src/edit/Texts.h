// What makes and changes texts. Every Insert... and Change... is one undoable step of its own; every
// Delete... belongs to the caller's step. Points are absolute page units: where the baseline begins. Texts
// are cut to their most bytes.
#pragma once

#include <vector>

#include "base/Status.h"
#include "edit/WindowTarn.h"
#include "model/Texts.h"

namespace corvane {

// ---- Texts at a staff and on a page

MeasureStaffText* InsertMeasureStaffText(WindowTarn& window, MeasureStaff* crossing, Point at,
                                         std::string_view text, const TextLook& look);
PageText* InsertPageText(WindowTarn& window, Page* page, Point at, std::string_view text,
                         const TextLook& look);
void ChangeMeasureStaffText(WindowTarn& window, MeasureStaffText* field, std::string_view text,
                            const TextLook& look);
void ChangePageText(WindowTarn& window, PageText* field, std::string_view text, const TextLook& look);
void DeleteMeasureStaffText(WindowTarn& window, MeasureStaffText* text);
void DeletePageText(WindowTarn& window, PageText* text);
// It stands at its own staff alone; belongs to the caller's step.
void DropTextMarks(MeasureStaffText* text);
// The text is repeated at the other staves of its system, or stands at its own alone.
void ChangeTextStaves(WindowTarn& window, MeasureStaffText* text, bool allStaves);

// How new texts look: expression marks at a staff are slanted, texts on the page upright.
TextLook StaffTextLook(const Document* document);
TextLook PageTextLook(const Document* document);

}  // namespace corvane
