// The notes of one channel as chords that never overlap: a note that sounds through a later start is cut
// there and goes on as a part of the chord behind.
#pragma once

#include <cstdint>
#include <vector>

#include "interchange/FineTime.h"

namespace corvane {

struct PendingNote {
    FineTime end = 0;       // where it was heard to end, or the last time of the track
    int32_t previous = -1;  // the part before of a note that was cut, among the channel's notes
    uint8_t key = 0;
    uint16_t struck = 0;  // how often it was begun and not ended
};

struct PendingChord {
    FineTime time = 0;
    uint32_t first = 0, count = 0;  // among the channel's notes
};

class PendingChords {
public:
    // Times never run backward.
    void NoteOn(FineTime time, uint8_t key);
    // An end that belongs to no sounding note ends them all.
    void NoteOff(FineTime time, uint8_t key);
    // What still sounds ends here.
    void Finish(FineTime time);

    const std::vector<PendingChord>& Chords() const { return _chords; }
    const std::vector<PendingNote>& Notes() const { return _notes; }

private:
    bool IsOpen(const PendingNote& note) const { return note.struck > 0; }
    void CarryOver(FineTime time);
    PendingNote* Find(uint8_t key);
    void FinishAll(FineTime time);

    std::vector<PendingChord> _chords;
    std::vector<PendingNote> _notes;
};

}  // namespace corvane
