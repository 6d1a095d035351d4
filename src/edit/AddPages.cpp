#include <optional>

#include "edit/MeasureSeams.h"
#include "edit/Structure.h"
#include "edit/StructureStep.h"
#include "layout/MeasureFlow.h"
#include "layout/MeasureHeads.h"
#include "layout/NoteAreas.h"
#include "layout/PageLayout.h"
#include "layout/ScoreBuilder.h"
#include "layout/SignRecords.h"
#include "model/Par.h"

namespace corvane {
namespace {

constexpr int kMostPages = 32767;

// The page itself, or the nearest one with systems.
Page* ModelOf(const Document* document, Page* behind) {
    Page* start = behind ? behind : documentPages.First(document);
    for (Page* page = start; page; page = documentPages.Prev(page))
        if (!pageSystems.IsEmpty(page)) return page;
    for (Page* page = start; page; page = documentPages.Next(page))
        if (!pageSystems.IsEmpty(page)) return page;
    return nullptr;
}

// Systems and staves of a new page stand as high as those of its model.
void CopyHeights(const Page* model, const Page* page) {
    System* system = pageSystems.First(page);
    for (const System* from : pageSystems.Of(model)) {
        system->_top = from->_top.Get();
        system->_bottom = from->_bottom.Get();
        const std::vector<Staff*> models = StaffsFromTop(from), staffs = StaffsFromTop(system);
        for (size_t i = 0; i < staffs.size(); ++i) {
            staffs[i]->_top = models[i]->_top.Get();
            staffs[i]->_bottom = models[i]->_bottom.Get();
        }
        system = pageSystems.Next(system);
    }
}

Measure* LastMeasureUpTo(const Page* page) {
    for (; page; page = documentPages.Prev(page))
        for (const System* system = pageSystems.Last(page); system; system = pageSystems.Prev(system))
            if (Measure* last = systemMeasures.Last(system)) return last;
    return nullptr;
}

void FitAll(const std::vector<Page*>& pages) {
    for (const Page* page : pages)
        for (System* system : pageSystems.Of(page))
            if (!systemMeasures.IsEmpty(system)) FitMeasures(system);
}

std::vector<Measure*> MeasuresOf(const std::vector<Page*>& pages) {
    std::vector<Measure*> measures;
    for (const Page* page : pages)
        for (const System* system : pageSystems.Of(page))
            for (Measure* measure : systemMeasures.Of(system)) measures.push_back(measure);
    return measures;
}

// The time signatures of the score's first measure begin the new first one.
void MoveMeter(const Measure* from, const Measure* to) {
    for (MeasureStaff* crossing : measureStaffs.Of(to)) {
        const MeasureStaff* old = MeasureStaffAt(from, DocStaffPar(crossing));
        const auto* sign = old ? SignOf<TimeSignature>(old) : nullptr;
        if (sign) SetTime(crossing, MeterOf(sign));
    }
}

}  // namespace

Status AddPages(WindowTarn& window, int count, Page* behind) {
    Document* document = window.GetDocument();
    if (count < 1) return {Fault::Refused, "The number of pages must be higher than 0!"};
    if (count > kMostPages - document->_pageCount) return {Fault::Refused, "A score has at most 32767 pages"};
    const Page* model = ModelOf(document, behind);
    if (!model) return {Fault::Refused, "There is no page with systems"};

    const StructureStep step(window);
    Measure* before = LastMeasureUpTo(behind);
    Measure* next = before ? NextMeasure(before) : FirstMeasure(document);
    std::vector<NoteAreas> areas;
    for (const Measure* beside : {before, next})
        if (beside) areas.emplace_back(SystemPar(beside));
    std::optional<MeasureHead> head;
    if (next) head.emplace(next);

    std::vector<Page*> pages;
    for (int i = 0; i < count; ++i) {
        pages.push_back(MakePage(document, pages.empty() ? behind : pages.back(), model));
        CopyHeights(model, pages.back());
    }
    const std::vector<Measure*> made = MeasuresOf(pages);
    if (made.empty()) return Status::Ok();
    if (before) CutBehind(window, before);
    if (before && !next) MoveFinalBarline(before, made.back());
    if (!before) MoveMeter(next, made.front());
    if (head) head->Settle();
    ContinueEndings(made);
    for (const NoteAreas& each : areas) each.Apply();
    FitAll(pages);
    RenumberMeasures(next);
    return Status::Ok();
}

}  // namespace corvane
