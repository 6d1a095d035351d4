// The levels of the hierarchy, from a page down to an event.
#include "edit/TarnDestroy.h"

#include <algorithm>

#include "base/Assert.h"
#include "edit/DeletionSteps.h"
#include "edit/Spanners.h"
#include "layout/Beaming.h"
#include "layout/Engraving.h"
#include "layout/NotePitches.h"
#include "layout/SkeletonRemoval.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/RecordRelease.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// A tuplet goes with all its marks; voices of other measures under it sound and stand without it.
void DestroyTuplet(Irregular* irregular, const Voice* dying) {
    Document* document = DocumentPar(dying);
    std::vector<Voice*> others;
    while (MarkIrreg* mark = irregularMarks.First(irregular)) {
        Voice* voice = VoicePar(voiceSymbolAttributes.ParentOf(mark));
        if (voice != dying && std::find(others.begin(), others.end(), voice) == others.end())
            others.push_back(voice);
        irregularMarks.Remove(mark);
        voiceSymbolAttributes.Remove(mark);
        DropRecord(document, mark);
    }
    DropRecord(document, irregular);
    for (Voice* voice : others) {
        RebuildVoiceEvents(voice);
        SpaceVoice(voice);
    }
}

void DestroyAttributes(Document* document, VoiceSymbol* symbol) {
    while (VoiceSymbolAttribute* attribute = voiceSymbolAttributes.First(symbol)) {
        auto* mark = As<MarkIrreg>(attribute);
        if (Irregular* irregular = mark ? irregularMarks.ParentOf(mark) : nullptr) {
            DestroyTuplet(irregular, VoicePar(symbol));
            continue;
        }
        voiceSymbolAttributes.Remove(attribute);
        DropRecord(document, attribute);
    }
}

// Parts a note from the notes that it is tied to; one behind it shows its own accidental then.
void LeaveTies(WindowTarn& window, GenericNote* note) {
    const GenericNote* later = TiedToAfter(note);
    DeleteTiesOf(window, note);
    if (later && MeasureStaffPar(later) != MeasureStaffPar(note)) RedoAccidentals(MeasureStaffPar(later));
}

void DestroyNote(WindowTarn& window, Document* document, GenericNote* note) {
    LeaveTies(window, note);
    RemoveNoteEvents(note);
    while (NoteAttribute* attribute = noteAttributes.First(note)) {
        noteAttributes.Remove(attribute);
        DropRecord(document, attribute);
    }
    stemNotes.Remove(note);
    chordNotes.Remove(note);
    DropRecord(document, note);
}

// A stem without heads goes; one that has heads on other staves is fitted to them.
void LeaveStem(Stem* stem) {
    Beam* beam = BeamOf(stem);
    if (!stemNotes.IsEmpty(stem)) {
        Say(stem, kSaidLength, false);
        if (beam)
            RefitBeam(beam);
        else
            SetDefaultStemLength(stem);
        return SetDirection(stem, stem->_direction);
    }
    if (beam) DissolveBeam(beam, stem);
    RemoveFlag(stem);
    chordSymbolStems.Remove(stem);
    Release(stem);
}

void DestroyChord(WindowTarn& window, Chords* chord) {
    Document* document = DocumentPar(chord);
    ChordSymbol* column = ChordSymbolPar(chord);
    CORVANE_ASSERT_AS(document && column, "v_sym && doc && v && mis_staff && ch_sym");
    while (GenericNote* note = chordNotes.First(chord)) {
        Stem* stem = StemPar(note);
        DestroyNote(window, document, note);
        if (stemNotes.IsEmpty(stem) || chordNotes.IsEmpty(chord)) LeaveStem(stem);
    }
    voiceSymbols.Remove(chord);
    chordSymbolChords.Remove(chord);
    DropRecord(document, chord);
    if (!chordSymbolStems.IsEmpty(column)) return;
    measureSymbols.Remove(column);
    DropRecord(document, column);
}

void DestroyPause(Pause* pause) {
    Document* document = DocumentPar(pause);
    if (Beam* beam = BeamOf(pause)) DissolveBeam(beam, pause);
    voiceSymbols.Remove(pause);
    DropRecord(document, static_cast<VoiceSymbol*>(pause));
}

// Tempos without a mark; those of notes went with them.
void DestroyTimeElements(Document* document, Measure* measure) {
    while (TimeElement* element = measureTimeElements.First(measure)) {
        measureTimeElements.Remove(element);
        DropRecord(document, element);
    }
}

}  // namespace

void DestroyVoiceSymbol(WindowTarn& window, VoiceSymbol* symbol) {
    DeleteSlursAt(window, symbol);
    DestroyAttributes(DocumentPar(symbol), symbol);
    if (auto* chord = As<Chords>(symbol))
        DestroyChord(window, chord);
    else
        DestroyPause(As<Pause>(symbol));
}

void DestroyVoice(WindowTarn& window, Voice* voice) {
    while (VoiceSymbol* symbol = voiceSymbols.First(voice)) DestroyVoiceSymbol(window, symbol);
    measureStaffVoices.Remove(voice);
    Release(voice);
}

void DestroyMeasureStaff(WindowTarn& window, MeasureStaff* crossing) {
    CORVANE_ASSERT_AS(crossing && DocumentPar(crossing), "_ms && _d");
    while (Voice* voice = measureStaffVoices.First(crossing)) DestroyVoice(window, voice);
    while (StaffMeasureSymbol* symbol = staffSymbols.First(crossing)) DestroyStaffMeasureSymbol(symbol);
    crossing->_staff = nullptr;
    measureStaffs.Remove(crossing);
    docStaffMeasureStaffs.Remove(crossing);
    Release(crossing);
}

void DestroyMeasure(WindowTarn& window, Measure* measure) {
    Document* document = DocumentPar(measure);
    CORVANE_ASSERT_AS(measure && document, "_m && _d");
    if (window.caret.measure == measure) window.caret = Caret();
    while (MeasureStaff* crossing = measureStaffs.First(measure)) DestroyMeasureStaff(window, crossing);
    while (MeasureSymbol* symbol = measureSymbols.First(measure)) DestroyMeasureSymbol(symbol);
    DestroyTimeElements(document, measure);
    SystemPar(measure)->_measureCount -= 1;
    systemMeasures.Remove(measure);
    DropRecord(document, measure);
}

void DestroySystem(WindowTarn& window, System* system) {
    CORVANE_ASSERT_AS(system, "_sys");
    while (Measure* measure = systemMeasures.First(system)) DestroyMeasure(window, measure);
    ReleaseSystem(system);
}

void DestroyPage(WindowTarn& window, Page* page) {
    CORVANE_ASSERT_AS(page, "_p");
    while (System* system = pageSystems.First(page)) DestroySystem(window, system);
    ReleasePage(page);
}

void DestroyDocStaff(WindowTarn& window, DocStaff* docStaff) {
    CORVANE_ASSERT_AS(docStaff && DocumentPar(docStaff), "_ds && _d");
    if (window.caret.staff == docStaff) window.caret = Caret();
    while (MeasureStaff* crossing = docStaffMeasureStaffs.First(docStaff))
        DestroyMeasureStaff(window, crossing);
    while (Staff* staff = docStaffStaffs.First(docStaff)) ReleaseStaff(staff);
    documentDocStaffs.Remove(docStaff);
    Release(docStaff);
}

}  // namespace corvane
