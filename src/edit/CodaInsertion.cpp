// Repetition texts of measures, and symbols placed at a staff.
#include <algorithm>

#include "edit/Insertion.h"
#include "edit/Signs.h"
#include "edit/SystemRedraw.h"
#include "edit/TarnClick.h"
#include "layout/AboveStaff.h"
#include "layout/Frames.h"
#include "layout/SignRecords.h"
#include "model/Par.h"
#include "model/SymbolNames.h"
#include "model/SymbolTable.h"

namespace corvane {
namespace {

Coda* TextIn(const Measure* measure, std::string_view text) {
    for (MeasureSymbol* symbol : measureSymbols.Of(measure))
        if (auto* coda = As<Coda>(symbol); coda && SymbolName(coda->_symbol) == text) return coda;
    return nullptr;
}

}  // namespace

Status InsertCoda(WindowTarn& window, Measure* measure, std::string_view text) {
    const auto texts = RepetitionTexts();
    if (std::find(texts.begin(), texts.end(), text) == texts.end())
        return {Fault::Refused, "There is no such repetition text"};
    const EditStep step(window);
    if (Coda* old = TextIn(measure, text)) return DeleteCoda(window, old), Status::Ok();
    const SystemRedraw redraw(window, measure);
    auto* coda = Make<Coda>();
    measureSymbols.Add(measure, coda);
    coda->_symbol = LookupSymbol(DocumentPar(measure), text);
    coda->_y = -LiftOver(measure, InkOfMark(coda), coda);
    return Status::Ok();
}

void DeleteCoda(WindowTarn& window, Coda* coda) {
    Measure* measure = MeasurePar(coda);
    const SystemRedraw redraw(window, measure);
    DropSymbol(DocumentPar(measure), coda->_symbol);
    measureSymbols.Remove(coda);
    Release(coda);
}

void SimboliVariInsertion(const InsertionPlace& place, std::string_view descriptor) {
    MeasureStaff* crossing = FindMeasureStaff(place.system, place.point);
    Staff* staff = crossing ? crossing->_staff.Get() : nullptr;
    if (!staff || staff->_lineDistance <= 0) return;
    auto* sign = Make<SimboliVari>();
    staffSymbols.Add(crossing, sign);
    sign->_symbol = LookupSymbol(DocumentPar(crossing), descriptor);
    sign->_x = FrameOf(MeasurePar(crossing)).PerMilleOfX(place.point.x);
    sign->_y = (place.point.y - FrameOf(staff).top) * 1000 / staff->_lineDistance;
    if (PagePar(MeasurePar(crossing)) == place.window.CurrentPage())
        place.window.Sheet().AddObject(PatchOf(sign), 0);
}

void DeleteSimboliVari(WindowTarn& window, SimboliVari* sign) {
    window.Sheet().RemoveObject(PatchOf(sign));
    ReleaseSign(sign);
}

}  // namespace corvane
