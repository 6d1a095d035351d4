#include "edit/MeasureSeams.h"
#include "edit/Structure.h"
#include "edit/StructureStep.h"
#include "layout/MeasureFlow.h"
#include "layout/ScoreBuilder.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int kMostInSystem = 32767;

System* FirstSystem(const Document* document) {
    for (const Page* page : documentPages.Of(document))
        for (System* system : pageSystems.Of(page))
            if (!systemMeasures.IsEmpty(system)) return system;
    return nullptr;
}

}  // namespace

Status AddMeasures(WindowTarn& window, int count, Measure* behind) {
    if (count < 1) return {Fault::Refused, "The number of measures must be higher than 0!"};
    System* system = behind ? SystemPar(behind) : FirstSystem(window.GetDocument());
    if (!system) return {Fault::Refused, "There is no system to hold measures"};
    if (count > kMostInSystem - system->_measureCount)
        return {Fault::Refused, "A system holds at most 32767 measures"};

    const StructureStep step(window);
    if (behind) CutBehind(window, behind);
    std::vector<Measure*> made;
    for (int i = 0; i < count; ++i) made.push_back(MakeMeasure(system, made.empty() ? behind : made.back()));
    Measure* next = NextMeasure(made.back());
    if (behind && !next) MoveFinalBarline(behind, made.back());
    ContinueEndings(made);
    FitMeasures(system);
    RenumberMeasures(next);
    return Status::Ok();
}

}  // namespace corvane
