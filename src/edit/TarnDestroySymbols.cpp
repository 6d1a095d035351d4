// Symbols of a measure and of a staff in a measure.
#include "edit/TarnDestroy.h"
#include "edit/Texts.h"
#include "layout/Beaming.h"
#include "model/Par.h"
#include "model/RecordRelease.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

// A spanner goes as a whole with the mark at either of its ends, also where it reaches into measures that
// stay; a mark between goes alone.
template <class Mark, const auto& marks>
void DestroySpanner(Document* document, StaffMeasureSymbol* symbol) {
    auto* own = static_cast<Mark*>(symbol);
    auto* spanner = marks.ParentOf(own);
    if (own != marks.First(spanner) && own != marks.Last(spanner)) {
        marks.Remove(own);
        staffSymbols.Remove(own);
        return DropRecord(document, own);
    }
    while (Mark* mark = marks.First(spanner)) {
        marks.Remove(mark);
        staffSymbols.Remove(mark);
        DropRecord(document, mark);
    }
    DropRecord(document, spanner);
}

void DestroyText(Document* document, StaffMeasureSymbol* symbol) {
    auto* text = static_cast<MeasureStaffText*>(symbol);
    DropTextMarks(text);
    staffSymbols.Remove(text);
    DropRecord(document, text);
}

constexpr struct {
    int16_t classNumber;
    void (*destroy)(Document*, StaffMeasureSymbol*);
} kStaffSymbols[] = {
    {MarkHairpin::kClass, DestroySpanner<MarkHairpin, hairpinMarks>},
    {MarkOttava::kClass, DestroySpanner<MarkOttava, ottavaMarks>},
    {MarkSlur::kClass, DestroySpanner<MarkSlur, slurMarks>},
    {MarkTrillo::kClass, DestroySpanner<MarkTrillo, trilloMarks>},
    {MarkPedale::kClass, DestroySpanner<MarkPedale, pedaleMarks>},
    {93, DestroyText},
};

}  // namespace

void DestroyStaffMeasureSymbol(StaffMeasureSymbol* symbol) {
    Document* document = DocumentPar(MeasureStaffPar(symbol));
    for (const auto& row : kStaffSymbols)
        if (row.classNumber == symbol->ClassNumber()) return row.destroy(document, symbol);
    staffSymbols.Remove(symbol);
    DropRecord(document, symbol);
}

void DestroyMeasureSymbol(MeasureSymbol* symbol) {
    Document* document = DocumentPar(MeasurePar(symbol));
    if (auto* cross = As<CrossBeam>(symbol)) return DissolveBeam(cross, nullptr);
    if (auto* tempo = As<Time>(symbol)) RemoveTempo(tempo);
    if (auto* mark = As<MarkEndings>(symbol)) {
        Endings* endings = endingsMarks.ParentOf(mark);
        endingsMarks.Remove(mark);
        if (endingsMarks.IsEmpty(endings)) DropRecord(document, endings);
    }
    measureSymbols.Remove(symbol);
    DropRecord(document, symbol);
}

}  // namespace corvane
