// Turns the pending chords of one voice into planned symbols: values, dots, tuplets, tied parts and rests.
#pragma once

#include "interchange/ImportBudget.h"
#include "interchange/NoteFigures.h"
#include "interchange/PendingChords.h"
#include "interchange/TupletCells.h"
#include "interchange/VoicePlan.h"

namespace corvane {

class NoteGeneration {
public:
    // `plan` tells its staff and voice; the grid holds a measure for each chord.
    NoteGeneration(BarGrid& bars, const TupletCells& cells, const ImportOptions& options,
                   ImportBudget& budget, VoicePlan& plan)
        : _bars(bars), _cells(cells), _options(options), _budget(budget), _plan(plan) {}

    // False where the score would have too many measures, or cost too much. The last measure is filled with
    // rests.
    bool Generate(const PendingChords& pending);

private:
    // A chord as long as all its notes last.
    struct Piece {
        FineTime start, end;
        std::vector<int32_t> notes;  // among the pending ones
    };

    bool GenerateChord(const PendingChords& pending, const PendingChord& chord, const PendingChord* next);
    FineTime ExtendedEnd(const Piece& piece, FineTime next) const;
    bool Write(const PendingChords& pending, const Piece& piece);
    bool WriteFirst(const Bar& bar, FineTime end, const std::vector<PlannedNote>& notes);
    bool WriteInCell(const TupletCell& cell, FineTime end, const std::vector<PlannedNote>& notes);
    bool Add(const Figure& figure, const TupletCell* cell, const std::vector<PlannedNote>& notes);
    bool FillRests(FineTime to);

    BarGrid& _bars;
    const TupletCells& _cells;
    const ImportOptions& _options;
    ImportBudget& _budget;
    VoicePlan& _plan;
    FineTime _written = 0;                  // everything before is written
    const TupletCell* _openCell = nullptr;  // the tuplet that the last symbol stands in
    std::vector<int32_t> _planned;          // of each pending note its last planned part; -1 for none
};

}  // namespace corvane
