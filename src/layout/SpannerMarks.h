// Spanners by their marks, whatever their class: which mark draws which part, marks made and kept where the
// score's systems ask for them.
#pragma once

#include <functional>
#include <vector>

#include "layout/Frames.h"

namespace corvane {

// What one mark draws of its spanner: the part on the system that it is the first of its marks in.
struct SpannerPart {
    const MeasureStaff *first = nullptr, *last = nullptr;  // where the whole begins and ends
    const System* system = nullptr;                        // null: the mark draws nothing
    bool begins = false, ends = false;                     // on this system
    StaffFrame staff;
    int32_t left = 0, right = 0;  // where the system's notes begin and its last barline stands, absolute

    explicit operator bool() const { return system != nullptr; }
    int32_t Hundredths(int32_t n) const { return n * staff.lineDistance / 100; }
    // The crossings under it, from left to right.
    std::vector<const MeasureStaff*> Crossings() const;
};

// What a spanner from a crossing to a later one of the same staff, or to itself, shows on a system; empty
// where it shows nothing.
SpannerPart PartOn(const System* system, const MeasureStaff* first, const MeasureStaff* last);

bool IsSpannerMark(const StaffMeasureSymbol* symbol);
// Empty for any other symbol, and for a mark whose spanner makes no sense.
SpannerPart PartOf(const StaffMeasureSymbol* mark);
// All marks of a mark's spanner, itself included, in order.
std::vector<StaffMeasureSymbol*> MarksOf(const StaffMeasureSymbol* mark);

// Hangs the marks at its ends elsewhere, on one staff and in this order; those between are settled.
void MoveMarks(StaffMeasureSymbol* mark, MeasureStaff* first, MeasureStaff* last);

// Gives a new spanner its marks: at both ends, of one staff and in this order, and in each system between.
template <class Mark, class Spanner, class Rel>
void MakeMarks(const Rel& relation, Spanner* spanner, MeasureStaff* first, MeasureStaff* last) {
    for (MeasureStaff* crossing : {first, last}) {
        Mark* mark = Make<Mark>();
        staffSymbols.Add(crossing, mark);
        relation.Add(spanner, mark);
    }
}
// Puts the marks between the ends where systems begin now, for every spanner that has a mark on one of these.
void SettleMarks(const std::vector<System*>& systems);
void SettleMarks(StaffMeasureSymbol* mark);

// How far up, or down, anything of the staff reaches between two places of the part; the staff's own line
// where nothing does. What the spanner of `own` draws does not count.
int32_t ReachUnder(const SpannerPart& part, int32_t left, int32_t right, bool above,
                   const StaffMeasureSymbol* own);

}  // namespace corvane
