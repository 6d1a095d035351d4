// The records that every new measure, staff or system needs, beyond what ScoreBuilder.h offers.
#pragma once

#include <string_view>

#include "model/Relations.h"

namespace corvane {

// Signs of a measure's header, made in front of a crossing's other symbols in the order clef, key, time
// signature.
void AddClef(MeasureStaff* crossing, int code);
void AddKey(MeasureStaff* crossing, int key);  // sharps less flats
void AddTime(MeasureStaff* crossing);          // of the measure's meter

// What MakeMeasure does with a measure of any kind that stands in no system yet.
void JoinMeasure(System* system, Measure* measure, Measure* behind);

// A part behind another of the document, or first where that is null: every voice at full volume on
// channel 1.
DocStaff* MakeDocStaff(Document* document, DocStaff* behind);
AllStaff* MakeAllStaff(std::string_view name = "Untitled");

// A staff of a system below `behind`, or on top where it is null, drawn over the system's whole width.
SimpleStaff* MakeSimpleStaff(System* system, MultiStaff* behind, StaffKind kind, int lineCount);
StaffCustom* MakeStaffCustom(System* system, MultiStaff* behind, StaffKind kind);
StaffBot* MakeStaffBot(StaffCustom* custom, System* system, StaffKind kind, int lineCount);

// Joins two staffs of a system at their left end.
Connection* Connect(System* system, Staff* first, Staff* last, FontSymbol* symbol);

// Gives a system without staffs and measures the staffs of its neighbour in the score, connections included.
void CopyStaffs(const System* model, System* system, bool modelStandsBefore);

}  // namespace corvane
