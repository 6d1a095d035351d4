// Signs of heads and of events: what each releases when it goes.
#include "base/Assert.h"
#include "edit/Deletion.h"
#include "edit/DeletionSteps.h"
#include "edit/MeasureRedraw.h"
#include "layout/NotePitches.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/RecordRelease.h"
#include "model/Ties.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

void DeleteTie(WindowTarn& window, MarkValue* mark) {
    MarkValue* other = OtherMark(mark);
    CORVANE_ASSERT_AS(other, "mrk1 && mrk1 != mrk");
    TieValue* tie = tieMarks.ParentOf(mark);
    GenericNote *note1 = noteAttributes.ParentOf(mark), *note2 = noteAttributes.ParentOf(other);
    GenericNote* second = StandsBefore(note1, note2) ? note2 : note1;
    const MeasureRedraw redraw(window, MeasureStaffPar(second));
    for (MarkValue* each : {mark, other}) {
        TakeOff(window, each);
        noteAttributes.Remove(each);
        tieMarks.Remove(each);
        Release(each);
    }
    Release(tie);
    UntieNotes(note1, note2);
    RedoAccidentals(MeasureStaffPar(second));
}

// One mark less; a tuplet without marks goes.
void DeleteMark(MarkIrreg* mark) {
    Irregular* irregular = irregularMarks.ParentOf(mark);
    irregularMarks.Remove(mark);
    if (irregular && irregularMarks.IsEmpty(irregular)) Release(irregular);
}

}  // namespace

void TakeOff(WindowTarn& window, void* record) {
    if (const DrawPatch patch = PatchOf(record)) window.Sheet().RemoveObject(patch);
}

void DeleteTiesOf(WindowTarn& window, GenericNote* note) {
    for (bool found = true; found;) {
        found = false;
        for (NoteAttribute* attribute : noteAttributes.Of(note))
            if (auto* mark = As<MarkValue>(attribute)) {
                DeleteTie(window, mark);
                found = true;
                break;
            }
    }
}

void DeleteTie(WindowTarn& window, TieValue* tie) {
    if (MarkValue* mark = tieMarks.First(tie); mark && noteAttributes.ParentOf(mark)) DeleteTie(window, mark);
}

void DeleteNoteAttribute(WindowTarn& window, NoteAttribute* attribute) {
    if (auto* mark = As<MarkValue>(attribute)) return DeleteTie(window, mark);
    TakeOff(window, attribute);
    Document* document = DocumentPar(noteAttributes.ParentOf(attribute));
    noteAttributes.Remove(attribute);
    DropRecord(document, attribute);
}

void DeleteVoiceSymbolAttribute(WindowTarn& window, VoiceSymbolAttribute* attribute) {
    TakeOff(window, attribute);
    Document* document = DocumentPar(voiceSymbolAttributes.ParentOf(attribute));
    if (auto* mark = As<MarkIrreg>(attribute)) DeleteMark(mark);
    voiceSymbolAttributes.Remove(attribute);
    DropRecord(document, attribute);
}

}  // namespace corvane
