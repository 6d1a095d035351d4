#include "interchange/PendingChords.h"

#include <limits>

namespace corvane {

void PendingChords::NoteOn(FineTime time, uint8_t key) {
    if (_chords.empty() || _chords.back().time != time) CarryOver(time);
    if (PendingNote* same = Find(key)) {
        // Struck again: it sounds once, and its part before ends here for good.
        same->previous = -1;
        if (same->struck < std::numeric_limits<uint16_t>::max()) ++same->struck;
        return;
    }
    _notes.push_back({time, -1, key, 1});
    ++_chords.back().count;
}

void PendingChords::CarryOver(FineTime time) {
    PendingChord next{time, static_cast<uint32_t>(_notes.size()), 0};
    if (!_chords.empty()) {
        const PendingChord& last = _chords.back();
        for (uint32_t i = last.first; i < last.first + last.count; ++i) {
            if (!IsOpen(_notes[i])) continue;
            const PendingNote part{time, static_cast<int32_t>(i), _notes[i].key, _notes[i].struck};
            _notes[i].end = time;
            _notes[i].struck = 0;
            _notes.push_back(part);
            ++next.count;
        }
    }
    _chords.push_back(next);
}

// Of the last chord.
PendingNote* PendingChords::Find(uint8_t key) {
    const PendingChord& last = _chords.back();
    for (uint32_t i = last.first; i < last.first + last.count; ++i)
        if (_notes[i].key == key) return &_notes[i];
    return nullptr;
}

void PendingChords::NoteOff(FineTime time, uint8_t key) {
    if (_chords.empty()) return;
    PendingNote* note = Find(key);
    if (!note || !IsOpen(*note)) return FinishAll(time);
    if (--note->struck == 0) note->end = time;
}

void PendingChords::FinishAll(FineTime time) {
    const PendingChord& last = _chords.back();
    for (uint32_t i = last.first; i < last.first + last.count; ++i) {
        if (!IsOpen(_notes[i])) continue;
        _notes[i].struck = 0;
        _notes[i].end = time;
    }
}

void PendingChords::Finish(FineTime time) {
    if (!_chords.empty()) FinishAll(time);
}

}  // namespace corvane
