// The end of what was cut and never came back: unlinked objects, destroyed from the leaves upward.
#include "edit/ClipboardState.h"
#include "model/Par.h"
#include "model/RecordRelease.h"

namespace corvane {
namespace {

// Takes a mark from what it shares with others, which goes with its last mark.
template <class Marks, class Mark>
void LeaveShared(Document* document, const Marks& marks, Mark* mark) {
    auto* shared = marks.ParentOf(mark);
    if (!shared) return;
    marks.Remove(mark);
    if (marks.IsEmpty(shared)) DropRecord(document, shared);
}

template <class Parent>
void DestroyBeamAttributes(Document* document, Parent* symbol) {
    while (BeamSymbolAttribute* attribute = beamSymbolAttributes.First(symbol)) {
        if (auto* marker = As<BeamMarker>(attribute)) LeaveShared(document, beamMarkers, marker);
        beamSymbolAttributes.Remove(attribute);
        DropRecord(document, attribute);
    }
}

void DestroyNote(Document* document, GenericNote* note) {
    while (NoteAttribute* attribute = noteAttributes.First(note)) {
        if (auto* mark = As<MarkValue>(attribute)) LeaveShared(document, tieMarks, mark);
        noteAttributes.Remove(attribute);
        DropRecord(document, attribute);
    }
    stemNotes.Remove(note);
    chordNotes.Remove(note);
    DropRecord(document, note);
}

void DestroyChord(Document* document, Chords* chord) {
    ChordSymbol* column = ChordSymbolPar(chord);
    while (GenericNote* note = chordNotes.First(chord)) DestroyNote(document, note);
    chordSymbolChords.Remove(chord);
    DropRecord(document, chord);
    if (!chordSymbolChords.IsEmpty(column)) return;
    while (Stem* stem = chordSymbolStems.First(column)) {
        DestroyBeamAttributes(document, static_cast<BeamSymbol*>(stem));
        chordSymbolStems.Remove(stem);
        DropRecord(document, stem);
    }
    DropRecord(document, column);
}

void DestroyEvent(Document* document, VoiceSymbol* symbol) {
    while (VoiceSymbolAttribute* attribute = voiceSymbolAttributes.First(symbol)) {
        if (auto* mark = As<MarkIrreg>(attribute)) LeaveShared(document, irregularMarks, mark);
        voiceSymbolAttributes.Remove(attribute);
        DropRecord(document, attribute);
    }
    if (auto* chord = As<Chords>(symbol)) return DestroyChord(document, chord);
    auto* pause = As<Pause>(symbol);
    DestroyBeamAttributes(document, static_cast<BeamSymbol*>(pause));
    DropRecord(document, static_cast<VoiceSymbol*>(pause));
}

template <class List, class Marks>
void DestroySpanners(Document* document, const List& list, const Marks& marks) {
    for (const auto& clip : list) {
        while (auto* mark = marks.First(clip.object)) {
            marks.Remove(mark);
            DropRecord(document, mark);
        }
        DropRecord(document, clip.object);
    }
}

template <class List>
void DropAll(Document* document, const List& list) {
    for (const auto& clip : list) DropRecord(document, clip.object);
}

}  // namespace

void DestroyCutObjects(const Clipboard& cut) {
    Document* document = cut.sourceWindow->GetDocument();
    DestroySpanners(document, cut.ClipSlurs, slurMarks);
    for (const ClipVoiceSymbol& clip : cut.ClipVoiceSymbols) DestroyEvent(document, clip.object);
    DestroySpanners(document, cut.ClipHairpins, hairpinMarks);
    DropAll(document, cut.ClipDinamiche);
    DropAll(document, cut.ClipMeasureStaffText);
    DropAll(document, cut.ClipPageText);
}

}  // namespace corvane
