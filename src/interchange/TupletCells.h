// Where a voice is divided otherwise than by two: spans between places of the plain grid in which every note
// begins on the same division. Around them all is on the plain grid.
#pragma once

#include <vector>

#include "interchange/BarGrid.h"
#include "interchange/ImportOptions.h"
#include "interchange/Quantization.h"

namespace corvane {

struct TupletCell {
    FineTime start = 0, length = 0;
    int count = 3, inTimeOf = 2;
    int figure = 8;  // the value of one of its parts

    FineTime End() const { return start + length; }
    FineTime Part() const { return length / count; }
};

class TupletCells {
public:
    TupletCells(const BarGrid& bars, const ImportOptions& options);

    // Finds the cells of notes of one voice, in time order; the grid holds a measure for each of them. Where
    // every tick counts an end may ask for a cell too.
    void Find(const std::vector<NoteEvent>& events);
    // The place of an event: the nearest of its cell's parts, or of the plain grid.
    FineTime Settle(const NoteEvent& event) const;

    // The cell that holds a place, or behind all; null for none.
    const TupletCell* CellAt(FineTime place) const;
    // Where the first cell behind a place begins; `end` where that comes first.
    FineTime NextStart(FineTime place, FineTime end) const;

private:
    bool IsPlain(FineTime time) const;
    // A cell in which what is at `time`, off the plain grid, has its place; false for none.
    bool FindCell(const std::vector<FineTime>& ons, FineTime time, TupletCell& cell) const;
    bool Fits(const std::vector<FineTime>& ons, const TupletCell& cell) const;
    bool HasPlace(FineTime time, const TupletCell& cell) const;

    const BarGrid& _bars;
    const ImportOptions& _options;
    FineTime _grid;       // the plain one
    FineTime _tolerance;  // of a tick's rounding
    std::vector<TupletCell> _cells;
};

}  // namespace corvane
