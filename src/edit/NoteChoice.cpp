#include "edit/NoteChoice.h"

#include "edit/MeasureRange.h"
#include "edit/TarnSelect.h"
#include "edit/ToolState.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr const char* kNothing = "Select some notes first";

bool IsTold(const ArgumentReader& reader) {
    return reader.Has("from") || reader.Has("to") || reader.Has("staff");
}

void AddEvents(std::vector<VoiceSymbol*>& events, const MeasureStaff* crossing) {
    for (const Voice* voice : measureStaffVoices.Of(crossing))
        if (Tools().AllVoices() || voice->_number == Tools().OneVoice())
            for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) events.push_back(symbol);
}

std::vector<VoiceSymbol*> ToldEvents(ArgumentReader& reader, WindowTarn& window) {
    const int staves = documentDocStaffs.Count(window.GetDocument());
    const int wanted = reader.Number("staff", 1, std::max(staves, 1), 0);
    MeasureRange range = ReadRange(reader, window);
    std::vector<VoiceSymbol*> events;
    if (!range.first) return events;
    if (!range.last) range.last = range.first;
    for (const Measure* measure = range.first; IsWithin(range, measure); measure = NextMeasure(measure)) {
        int number = 0;
        for (const MeasureStaff* crossing : measureStaffs.Of(measure))
            if (++number == wanted || wanted == 0) AddEvents(events, crossing);
    }
    return events;
}

std::vector<Chords*> ChordsOf(const std::vector<VoiceSymbol*>& events) {
    std::vector<Chords*> chords;
    for (VoiceSymbol* event : events)
        if (auto* chord = As<Chords>(event)) chords.push_back(chord);
    return chords;
}

}  // namespace

std::vector<VoiceSymbol*> ReadEvents(ArgumentReader& reader, WindowTarn& window) {
    std::vector<VoiceSymbol*> events;
    if (IsTold(reader)) {
        events = ToldEvents(reader, window);
    } else {
        SetSelectionAnchors(window);
        events = SelectedVoiceSymbols(Tools().OneVoice());
        ClearSelectionAnchors();
    }
    if (events.empty()) reader.Refuse(kNothing);
    return events;
}

std::vector<Chords*> ReadChords(ArgumentReader& reader, WindowTarn& window) {
    const std::vector<Chords*> chords = ChordsOf(ReadEvents(reader, window));
    if (chords.empty()) reader.Refuse(kNothing);
    return chords;
}

std::vector<GenericNote*> ReadNotes(ArgumentReader& reader, WindowTarn& window) {
    std::vector<GenericNote*> notes;
    if (IsTold(reader)) {
        for (const Chords* chord : ReadChords(reader, window))
            for (GenericNote* note : chordNotes.Of(chord)) notes.push_back(note);
    } else {
        SetSelectionAnchors(window);
        notes = SelectedNotes(Tools().OneVoice());
        ClearSelectionAnchors();
    }
    if (notes.empty()) reader.Refuse(kNothing);
    return notes;
}

}  // namespace corvane
