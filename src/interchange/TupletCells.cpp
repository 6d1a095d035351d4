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
    for (const NoteEvent& event : events) {
        TupletCell cell;
        const FineTime time = _bars.Fine(event.time);
        if (!event.isOn && _options.level != 0) continue;
        if (IsPlain(time) || (!_cells.empty() && time < _cells.back().End())) continue;
        if (FindCell(ons, time, cell)) _cells.push_back(cell);
    }
}

bool TupletCells::FindCell(const std::vector<FineTime>& ons, FineTime time, TupletCell& cell) const {
    const FineTime free = _cells.empty() ? 0 : _cells.back().End();
    const Bar& bar = _bars[_bars.BarOf(time)];
    for (const FineTime length : kLengths)
        for (int place = 0; place < _options.tupletKind; ++place) {
            const TupletRatioOf ratio = TupletOfPlace(place);
            cell.count = ratio.count;
            cell.inTimeOf = ratio.inTimeOf;
            cell.length = length;
            cell.figure = static_cast<int>(kWholeNote * ratio.inTimeOf / length);
            cell.start = bar.start + (time - bar.start) / length * length;
            if (cell.figure > std::min(_options.tupletResolution, 128)) continue;
            if (cell.start < free || cell.End() > bar.End()) continue;
            if (HasPlace(time, cell) && Fits(ons, cell)) return true;
        }
    return false;
}

bool TupletCells::Fits(const std::vector<FineTime>& ons, const TupletCell& cell) const {
    auto on = std::lower_bound(ons.begin(), ons.end(), cell.start - _tolerance);
    for (; on != ons.end() && *on + _tolerance < cell.End(); ++on)
        if (!HasPlace(*on, cell)) return false;
    return true;
}

bool TupletCells::HasPlace(FineTime time, const TupletCell& cell) const {
    const FineTime late = time - cell.start;
    return std::abs(late - RoundedTo(std::max<FineTime>(0, late), cell.Part())) <= 2 * _tolerance;
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
