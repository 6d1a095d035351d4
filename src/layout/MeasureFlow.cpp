#include "layout/MeasureFlow.h"

#include <algorithm>
#include <vector>

#include "layout/MeasureHeads.h"
#include "layout/PageFit.h"
#include "layout/PageLayout.h"
#include "layout/ScoreBuilder.h"
#include "layout/SkeletonRemoval.h"
#include "layout/SpannerMarks.h"
#include "model/Par.h"

namespace corvane {
namespace {

System* SystemBehind(const System* system) {
    if (System* next = pageSystems.Next(system)) return next;
    for (Page* page = documentPages.Next(PagePar(system)); page; page = documentPages.Next(page))
        if (System* first = pageSystems.First(page)) return first;
    return nullptr;
}

std::vector<System*> SystemsBetween(System* first, const System* last) {
    std::vector<System*> systems;
    for (System* system = first; system; system = SystemBehind(system)) {
        systems.push_back(system);
        if (system == last) break;
    }
    return systems;
}

std::vector<System*> SystemsFrom(Page* first) {
    std::vector<System*> systems;
    for (Page* page = first; page; page = documentPages.Next(page))
        for (System* system : pageSystems.Of(page)) systems.push_back(system);
    return systems;
}

std::vector<Measure*> MeasuresOf(const std::vector<System*>& systems) {
    std::vector<Measure*> measures;
    for (const System* system : systems)
        for (Measure* measure : systemMeasures.Of(system)) measures.push_back(measure);
    return measures;
}

Page* MakePageLike(Document* document, Page* model) {
    Page* page = MakePage(document, model, nullptr);
    page->_leftMargin = model->_leftMargin;
    page->_rightMargin = model->_rightMargin;
    page->_topMargin = model->_topMargin;
    page->_bottomMargin = model->_bottomMargin;
    return page;
}

// A system as high as its model, whose staves it got.
System* MakeSystemLike(Page* page, System* behind, const System* model, int measures) {
    System* system = MakeSystem(page, behind, measures);
    system->_bottom = system->_top + model->_bottom - model->_top;
    return system;
}

Staff* StaffIn(const System* system, const DocStaff* docStaff) {
    for (Staff* staff : StaffsFromTop(system))
        if (docStaffStaffs.ParentOf(staff) == docStaff) return staff;
    return nullptr;
}

void MoveMeasure(Measure* measure, System* to, Measure* behind) {
    SystemPar(measure)->_measureCount -= 1;
    systemMeasures.Remove(measure);
    systemMeasures.Insert(to, measure, behind);
    to->_measureCount += 1;
    for (MeasureStaff* crossing : measureStaffs.Of(measure))
        if (crossing->_staff) crossing->_staff = StaffIn(to, DocStaffPar(crossing));
}

void DealMeasures(const std::vector<Measure*>& measures, const std::vector<System*>& systems,
                  size_t perSystem) {
    Measure* behind = nullptr;
    for (size_t i = 0; i < measures.size(); ++i) {
        System* target = systems[i / perSystem];
        if (i % perSystem == 0) behind = nullptr;
        if (SystemPar(measures[i]) != target) MoveMeasure(measures[i], target, behind);
        behind = measures[i];
    }
}

// What a parent holds, to tell whether that changed.
template <class Rel>
struct Holding {
    typename Rel::Parent* of;
    const typename Rel::Child *first, *last;
    int count;

