#include "edit/MeasureSeams.h"
#include "edit/Structure.h"
#include "edit/StructureStep.h"
#include "edit/TarnDestroy.h"
#include "layout/MeasureFlow.h"
#include "model/Par.h"

namespace corvane {
namespace {

std::vector<Page*> PagesBetween(Page* first, const Page* last) {
    std::vector<Page*> pages;
    for (Page* page = first; page; page = documentPages.Next(page)) {
        pages.push_back(page);
        if (page == last) break;
    }
    return pages;
}

}  // namespace

Status RemovePages(WindowTarn& window, Page* first, Page* last) {
    Document* document = window.GetDocument();
    if (first == documentPages.First(document) && last == documentPages.Last(document))
        return {Fault::Refused, "Can't remove all pages!"};
    const std::vector<Page*> pages = PagesBetween(first, last);
    std::vector<Measure*> going;
    for (const Page* page : pages)
        for (const System* system : pageSystems.Of(page))
            for (Measure* measure : systemMeasures.Of(system)) going.push_back(measure);
    if (!going.empty() && !PrevMeasure(going.front()) && !NextMeasure(going.back()))
        return {Fault::Refused, "Can't remove all the measures of a document!"};

    StructureStep step(window);
    if (!going.empty()) TakeOutMeasures(window, going);
    for (Page* page : pages) {
        step.Leave(page);
        DestroyPage(window, page);
    }
    RenumberPages(document);
    return Status::Ok();
}

}  // namespace corvane
