// Signs on notes and events from the palettes, and dynamics. A second press with the same item takes a sign
// away.
#include <algorithm>
#include <string>

#include "edit/Deletion.h"
#include "edit/Insertion.h"
#include "edit/MeasureRedraw.h"
#include "edit/Signs.h"
#include "edit/TarnClick.h"
#include "layout/Engraving.h"
#include "layout/Frames.h"
#include "layout/SignRecords.h"
#include "model/GlyphTable.h"
#include "model/NoteOperations.h"
#include "model/Par.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

constexpr int32_t kHundred = 100, kFreeStem = 130;  // of a line distance, around tremolo strokes

NoteAttribute* SignOf(const GenericNote* note, int16_t classNumber) {
    for (NoteAttribute* attribute : noteAttributes.Of(note))
        if (attribute->ClassNumber() == classNumber) return attribute;
    return nullptr;
}

// Accidentals over ornaments are smaller than those before notes.
std::string SymbolNameFor(std::string_view descriptor, int16_t classNumber, bool grace) {
    std::string name = CanonicalSymbolName(descriptor);
    if (classNumber == Ornamenti::kClass) return (grace ? "#GO" : "#O") + name.substr(1);
    return grace && classNumber != Tilde::kClass ? "grace" + name : name;
}

Tremolo* TremoloOf(const VoiceSymbol* symbol) {
    for (VoiceSymbolAttribute* attribute : voiceSymbolAttributes.Of(symbol))
        if (auto* tremolo = As<Tremolo>(attribute)) return tremolo;
    return nullptr;
}

// A stem under no beam is as long as its strokes need, at least as long as any.
void FitStemTo(const FontSymbol* strokes, Stem* stem) {
    if (BeamOf(stem)) return;
    SetDefaultStemLength(stem);
    const int32_t height = strokes ? SymbolRect(strokes, kHundred, kHundred).Height() : 0;
    if (strokes) stem->_length = std::max<int32_t>(stem->_length, height + kFreeStem);
}

}  // namespace

void NoteSignInsertion(const InsertionPlace& place, int16_t classNumber, std::string_view descriptor) {
    GenericNote* note = ChordNoteFor(place);
    if (!note) return;
    const MeasureRedraw redraw(place.window, MeasureStaffPar(note));
    const std::string name = SymbolNameFor(descriptor, classNumber, As<Grace>(note) != nullptr);
    const auto* old = As<SymbolAttribute>(SignOf(note, classNumber));
    const bool same = old && SymbolName(old->_symbol) == name;
    ClearNoteSign(place.window, note, classNumber);
    if (!same) AddNoteSign(note, classNumber, descriptor);
}

void AddNoteSign(GenericNote* note, int16_t classNumber, std::string_view descriptor) {
    auto* sign = static_cast<SymbolAttribute*>(MemoryManager::Instance().Allocate(classNumber));
    noteAttributes.Add(note, sign);
    sign->_symbol =
        LookupSymbol(DocumentPar(note), SymbolNameFor(descriptor, classNumber, As<Grace>(note) != nullptr));
}

void ClearNoteSign(WindowTarn& window, const GenericNote* note, int16_t classNumber) {
    if (NoteAttribute* sign = SignOf(note, classNumber)) DeleteNoteAttribute(window, sign);
}

void TremoloInsertion(const InsertionPlace& place, std::string_view descriptor) {
    const GenericNote* note = ChordNoteFor(place);
    if (!note) return;
    if (As<Grace>(note)) return place.window.Shell().Tell("Grace notes have no tremolo.");
    Chords* chord = ChordPar(note);
    const MeasureRedraw redraw(place.window, MeasureStaffPar(note));
    const std::string name = CanonicalSymbolName(descriptor);
    if (Tremolo* old = TremoloOf(chord)) {
        const bool same = SymbolName(old->_symbol) == name;
        DeleteTremolo(place.window, old);
        if (same) return;
    }
    auto* tremolo = Make<Tremolo>();
    voiceSymbolAttributes.Add(chord, tremolo);
    tremolo->_symbol = LookupSymbol(DocumentPar(note), name);
    FitStemTo(tremolo->_symbol, StemPar(note));
}

void DeleteTremolo(WindowTarn& window, Tremolo* tremolo) {
    const auto* chord = As<Chords>(voiceSymbolAttributes.ParentOf(tremolo));
    const MeasureRedraw redraw(window, MeasureStaffPar(chord));
    DeleteVoiceSymbolAttribute(window, tremolo);
    FitStemTo(nullptr, StemPar(chordNotes.First(chord)));
}

void DinamicheInsertion(const InsertionPlace& place, std::string_view name) {
    MeasureStaff* crossing = FindMeasureStaff(place.system, place.point);
    Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    if (!staff || staff->_lineDistance <= 0) return;
    auto* mark = Make<Dinamiche>();
    staffSymbols.Add(crossing, mark);
    mark->_symbol = LookupSymbol(DocumentPar(crossing), name);
    mark->_x = FrameOf(MeasurePar(crossing)).PerMilleOfX(place.point.x);
    mark->_y = (place.point.y - FrameOf(staff).top) * 1000 / staff->_lineDistance;
    if (PagePar(MeasurePar(crossing)) == place.window.CurrentPage())
        place.window.Sheet().AddObject(PatchOf(mark), 0);
}

void DeleteDinamiche(WindowTarn& window, Dinamiche* mark) {
    window.Sheet().RemoveObject(PatchOf(mark));
    ReleaseSign(mark);
}

}  // namespace corvane