    Holding(const Rel& relation, typename Rel::Parent* parent)
        : of(parent),
          first(relation.First(parent)),
          last(relation.Last(parent)),
          count(relation.Count(parent)) {}
    bool Changed() const {
        const Holding now(Rel(), of);
        return now.first != first || now.last != last || now.count != count;
    }
};
using SystemHolding = Holding<std::remove_cvref_t<decltype(systemMeasures)>>;
using PageHolding = Holding<std::remove_cvref_t<decltype(pageSystems)>>;

void MoveSystem(System* system, Page* to, System* behind) {
    PagePar(system)->_systemCount -= 1;
    pageSystems.Remove(system);
    pageSystems.Insert(to, system, behind);
    to->_systemCount += 1;
    FitWidth(system);
}

// Systems without measures go; the others that changed share their width anew. True if any went.
bool FitSystems(Document* document, const std::vector<SystemHolding>& before) {
    std::vector<Page*> thinned;
    for (const SystemHolding& holding : before) {
        if (!holding.Changed()) continue;
        if (!systemMeasures.IsEmpty(holding.of)) {
            FitMeasures(holding.of);
            continue;
        }
        if (thinned.empty() || thinned.back() != PagePar(holding.of)) thinned.push_back(PagePar(holding.of));
        ReleaseSystem(holding.of);
    }
    for (Page* page : thinned)
        if (pageSystems.IsEmpty(page))
            ReleasePage(page);
        else
            RefitSystems(document, page);
    return !thinned.empty();
}

// Surplus systems of a page go to new pages behind it.
void SpillOver(Document* document, Page* page, int capacity) {
    std::vector<Page*> pages{page};
    System* last = nullptr;
    int count = 0;
    for (System* system : SystemsBetween(pageSystems.First(page), pageSystems.Last(page))) {
        if (count == capacity) {
            pages.push_back(MakePageLike(document, pages.back()));
            last = nullptr;
            count = 0;
        }
        if (pages.size() > 1) MoveSystem(system, pages.back(), last);
        last = system;
        ++count;
    }
    for (Page* each : pages) RefitSystems(document, each);
}

// Deals out systems in their order. What comes after the last one: new systems where a page is to be filled.
void DealSystems(Document* document, Page* first, const std::vector<System*>& systems, int perPage,
                 int lastFilled, int measures) {
    size_t next = 0;
    for (Page* page = first;;) {
        const bool filled = page == first || page->_pageNumber <= lastFilled;
        System* last = nullptr;
        for (int place = 0; place < perPage && (next < systems.size() || filled); ++place) {
            if (next == systems.size()) {
                last = MakeSystemLike(page, last, systems.back(), measures);
                FitMeasures(last);
                continue;
            }
            if (PagePar(systems[next]) != page) MoveSystem(systems[next], page, last);
            last = systems[next++];
        }
        if (next == systems.size() && page->_pageNumber >= lastFilled) return;
        Page* behind = documentPages.Next(page);
        page = behind ? behind : MakePageLike(document, page);
    }
}

// The last one before a page; null for none.
const System* SystemBefore(const Page* page) {
    for (page = documentPages.Prev(page); page; page = documentPages.Prev(page))
        if (const System* last = pageSystems.Last(page)) return last;
    return nullptr;
}

// Where no page from the first on has a system.
void FillPages(Document* document, Page* first, int lastFilled, int perPage, int measures) {
    const System* model = SystemBefore(first);
    CORVANE_ASSERT_AS(model, "protSys");
    for (Page* page = first; page; page = documentPages.Next(page)) {
        if (page != first && page->_pageNumber > lastFilled) return;
        System* last = nullptr;
        for (int place = 0; place < perPage; ++place) {
            last = MakeSystemLike(page, last, model, measures);
            FitMeasures(last);
        }
        RefitSystems(document, page);
    }
}

}  // namespace

void RenumberMeasures(Measure* first) {
    if (!first) return;
    const Measure* before = PrevMeasure(first);
    int32_t number = before ? before->_number + 1 : 1;
    for (Measure* measure = first; measure && measure->_number != number; measure = NextMeasure(measure))
        measure->_number = number++;
}

void RenumberPages(Document* document) {
    int16_t number = 0;
    for (Page* page : documentPages.Of(document))
        if (page->_pageNumber != ++number) page->_pageNumber = number;
}

void RefitSystems(Document* document, Page* page) {
    const int n = pageSystems.Count(page);
    if (n == 0) return;
    const int32_t band = (Document::pageHeight - page->_topMargin - page->_bottomMargin) / n;
    bool fit = true;
    for (const System* system : pageSystems.Of(page)) fit = fit && system->_bottom - system->_top <= band;
    if (fit)
        DistributeSystems(document, page);
    else
        CenterSystems(document, page);
}

void SetMeasuresPerSystem(Document* document, System* first, System* last, int perSystem) {
    CORVANE_ASSERT_AS(document && first && last && perSystem > 0, "_sys && _prot && _doc");
    std::vector<System*> systems = SystemsBetween(first, last);
    const std::vector<Measure*> measures = MeasuresOf(systems);
    std::vector<MeasureHead> heads;
    for (size_t i = 0; i < measures.size(); ++i)
        if (i % static_cast<size_t>(perSystem) == 0 || !systemMeasures.Prev(measures[i]))
            heads.emplace_back(measures[i]);

    Page* lastPage = PagePar(last);
    const int capacity = pageSystems.Count(lastPage);
    while (systems.size() * static_cast<size_t>(perSystem) < measures.size())
        systems.push_back(MakeSystemLike(lastPage, systems.back(), last, 0));
    std::vector<SystemHolding> before;
    for (System* system : systems) before.emplace_back(systemMeasures, system);
    DealMeasures(measures, systems, static_cast<size_t>(perSystem));
    for (const MeasureHead& head : heads) head.Settle();
    SettleMarks(systems);
    if (!FitSystems(document, before) && pageSystems.Count(lastPage) > capacity)
        SpillOver(document, lastPage, capacity);
    RenumberPages(document);
}

void SetSystemsPerPage(Document* document, Page* first, int lastFilled, int perPage, int measures) {
    CORVANE_ASSERT_AS(document && first && perPage > 0, "_prototipo && _doc && _p");
    const std::vector<System*> systems = SystemsFrom(first);
    if (systems.empty()) return FillPages(document, first, lastFilled, perPage, measures);
    std::vector<PageHolding> before;
    for (Page* page = first; page; page = documentPages.Next(page)) before.emplace_back(pageSystems, page);
    const Page* lastOld = documentPages.Last(document);
    DealSystems(document, first, systems, perPage, lastFilled, measures);
    for (Page* page = documentPages.Next(lastOld); page; page = documentPages.Next(page))
        RefitSystems(document, page);
    for (const PageHolding& holding : before) {
        if (!holding.Changed()) continue;
        if (pageSystems.IsEmpty(holding.of))
            ReleasePage(holding.of);
        else
            RefitSystems(document, holding.of);
    }
    RenumberPages(document);
}

}  // namespace corvane
