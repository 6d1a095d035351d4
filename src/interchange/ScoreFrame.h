// The pages, systems, measures and staves of an imported score, with clefs, keys, meters and tempos, but no
// notes yet.
#pragma once

#include <vector>

#include "interchange/ScorePlan.h"
#include "model/Relations.h"

namespace corvane {

// One staff of the score: of a track the upper or the lower.
struct StaffColumn {
    const TrackPlan* track = nullptr;  // null for the staff of a score without tracks
    int staff = 0;
    DocStaff* docStaff = nullptr;
    AllStaff* allStaff = nullptr;
    // By measure.
    std::vector<MeasureStaff*> crossings;
};

class ScoreFrame {
public:
    // The document has one page, on which all may be replaced, and no staves.
    ScoreFrame(Document* document, const ScorePlan& plan) : _document(document), _plan(plan) {}
    // Lays everything out.
    void Build();
    std::vector<StaffColumn>& Columns() { return _columns; }

    // Sharps less flats of a column in each measure.
    static std::vector<int> KeysOf(const StaffColumn& column, const ScorePlan& plan);

private:
    void MakeColumns();
    void SetSounds(StaffColumn& column);
    void ClearPage();
    Page* MakePage();
    System* MakeSystem(Page* page);
    void MakeStaffs(System* system);
    void MakeMeasure(System* system, size_t bar);
    void MakeTempos(Measure* measure, const Bar& bar);
    void ShowNames();
    int SystemsPerPage() const;
    int16_t LineDistance() const;

    Document* _document;
    const ScorePlan& _plan;
    std::vector<StaffColumn> _columns;
    std::vector<std::vector<int>> _keys;  // by column and measure
    std::vector<SimpleStaff*> _staffs;    // of the system in the making
    int16_t _lineDistance = 100;
};

}  // namespace corvane
