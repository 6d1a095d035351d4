// Signs of heads and of events: what each releases when it goes.
#include "base/Assert.h"
#include "edit/Deletion.h"
#include "edit/DeletionSteps.h"
#include "layout/Spacing.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

void ReleaseRecord(BehaviourWord* record) { MemoryManager::Instance().Release(record); }

// The other mark of a tie.
MarkValue* OtherMark(const MarkValue* mark) {
    const TieValue* tie = tieMarks.ParentOf(mark);
    for (MarkValue* other : tieMarks.Of(tie))
        if (other != mark) return other;
    CORVANE_ASSERT_AS(false, "mrk1 && mrk1 != mrk");
    return nullptr;
}

void DeleteTie(WindowTarn& window, MarkValue* mark) {
    MarkValue* other = OtherMark(mark);
    TieValue* tie = tieMarks.ParentOf(mark);
    GenericNote *note1 = noteAttributes.ParentOf(mark), *note2 = noteAttributes.ParentOf(other);
    for (MarkValue* each : {mark, other}) {
        TakeOff(window, each);
        noteAttributes.Remove(each);
        tieMarks.Remove(each);
        Release(each);
    }
    Release(tie);
    UntieNotes(note1, note2);
}

// One mark less; a tuplet without marks goes.
void DeleteMark(MarkIrreg* mark) {
    Irregular* irregular = irregularMarks.ParentOf(mark);
    irregularMarks.Remove(mark);
    if (irregular && irregularMarks.IsEmpty(irregular)) Release(irregular);
}

// The symbol field of a sign; null for a sign without one.
Ptr<FontSymbol>* SymbolField(BehaviourWord* sign) {
    const int16_t number = sign->ClassNumber();
    if (number == Accident::kClass) return &static_cast<Accident*>(sign)->_symbol;
    if (number == Dot::kClass) return &static_cast<Dot*>(sign)->_symbol;
    if (number == Tremolo::kClass) return &static_cast<Tremolo*>(sign)->_symbol;
    if (IsClass<SymbolAttribute>(number)) return &static_cast<SymbolAttribute*>(sign)->_symbol;
    return nullptr;
}

void DropSymbolOf(Document* document, BehaviourWord* sign) {
    if (Ptr<FontSymbol>* field = SymbolField(sign)) DropSymbol(document, *field);
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

void DeleteNoteAttribute(WindowTarn& window, NoteAttribute* attribute) {
    if (auto* mark = As<MarkValue>(attribute)) return DeleteTie(window, mark);
    TakeOff(window, attribute);
    DropSymbolOf(DocumentPar(noteAttributes.ParentOf(attribute)), attribute);
    noteAttributes.Remove(attribute);
    ReleaseRecord(attribute);
}

void DeleteVoiceSymbolAttribute(WindowTarn& window, VoiceSymbolAttribute* attribute) {
    TakeOff(window, attribute);
    if (auto* mark = As<MarkIrreg>(attribute)) DeleteMark(mark);
    else DropSymbolOf(DocumentPar(voiceSymbolAttributes.ParentOf(attribute)), attribute);
    voiceSymbolAttributes.Remove(attribute);
    ReleaseRecord(attribute);
}

}  // namespace corvane
