#include "edit/MeasureSeams.h"
#include "edit/Structure.h"
#include "edit/StructureStep.h"
#include "layout/MeasureFlow.h"
#include "layout/SkeletonRemoval.h"
#include "model/Par.h"

namespace corvane {
namespace {

// Emptied systems go and their pages are shared anew; emptied pages go.
void DropEmptied(StructureStep& step, Document* document, const std::vector<System*>& systems) {
    std::vector<Page*> thinned;
    for (System* system : systems) {
        if (!systemMeasures.IsEmpty(system)) continue;
        Page* page = PagePar(system);
        if (thinned.empty() || thinned.back() != page) thinned.push_back(page);
        ReleaseSystem(system);
    }
    bool pageWent = false;
    for (Page* page : thinned) {
        if (!pageSystems.IsEmpty(page)) {
            RefitSystems(document, page);
            continue;
        }
        step.Leave(page);
        ReleasePage(page);
        pageWent = true;
    }
    if (pageWent) RenumberPages(document);
}

}  // namespace

Status RemoveMeasures(WindowTarn& window, const MeasureRange& range) {
    if (!PrevMeasure(range.first) && !NextMeasure(range.last))
        return {Fault::Refused, "Can't remove all the measures of a document!"};
    std::vector<Measure*> going;
    for (Measure* measure = range.first; measure; measure = NextMeasure(measure)) {
        going.push_back(measure);
        if (measure == range.last) break;
    }
    StructureStep step(window);
    DropEmptied(step, window.GetDocument(), TakeOutMeasures(window, going));
    return Status::Ok();
}

}  // namespace corvane
