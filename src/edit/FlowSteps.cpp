// Dealing measures and systems out anew, and centring them.
#include "edit/MeasureSeams.h"
#include "edit/SessionChoices.h"
#include "edit/Structure.h"
#include "edit/StructureStep.h"
#include "layout/MeasureFlow.h"
#include "layout/ScoreBuilder.h"
#include "model/Par.h"
#include "play/MIDIUtility.h"

namespace corvane {
namespace {

bool HasSystems(const Document* document) {
    for (const Page* page : documentPages.Of(document))
        if (!pageSystems.IsEmpty(page)) return true;
    return false;
}

template <class Do>
Status OnPages(WindowTarn& window, Page* first, const Page* last, Do act) {
    const StructureStep step(window);
    for (Page* page = first; page; page = documentPages.Next(page)) {
        if (!pageSystems.IsEmpty(page)) act(page);
        if (page == last) break;
    }
    return Status::Ok();
}

}  // namespace

Status FlowMeasures(WindowTarn& window, int count, const MeasureRange& range) {
    if (count < 1) return {Fault::Refused, "The number of measures must be higher than 0!"};
    StructureStep step(window);
    System *first = SystemPar(range.first), *last = SystemPar(range.last);
    const Measure *from = systemMeasures.First(first), *to = systemMeasures.Last(last);
    SetMeasuresPerSystem(window.GetDocument(), first, last, count);
    // Clefs that stood at heads of systems may stand at ends of measures now.
    for (const Measure* measure = from; measure; measure = measure == to ? nullptr : NextMeasure(measure))
        RenewHeightsByClefs(measure);
    step.LookForPage();
    return Status::Ok();
}

Status FlowSystems(WindowTarn& window, int count, Page* first, const Page* lastFilled, int measures) {
    if (count < 1) return {Fault::Refused, "The number of systems must be higher than 0!"};
    if (measures < 0) return {Fault::Refused, "The number of measures must be higher than 0!"};
    Document* document = window.GetDocument();
    if (!HasSystems(document)) return {Fault::Refused, "There is no system to deal out"};
    StructureStep step(window);
    Measure* last = LastMeasure(document);
    const int filled = lastFilled ? lastFilled->_pageNumber.Get() : 0;
    SetSystemsPerPage(document, first, filled, count, measures ? measures : Choices().measuresPerSystem);
    if (last != LastMeasure(document)) MoveFinalBarline(last, LastMeasure(document));
    step.LookForPage();
    return Status::Ok();
}

Status AutocenterSystems(WindowTarn& window, Page* first, Page* last) {
    return OnPages(window, first, last, [&](Page* page) { CenterSystems(window.GetDocument(), page); });
}

Status AutocenterStaves(WindowTarn& window, Page* first, Page* last) {
    return OnPages(window, first, last, [](Page* page) {
        for (System* system : pageSystems.Of(page)) CenterStaves(system);
    });
}

}  // namespace corvane
