#include "play/NoteDump.h"

#include <algorithm>
#include <array>
#include <vector>

#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// measure, beat and clock of the start, the same of the end, staff, voice, key, velocity.
using Row = std::array<int, 10>;

// The end of a tie chain; null where it never ends.
const NoteOff* EndOf(const GenericNote* note) {
    // Ties lead forward only, so that a chain ends.
    for (; note; note = TiedToAfter(note))
        if (const NoteOff* off = NoteOffOf(note)) return off;
    return nullptr;
}

Row RowOf(const GenericNote* note, const NoteOn* on, int staff, int voice) {
    const TimePlace start = TimePlaceOf(on);
    Row row{MeasurePar(note)->_number,
            start.beat,
            start.clock,
            0,
            0,
            0,
            staff,
            voice,
            on->_height,
            on->_velocity};
    if (const NoteOff* off = EndOf(note)) {
        const TimePlace end = TimePlaceOf(off);
        row[3] = MeasurePar(noteEvents.ParentOf(off))->_number;
        row[4] = end.beat;
        row[5] = end.clock;
    }
    return row;
}

void AddVoice(std::vector<Row>& rows, const Voice* voice, int staff) {
    for (const VoiceSymbol* symbol : voiceSymbols.Of(voice))
        if (const auto* chord = As<Chords>(symbol))
            for (const GenericNote* note : chordNotes.Of(chord))
                if (const NoteOn* on = NoteOnOf(note)) rows.push_back(RowOf(note, on, staff, voice->_number));
}

}  // namespace

std::string DumpNotes(const Document* document) {
    std::vector<Row> rows;
    int staff = 0;
    for (const DocStaff* docStaff : documentDocStaffs.Of(document)) {
        ++staff;
        for (const MeasureStaff* crossing : docStaffMeasureStaffs.Of(docStaff))
            for (const Voice* voice : measureStaffVoices.Of(crossing)) AddVoice(rows, voice, staff);
    }
    std::sort(rows.begin(), rows.end());
    std::string text;
    for (const Row& row : rows)
        for (size_t i = 0; i < row.size(); ++i) {
            text += std::to_string(row[i]);
            text += i + 1 < row.size() ? ' ' : '\n';
        }
    return text;
}

}  // namespace corvane
