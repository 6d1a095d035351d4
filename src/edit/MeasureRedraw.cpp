#include "edit/MeasureRedraw.h"

#include "model/NoteOperations.h"
#include "model/Par.h"

namespace corvane {
namespace {

using Visit = std::function<void(void*, int)>;

void VisitBeamMarkers(const BeamSymbol* symbol, const Visit& visit, int voice) {
    if (BeamMarker* marker = MarkerOf(symbol)) visit(marker, voice);
}

void VisitChord(Chords* chord, const Visit& visit, int voice) {
    ChordSymbol* chordSymbol = ChordSymbolPar(chord);
    if (!chordSymbol) return;
    visit(chordSymbol, voice);
    for (Stem* stem : chordSymbolStems.Of(chordSymbol)) VisitBeamMarkers(stem, visit, voice);
    for (GenericNote* note : chordNotes.Of(chord))
        for (NoteAttribute* attribute : noteAttributes.Of(note)) visit(attribute, voice);
}

}  // namespace

void ForEachPatch(MeasureStaff* measureStaff, const Visit& visit) {
    for (Voice* voice : measureStaffVoices.Of(measureStaff)) {
        const int number = voice->_number;
        for (VoiceSymbol* symbol : voiceSymbols.Of(voice)) {
            if (auto* chord = As<Chords>(symbol)) VisitChord(chord, visit, number);
            if (auto* pause = As<Pause>(symbol)) {
                visit(pause, number);
                VisitBeamMarkers(pause, visit, number);
            }
            for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol)) visit(attribute, number);
        }
    }
}

MeasureRedraw::MeasureRedraw(WindowTarn& window, MeasureStaff* measureStaff)
    : _window(window), _measureStaff(measureStaff) {
    ForEachPatch(measureStaff, [&](void* record, int) {
        if (const DrawPatch patch = PatchOf(record)) _window.Sheet().RemoveObject(patch);
    });
}

MeasureRedraw::~MeasureRedraw() {
    if (PagePar(MeasurePar(_measureStaff)) != _window.CurrentPage()) return;
    ForEachPatch(_measureStaff, [&](void* record, int voice) {
        if (const DrawPatch patch = PatchOf(record)) _window.Sheet().AddObject(patch, voice);
    });
}

}  // namespace corvane
