#include "interchange/NoteGeneration.h"

#include <algorithm>

namespace corvane {

bool NoteGeneration::Generate(const PendingChords& pending) {
    const std::vector<PendingChord>& chords = pending.Chords();
    _planned.assign(pending.Notes().size(), -1);
    for (size_t i = 0; i < chords.size(); ++i)
        if (!GenerateChord(pending, chords[i], i + 1 < chords.size() ? &chords[i + 1] : nullptr))
            return false;
    return _written == 0 || FillRests(_bars[_bars.BarOf(_written - 1)].End());
}

// A chord whose notes end one after the other is written as chords of those that still sound, tied.
bool NoteGeneration::GenerateChord(const PendingChords& pending, const PendingChord& chord,
                                   const PendingChord* next) {
    Piece piece{chord.time, chord.time, {}};
    for (uint32_t i = 0; i < chord.count; ++i) piece.notes.push_back(static_cast<int32_t>(chord.first + i));
    const auto endOf = [&](int32_t i) { return pending.Notes()[static_cast<size_t>(i)].end; };
    std::stable_sort(piece.notes.begin(), piece.notes.end(),
                     [&](int32_t a, int32_t b) { return endOf(a) < endOf(b); });
    // What ends as it begins lasts as long as the shortest that does not.
    const auto sounds = [&](int32_t i) { return endOf(i) > chord.time; };
    const auto longer = std::find_if(piece.notes.begin(), piece.notes.end(), sounds);
    piece.end = longer == piece.notes.end() ? chord.time : endOf(*longer);
    while (!piece.notes.empty()) {
        const bool isLast = endOf(piece.notes.back()) <= piece.end;
        if (isLast) piece.end = ExtendedEnd(piece, next ? next->time : -1);
        if (piece.end > piece.start && !Write(pending, piece)) return false;
        if (isLast) break;
        piece.start = piece.end;
        std::erase_if(piece.notes, [&](int32_t i) { return endOf(i) <= piece.start; });
        piece.end = endOf(piece.notes.front());
    }
    return true;
}

// Small gaps before the next chord disappear; where it is further off a note ends on a beat. None grows over
// a barline, and none to more than twice what was played: a short note is short on purpose.
FineTime NoteGeneration::ExtendedEnd(const Piece& piece, FineTime next) const {
    if (next < 0 || (_options.level == 0 && piece.end > piece.start)) return piece.end;
    if (_options.level == 0) return next;
    const Bar& bar = _bars[_bars.BarOf(std::max(piece.start, piece.end - 1))];
    const FineTime start = std::max(piece.start, bar.start);
    const FineTime beat = bar.start + ((start - bar.start) / kQuarter + 1) * kQuarter;
    const FineTime nextBeat = next - (next - bar.start) % kQuarter;
    FineTime end = next;
    if (beat < next) end = beat >= piece.end ? beat : nextBeat >= piece.end ? nextBeat : next;
    end = std::min(end, bar.End());
    if (piece.end > piece.start && end - piece.end >= piece.end - piece.start) return piece.end;
    // A tuplet is not cut within one of its parts.
    const TupletCell* cell = _cells.CellAt(end);
    return cell && end > cell->start ? std::min(next, cell->End()) : end;
}

bool NoteGeneration::Write(const PendingChords& pending, const Piece& piece) {
    if (!FillRests(piece.start)) return false;
    std::vector<PlannedNote> notes;
    for (const int32_t i : piece.notes) {
        const PendingNote& note = pending.Notes()[static_cast<size_t>(i)];
        int32_t& planned = _planned[static_cast<size_t>(i)];
        const int32_t before = note.previous >= 0 ? _planned[static_cast<size_t>(note.previous)] : -1;
        notes.push_back({planned >= 0 ? planned : before, note.key});
    }
    const auto tieOn = [&] {
        for (size_t i = 0; i < notes.size(); ++i)
            notes[i].previous = _planned[static_cast<size_t>(piece.notes[i])] =
                static_cast<int32_t>(_plan.notes.size() - notes.size() + i);
    };
    while (_written < piece.end) {
        const int number = _bars.BarAt(_written);
        if (number < 0) return false;
        if (!WriteFirst(_bars[static_cast<size_t>(number)], piece.end, notes)) return false;
        tieOn();
    }
    return true;
}

// One symbol of what lasts until `end`, or of its measure.
bool NoteGeneration::WriteFirst(const Bar& bar, FineTime end, const std::vector<PlannedNote>& notes) {
    end = std::min(end, bar.End());
    if (const TupletCell* cell = _cells.CellAt(_written))
        return WriteInCell(*cell, std::min(end, cell->End()), notes);
    end = _cells.NextStart(_written, end);
    const Figure figure =
        notes.empty() ? RestAt(bar, _written, end) : *FigureOf(FirstPiece(bar, _written, end));
    return Add({figure.value, figure.dots, figure.length}, nullptr, notes);
}

bool NoteGeneration::WriteInCell(const TupletCell& cell, FineTime end,
                                 const std::vector<PlannedNote>& notes) {
    const auto first = static_cast<int>((_written - cell.start) / cell.Part());
    const auto parts = static_cast<int>((end - _written) / cell.Part());
    int taken = 1;
    while (taken * 2 <= parts && (!notes.empty() || first % (taken * 2) == 0)) taken *= 2;
    const bool dotted = !notes.empty() && taken > 1 && parts == taken * 3 / 2;
    return Add({cell.figure / taken, dotted, cell.Part() * (dotted ? parts : taken)}, &cell, notes);
}

bool NoteGeneration::Add(const Figure& figure, const TupletCell* cell,
                         const std::vector<PlannedNote>& notes) {
    PlannedSymbol symbol;
    symbol.firstNote = static_cast<uint32_t>(_plan.notes.size());
    symbol.bar = static_cast<int16_t>(_bars.BarOf(_written));
    symbol.noteCount = static_cast<uint8_t>(notes.size());
    symbol.figure = static_cast<uint8_t>(figure.value);
    symbol.dots = static_cast<uint8_t>(figure.dots);
    if (cell) {
        symbol.tupletCount = static_cast<uint8_t>(cell->count);
        symbol.inTimeOf = static_cast<uint8_t>(cell->inTimeOf);
        symbol.startsTuplet = cell != _openCell;
    }
    if (!_budget.Spend(symbol)) return false;
    _openCell = cell;
    _plan.symbols.push_back(symbol);
    _plan.notes.insert(_plan.notes.end(), notes.begin(), notes.end());
    _written += figure.length;
    return true;
}

// Measures in which the voice is silent are left out.
bool NoteGeneration::FillRests(FineTime to) {
    while (_written < to) {
        const int number = _bars.BarAt(_written);
        if (number < 0) return false;
        const Bar& bar = _bars[static_cast<size_t>(number)];
        if (_written == bar.start && to >= bar.End())
            _written = bar.End();
        else if (!WriteFirst(bar, to, {}))
            return false;
    }
    return true;
}

}  // namespace corvane
