#include "interchange/TupletCells.h"

#include <algorithm>
#include <cstdlib>

namespace corvane {
namespace {

// Lengths of cells in the order in which they are tried: a beat first, as it is read most easily.
constexpr FineTime kLengths[] = {kQuarter, kQuarter * 2, kQuarter / 2, kQuarter / 4};

bool StartsBehind(FineTime place, const TupletCell& cell) { return place < cell.start; }

}  // namespace

TupletCells::TupletCells(const BarGrid& bars, const ImportOptions& options)
    : _bars(bars),
      _options(options),
      _grid(options.level ? kWholeNote >> options.level : kShortest),
      _tolerance(FineOf(1, bars.TicksPerQuarter()) + 1) {}

bool TupletCells::IsPlain(FineTime time) const {
    return std::abs(time - RoundedTo(time, _grid)) <= _tolerance;
}

void TupletCells::Find(const std::vector<NoteEvent>& events) {
    _cells.clear();
    // Where a tick is as long as the grid there is nothing between its places.
    if (!_options.tuplets || _tolerance * 3 > _grid) return;
    std::vector<FineTime> ons;
    for (const NoteEvent& event : events)
        if (const FineTime time = _bars.Fine(event.time); event.isOn && (ons.empty() || ons.back() != time))
            ons.push_back(time);
    for (size_t i = 0; i < ons.size(); ++i) {
        TupletCell cell;
        if (IsPlain(ons[i]) || (!_cells.empty() && ons[i] < _cells.back().End())) continue;
        if (FindCell(ons, i, cell)) _cells.push_back(cell);
    }
}

bool TupletCells::FindCell(const std::vector<FineTime>& ons, size_t i, TupletCell& cell) const {
    const FineTime free = _cells.empty() ? 0 : _cells.back().End();
    const Bar& bar = _bars[_bars.BarOf(ons[i])];
    for (const FineTime length : kLengths)
        for (int place = 0; place < _options.tupletKind; ++place) {
            const TupletRatioOf ratio = TupletOfPlace(place);
            cell.count = ratio.count;
            cell.inTimeOf = ratio.inTimeOf;
            cell.length = length;
            cell.figure = static_cast<int>(kWholeNote * ratio.inTimeOf / length);
            cell.start = bar.start + (ons[i] - bar.start) / length * length;
            if (cell.figure > std::min(_options.tupletResolution, 128)) continue;
            if (cell.start < free || cell.End() > bar.End()) continue;
            if (Fits(ons, i, cell)) return true;
        }
    return false;
}

bool TupletCells::Fits(const std::vector<FineTime>& ons, size_t i, const TupletCell& cell) const {
    const auto begins = [&](size_t at) { return ons[at] + _tolerance >= cell.start; };
    while (i > 0 && begins(i - 1)) --i;
    for (; i < ons.size() && ons[i] + _tolerance < cell.End(); ++i) {
        const FineTime late = ons[i] - cell.start;
        if (std::abs(late - RoundedTo(std::max<FineTime>(0, late), cell.Part())) > 2 * _tolerance)
            return false;
    }
    return true;
}

FineTime TupletCells::Settle(const NoteEvent& event) const {
    const FineTime time = _bars.Fine(event.time);
    // A tick's rounding may put what begins a cell just before it.
    if (const TupletCell* cell = CellAt(time + _tolerance))
        return cell->start + RoundedTo(std::max<FineTime>(0, time - cell->start), cell->Part());
    return RoundedTo(_bars.Fine(event.plain), _grid);
}

const TupletCell* TupletCells::CellAt(FineTime place) const {
    auto behind = std::upper_bound(_cells.begin(), _cells.end(), place, StartsBehind);
    return behind != _cells.begin() && place < behind[-1].End() ? &behind[-1] : nullptr;
}

FineTime TupletCells::NextStart(FineTime place, FineTime end) const {
    const auto behind = std::upper_bound(_cells.begin(), _cells.end(), place, StartsBehind);
    return behind == _cells.end() ? end : std::min(end, behind->start);
}

}  // namespace corvane
